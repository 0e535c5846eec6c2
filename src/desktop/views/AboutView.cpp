// Which program this is.
#include "desktop/views/ScreenViews.h"

#include "desktop/Icons.h"
#include "desktop/bind/SimpleWidgets.h"
#include "desktop/views/Layout.h"
#include "shell/frmAbout.h"

namespace quillon::desktop {

void BuildAboutView(frmAbout& screen, QMainWindow& window) {
    window.resize(460, 240);
    QVBoxLayout* column = Content(window, 20);
    auto* row = new QHBoxLayout;
    auto* picture = new QLabel;
    picture->setPixmap(IconOf("quillon").pixmap(72, 72));
    row->addWidget(picture, 0, Qt::AlignTop);
    auto* texts = new QVBoxLayout;
    for (Label* label : {&screen.lblTitle, &screen.lblDescription, &screen.lblLicence}) {
        QLabel* text = NewLabel(*label);
        text->setWordWrap(true);
        texts->addWidget(text);
    }
    texts->addStretch();
    row->addLayout(texts, 1);
    column->addLayout(row, 1);
    column->addLayout(ButtonRow({NewButton(screen.cmdOK)}));
}

} // namespace quillon::desktop
