// The list of include files as a person edits it, and what the profile and the model have of it afterwards.
#include "RunTest.h"

#include "template/frmIncludes.h"

namespace quillon::tests {
namespace {

using Names = std::vector<std::string>;

class IncludesScreen : public RunTest {
  protected:
    IncludesScreen() {
        memory.Contents["\\p\\in.qlnx"] =
            "<template><header><name>n</name><scriptlanguage>VBScript</scriptlanguage></header><includes>"
            "<filename>a.vbs</filename><filename>\\lib\\b.vbs</filename></includes></template>";
        g_objArch = std::make_shared<clsQlnTemplate>();
        g_objArch->Load("\\p\\in.qlnx");
    }

    // Shows the screen to somebody who acts.
    void Edit(const std::function<void(frmIncludes&)>& act) {
        frontEnd.ExpectModal("frmIncludes", [&](Screen& screen) { act(static_cast<frmIncludes&>(screen)); });
        frmIncludes().LoadIncludes();
    }
    void Add(frmIncludes& screen, std::optional<std::string> picked) {
        frontEnd.ExpectFile("Open an Include File", std::move(picked));
        screen.cmdAdd.Click();
    }
    static Names Shown(const frmIncludes& screen) {
        Names names;
        for (const auto& row : screen.lstIncludes.Rows())
            names.push_back(row.Text);
        return names;
    }
    Names InProfile() const {
        Names names;
        for (std::int16_t i = 0; i < g_objArch->IncludeCount(); ++i)
            names.push_back(g_objArch->Includes(i));
        return names;
    }
    static Names InModel() {
        Names names;
        for (const auto& include : *g_objAudit->Includes())
            names.push_back(include->File());
        return names;
    }
};

TEST_F(IncludesScreen, ShowsTheProfilesListAndAppliesWhatWasSaved) {
    Edit([&](frmIncludes& screen) {
        EXPECT_EQ(screen.Title(), "Manage Includes");
        EXPECT_EQ(Shown(screen), (Names{" a.vbs", " \\lib\\b.vbs"}));
        EXPECT_FALSE(screen.cmdSave.Enabled() || screen.cmdRefresh.Enabled());
        EXPECT_TRUE(screen.cmdDelete.Enabled());
        Add(screen, "\\p\\c.vbs");
        screen.optFileOptions[1].Click();
        Add(screen, "\\p\\d.vbs");
        Add(screen, std::nullopt);
        EXPECT_EQ(Shown(screen), (Names{" a.vbs", " \\lib\\b.vbs", " c.vbs", " \\p\\d.vbs"}));
        screen.lstIncludes.Click(0);
        screen.lstIncludes.PressKey(Key::Delete);
        EXPECT_TRUE(screen.cmdSave.Enabled() && screen.cmdRefresh.Enabled());
        EXPECT_EQ(InProfile(), (Names{"a.vbs", "\\lib\\b.vbs"})); // not yet
        screen.cmdSave.Click();
    });
    EXPECT_EQ(InProfile(), (Names{"\\lib\\b.vbs", "c.vbs", "\\p\\d.vbs"}));
    EXPECT_EQ(InModel(), InProfile());
    EXPECT_NE(memory.Contents["\\p\\in.qlnx"].find("a.vbs"),
              std::string::npos); // the file waits for its own save
}

TEST_F(IncludesScreen, AppliesNothingThatWasNotSaved) {
    const auto empty = [](frmIncludes& screen) {
        for (int left = 2; left > 0; --left) {
            screen.lstIncludes.Click(0);
            screen.cmdDelete.Click();
        }
        EXPECT_FALSE(screen.cmdDelete.Enabled());
        screen.cmdDelete.Click(); // nothing there
    };
    Edit([&](frmIncludes& screen) {
        empty(screen);
        screen.cmdCancel.Click();
    });
    EXPECT_EQ(InProfile().size(), 2u);
    Edit([&](frmIncludes& screen) {
        empty(screen);
        screen.cmdRefresh.Click();
        EXPECT_EQ(Shown(screen).size(), 2u);
        EXPECT_FALSE(screen.cmdSave.Enabled());
    });
    EXPECT_EQ(InProfile().size(), 2u);
    Edit([&](frmIncludes& screen) {
        empty(screen);
        screen.cmdSave.Click();
    });
    EXPECT_EQ(InProfile(), Names{});
    EXPECT_EQ(InModel(), Names{});
}

TEST_F(IncludesScreen, AFileTwiceInTheListIsOneEntryOfTheModel) {
    Edit([&](frmIncludes& screen) {
        Add(screen, "\\elsewhere\\a.vbs");
        Add(screen, "\\elsewhere\\"); // no name: the row goes when the list is applied
        EXPECT_EQ(Shown(screen), (Names{" a.vbs", " \\lib\\b.vbs", " a.vbs", " "}));
        screen.cmdSave.Click();
    });
    EXPECT_EQ(InProfile(), (Names{"a.vbs", "\\lib\\b.vbs", "a.vbs"}));
    EXPECT_EQ(InModel(), (Names{"a.vbs", "\\lib\\b.vbs"}));
}

TEST_F(IncludesScreen, ASessionWithoutAProfileHasNone) {
    g_objArch.reset();
    Edit([&](frmIncludes& screen) { EXPECT_TRUE(Shown(screen).empty()); });
}

TEST_F(IncludesScreen, HelpOpensItsTopic) {
    Edit([&](frmIncludes& screen) {
        frontEnd.ExpectHelp("Includes.htm");
        screen.cmdHelp.Click();
    });
}

} // namespace
} // namespace quillon::tests
