#include "desktop/DesktopFixture.h"

#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>

#include "architecture/clsQlnTemplate.h"
#include "model/AuditObj.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "template/frmIncludes.h"

namespace quillon::tests {
namespace {

class IncludesScreen : public DesktopFixture {
  protected:
    IncludesScreen() {
        g_objAudit = std::make_shared<AuditObj>();
        g_objArch = std::make_unique<clsQlnTemplate>();
        g_objArch->NewFile();
        g_objArch->AddInclude("first.vbs");
        for (const char* name : {"second.vbs", "third.vbs"})
            home.folder.Write(std::string("app/") + name, "");
    }
    void Show(WindowScript::Visit visit) {
        windows.Expect("frmIncludes", std::move(visit));
        TheScreen<frmIncludes>().LoadIncludes();
    }
    void Add(QWidget& window, const char* name) {
        windows.ExpectFile("Open an Include File",
                           QString::fromStdString((home.folder.path() / "app" / name).string()));
        Click("cmdAdd", window);
    }
    std::vector<std::string> Includes() {
        std::vector<std::string> files;
        for (std::int16_t i = 0; i < g_objArch->IncludeCount(); ++i)
            files.push_back(g_objArch->Includes(i));
        return files;
    }
};

QStringList Rows(QWidget& window) {
    QStringList rows;
    auto& list = Find<QTreeWidget>("lstIncludes", window);
    for (int row = 0; row < list.topLevelItemCount(); ++row)
        rows << list.topLevelItem(row)->text(0);
    return rows;
}

void ClickRow(QWidget& window, int row) {
    auto& list = Find<QTreeWidget>("lstIncludes", window);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.topLevelItem(row)).center());
}

TEST_F(IncludesScreen, FilesAreAddedByNameOrWholePathAndSavedTogether) {
    Show([this](QWidget& window) {
        EXPECT_EQ(Rows(window), QStringList{"first.vbs"});
        EXPECT_FALSE(Find("cmdSave", window).isEnabled());
        Add(window, "second.vbs");
        Click("optFileOptions1", window);
        Add(window, "third.vbs");
        EXPECT_EQ(Rows(window).size(), 3);
        Click("cmdSave", window);
    });
    EXPECT_EQ(Includes(),
              (std::vector<std::string>{"first.vbs", "second.vbs", home.folder.SystemPath("app/third.vbs")}));
}

TEST_F(IncludesScreen, DeleteRefreshAndCancel) {
    Show([this](QWidget& window) {
        Add(window, "second.vbs");
        ClickRow(window, 0);
        Click("cmdDelete", window);
        EXPECT_EQ(Rows(window), QStringList{"second.vbs"});
        ClickRow(window, 0);
        QTest::keyClick(&Find("lstIncludes", window), Qt::Key_Delete);
        EXPECT_TRUE(Rows(window).isEmpty());
        EXPECT_FALSE(Find("cmdDelete", window).isEnabled());
        Click("cmdRefresh", window);
        EXPECT_EQ(Rows(window), QStringList{"first.vbs"});
        EXPECT_FALSE(Find("cmdSave", window).isEnabled());
        ClickRow(window, 0);
        Click("cmdDelete", window);
        Press(Qt::Key_Escape);
    });
    EXPECT_EQ(Includes(), std::vector<std::string>{"first.vbs"});
}

} // namespace
} // namespace quillon::tests
