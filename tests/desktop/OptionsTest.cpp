#include "desktop/DesktopFixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>

#include "desktop/Theme.h"
#include "shell/ScreenInstances.h"
#include "shell/Settings.h"
#include "shell/frmOptions.h"

namespace quillon::tests {
namespace {

class Options : public DesktopFixture {
  protected:
    void Show(WindowScript::Visit visit) {
        windows.Expect("frmOptions", std::move(visit));
        TheScreen<frmOptions>().ShowModal();
    }
};

void ClickTab(QWidget& window, int tab) {
    auto& tabs = Find<QTabBar>("tbsOptions", window);
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(tab).center());
}

TEST_F(Options, EachTabShowsItsPanelAlone) {
    Show([](QWidget& window) {
        const char* const onPanel[] = {"optEditor0", "txtPrefix", "txtDefaultArch"};
        const auto check = [&](int shown) {
            for (int panel = 0; panel < 3; ++panel)
                EXPECT_EQ(Find(onPanel[panel], window).isVisible(), panel == shown) << panel << shown;
        };
        for (const int tab : {1, 2, 0}) {
            ClickTab(window, tab);
            check(tab);
        }
        for (const int tab : {1, 2, 0}) {
            Press(Qt::Key_Tab, Qt::ControlModifier);
            check(tab);
        }
        Click("cmdCancel", window);
    });
}

TEST_F(Options, OkWritesWhatStandsThere) {
    settings::Write("1", settings::ExcludeSysTables);
    Show([](QWidget& window) {
        EXPECT_TRUE(Find<QRadioButton>("optEditor2", window).isChecked());
        Click("optEditor1", window);
        EXPECT_FALSE(Find<QRadioButton>("optEditor2", window).isChecked());
        ClickTab(window, 1);
        Type(Find("txtPrefix", window), "LOG_");
        Click("chkExclude", window);
        ClickTab(window, 2);
        Type(Find("txtDefaultArch", window), "mine.qlnx");
        Click("cmdOK", window);
    });
    EXPECT_EQ(settings::Read(settings::Editor), "1");
    EXPECT_EQ(settings::Read(settings::AuditTablePrefix), "LOG_");
    EXPECT_EQ(settings::Read(settings::ExcludeSysTables), "0");
    EXPECT_EQ(settings::Read(settings::DefaultArch), "mine.qlnx");
}

TEST_F(Options, EveryOtherWayOutWritesNothing) {
    const WindowScript::Visit waysOut[] = {
        [](QWidget& window) { Click("cmdCancel", window); },
        [](QWidget&) { Press(Qt::Key_Escape); },
        [](QWidget& window) { window.close(); },
    };
    for (const auto& leave : waysOut)
        Show([&](QWidget& window) {
            ClickTab(window, 1);
            EXPECT_EQ(Find<QLineEdit>("txtPrefix", window).text(), "AUDIT");
            Type(Find("txtPrefix", window), "LOG_");
            leave(window);
        });
    EXPECT_EQ(settings::Read(settings::AuditTablePrefix), "AUDIT");
}

TEST_F(Options, EnterIsOkInATextToo) {
    Show([](QWidget& window) {
        ClickTab(window, 1);
        Type(Find("txtPrefix", window), "LOG_");
        Press(Qt::Key_Return);
    });
    EXPECT_EQ(settings::Read(settings::AuditTablePrefix), "LOG_");
}

TEST_F(Options, AProfileIsFoundByTheFileDialog) {
    home.folder.Write("app/mine.qlnx", "x");
    Show([this](QWidget& window) {
        ClickTab(window, 2);
        windows.ExpectFile("Open File",
                           QString::fromStdString((home.folder.path() / "app/mine.qlnx").string()));
        Click("cmdFindTemplate", window);
        EXPECT_EQ(Find<QLineEdit>("txtDefaultArch", window).text().toStdString(),
                  home.folder.SystemPath("app/mine.qlnx"));
        Click("cmdCancel", window);
    });
}

TEST_F(Options, TheAppearanceChangesAtOnceAndStays) {
    const auto pick = [this](const char* entry) {
        Show([entry](QWidget& window) {
            Pick(Find<QComboBox>("appearance", window), entry);
            Click("cmdCancel", window);
        });
    };
    pick("Dark");
    EXPECT_TRUE(desktop::Theme::Current().isDark);
    EXPECT_LT(QApplication::palette().color(QPalette::Window).lightness(),
              QApplication::palette().color(QPalette::WindowText).lightness());
    Show([](QWidget& window) {
        EXPECT_EQ(Find<QComboBox>("appearance", window).currentText(), "Dark");
        Click("cmdCancel", window);
    });
    pick("Light");
    EXPECT_FALSE(desktop::Theme::Current().isDark);
}

} // namespace
} // namespace quillon::tests
