#include "desktop/DesktopFixture.h"

#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

#include "model/frmODBCLogon.h"
#include "shell/ScreenInstances.h"

namespace quillon::tests {
namespace {

class Guide : public DesktopFixture {
  protected:
    ~Guide() override {
        if (QTextBrowser* page = Page())
            delete page->window();
    }
    void Provide() {
        std::string text = "# The guide\n\n";
        for (const char* heading : {"Log in", "Include files", "Install", "Generate", "Options"})
            text += "## " + std::string(heading) + "\n\n" + Filler() + "\n\n";
        home.folder.Write("app/guide.md", text);
        frontEnd.SetGuideFolder(QString::fromStdString((home.folder.path() / "app").string()));
    }
    static std::string Filler() {
        std::string text;
        for (int line = 0; line < 80; ++line)
            text += "A line of text.\n\n";
        return text;
    }
    // The first whole line that is shown.
    static QString TopLine() { return Page()->cursorForPosition({40, 24}).block().text(); }
    static QTextBrowser* Page() {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* page = window->findChild<QTextBrowser*>("guide"))
                return page;
        return nullptr;
    }
};

TEST_F(Guide, EachTopicOpensItsSectionInOneWindow) {
    Provide();
    frontEnd.Help("");
    ASSERT_NE(Page(), nullptr);
    EXPECT_TRUE(Page()->isVisible());
    const QTextBrowser* const first = Page();
    const std::pair<const char*, const char*> topics[] = {{"login.htm", "Log in"},
                                                          {"Includes.htm", "Include files"},
                                                          {"Install.htm", "Install"},
                                                          {"Create Query.htm", "Generate"}};
    for (const auto& [topic, heading] : topics) {
        frontEnd.Help(topic);
        EXPECT_EQ(Page(), first);
        EXPECT_EQ(TopLine(), heading);
    }
}

TEST_F(Guide, HelpOfAModalScreenCanBeReadAndLeftWithIt) {
    Provide();
    windows.Expect("frmODBCLogon", [](QWidget& login) {
        Click("cmdHelp", login);
        ASSERT_NE(Page(), nullptr);
        EXPECT_EQ(QApplication::activeModalWidget(), &login);
        EXPECT_EQ(Page()->window()->parentWidget(), &login);
        EXPECT_EQ(TopLine(), "Log in");
        Click("cmdCancel", login);
    });
    TheScreen<frmODBCLogon>().LoadDB();
}

TEST_F(Guide, FOneOpensTheScreensSection) {
    Provide();
    windows.Expect("frmODBCLogon", [](QWidget& login) {
        Press(Qt::Key_F1);
        ASSERT_NE(Page(), nullptr);
        EXPECT_EQ(TopLine(), "Log in");
        Click("cmdCancel", login);
    });
    TheScreen<frmODBCLogon>().LoadDB();
}

TEST_F(Guide, AGuideThatIsMissingIsTold) {
    frontEnd.SetGuideFolder("/nowhere");
    windows.ExpectMessage("The guide is not where it should be: /nowhere/guide.md", "Help");
    frontEnd.Help("login.htm");
}

} // namespace
} // namespace quillon::tests
