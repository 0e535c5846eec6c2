#include "desktop/DesktopFixture.h"

#include <QCheckBox>
#include <QLabel>
#include <QTest>

#include "shell/Application.h"
#include "shell/ScreenInstances.h"
#include "shell/Settings.h"
#include "shell/frmAbout.h"
#include "shell/frmTip.h"

namespace quillon::tests {
namespace {

using TipAndAbout = DesktopFixture;

TEST_F(TipAndAbout, TipsGoRoundAndStayAwayWhenToldTo) {
    home.folder.Write("app/TIPOFDAY.TXT", "First tip\r\nSecond tip\r\n");
    settings::Write("1", settings::ShowTips);
    windows.Expect("frmTip", [](QWidget& tip) {
        auto& text = Find<QLabel>("lblTip", tip);
        const QString first = text.text();
        Click("cmdNextTip", tip);
        EXPECT_NE(text.text(), first);
        Click("cmdNextTip", tip);
        EXPECT_EQ(text.text(), first);
        EXPECT_TRUE(Find<QCheckBox>("chkLoadTipsAtStartup", tip).isChecked());
        Click("chkLoadTipsAtStartup", tip);
        Click("cmdOK", tip);
    });
    TheScreen<frmTip>().ShowModal();
    EXPECT_EQ(settings::Read(settings::ShowTips), "0");
}

TEST_F(TipAndAbout, ATipOfAnyLengthIsShownWhole) {
    std::string words;
    for (int i = 0; i < 120; ++i)
        words += "word" + std::to_string(i) + " ";
    home.folder.Write("app/TIPOFDAY.TXT", words + "\r\n");
    windows.Expect("frmTip", [](QWidget& window) {
        auto& text = Find<QLabel>("lblTip", window);
        EXPECT_GE(text.height(), text.heightForWidth(text.width()));
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    TheScreen<frmTip>().ShowModal();
}

TEST_F(TipAndAbout, AboutNamesTheProgramAndItsVersion) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        windows.Expect("frmAbout", [key](QWidget& about) {
            EXPECT_TRUE(Find<QLabel>("lblTitle", about)
                            .text()
                            .contains(QString::fromStdString(TheApplication().TitleAndVersion())));
            Press(key);
        });
        TheScreen<frmAbout>().ShowModal();
    }
}

} // namespace
} // namespace quillon::tests
