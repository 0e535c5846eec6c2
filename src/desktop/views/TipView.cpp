// The tip of the day.
#include "desktop/views/ScreenViews.h"

#include <QCheckBox>
#include <QScrollArea>

#include "desktop/bind/SimpleWidgets.h"
#include "desktop/views/Layout.h"
#include "shell/frmTip.h"

namespace quillon::desktop {

void BuildTipView(frmTip& screen, QMainWindow& window) {
    window.resize(480, 240);
    QVBoxLayout* column = Content(window, 20);
    column->addWidget(Heading("Did you know ..."));
    QLabel* tip = NewLabel(screen.lblTip);
    tip->setWordWrap(true);
    tip->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto* room = new QScrollArea; // tips of the user's own may be long
    room->setFrameShape(QFrame::NoFrame);
    room->setWidgetResizable(true);
    room->setWidget(tip);
    column->addWidget(room, 1);
    column->addWidget(NewCheckBox(screen.chkLoadTipsAtStartup));
    column->addLayout(ButtonRow({NewButton(screen.cmdOK), NewButton(screen.cmdNextTip)}));
}

} // namespace quillon::desktop
