// The login: which server, as whom. A practice server is at hand for whoever has none.
#include "desktop/views/ScreenViews.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QTimer>

#include "desktop/Boxes.h"
#include "desktop/Memory.h"
#include "desktop/PracticeServer.h"
#include "desktop/bind/Act.h"
#include "desktop/bind/ListWidgets.h"
#include "desktop/bind/SimpleWidgets.h"
#include "desktop/bind/Text.h"
#include "desktop/views/Layout.h"
#include "model/frmODBCLogon.h"

namespace quillon::desktop {
namespace {

void UsePracticeServer(frmODBCLogon& screen, QWidget* parent) {
    QString reason;
    const auto login = StartPracticeServer(reason);
    if (!login) {
        ShowMessage(parent, "The practice server does not start.\n\n" + reason, "Practice server",
                    Icon::Warning, Buttons::Ok);
        return;
    }
    Act([&] {
        screen.cboServer.SetText(Text(login->server));
        screen.optType[frmODBCLogon::SqlServer].Click();
        screen.txtUID.SetText(Text(login->user));
        screen.txtPWD.SetText(Text(login->password));
        screen.cmdOK.SetFocus();
    });
}

QPushButton* NewPracticeButton(frmODBCLogon& screen, QMainWindow& window) {
    auto* button = new QPushButton("P&ractice server");
    button->setObjectName("practiceServer");
    button->setToolTip(
        "Starts a small server of Quillon's own on this machine, with a sample database to try things on.");
    QObject::connect(button, &QPushButton::clicked, &window, [&screen, button, &window] {
        button->setEnabled(false);
        UsePracticeServer(screen, &window);
        button->setEnabled(true);
    });
    if (TakePractiseFirst())
        QTimer::singleShot(0, button, &QPushButton::click);
    return button;
}

QCheckBox* NewProductionMark(frmODBCLogon& screen, QComboBox* server) {
    auto* mark = new QCheckBox("&Mark as a production server");
    mark->setObjectName("productionMark");
    const auto show = [mark](const QString& name) {
        mark->setChecked(Memory::Instance().IsProduction(name));
    };
    QObject::connect(server, &QComboBox::currentTextChanged, mark, show);
    QObject::connect(mark, &QCheckBox::clicked, mark, [server](bool isTicked) {
        Memory::Instance().SetProduction(server->currentText(), isTicked);
    });
    show(Text(screen.cboServer.Text()));
    return mark;
}

} // namespace

void BuildLoginView(frmODBCLogon& screen, QMainWindow& window) {
    QVBoxLayout* column = Content(window, 20);
    QComboBox* server = NewComboBox(screen.cboServer);
    server->setMinimumWidth(server->fontMetrics().averageCharWidth() * 40);
    auto* serverLabel = new QLabel("SQL &Server:");
    serverLabel->setBuddy(server);
    column->addWidget(serverLabel);
    auto* row = new QHBoxLayout;
    row->addWidget(server, 1);
    row->addWidget(NewButton(screen.cmdServers));
    column->addLayout(row);
    auto* more = new QHBoxLayout;
    more->addWidget(NewProductionMark(screen, server));
    more->addStretch();
    more->addWidget(NewPracticeButton(screen, window));
    column->addLayout(more);
    column->addSpacing(6);
    column->addWidget(Heading("Connect using"));
    for (OptionButton& option : screen.optType)
        column->addWidget(NewOption(option));
    auto* form = new QFormLayout;
    form->setContentsMargins(24, 0, 0, 0);
    QLineEdit* user = NewTextBox(screen.txtUID);
    QLineEdit* password = NewTextBox(screen.txtPWD);
    form->addRow(NewLabel(screen.lblUID, user), user);
    form->addRow(NewLabel(screen.lblPWD, password), password);
    column->addLayout(form);
    column->addStretch();
    column->addLayout(
        ButtonRow({NewButton(screen.cmdOK), NewButton(screen.cmdCancel), NewButton(screen.cmdHelp)}));
}

} // namespace quillon::desktop
