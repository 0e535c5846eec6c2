// The settings wrappers and the options screen.
#include "SessionFixture.h"
#include "platform/FailureNumbers.h"
#include "shell/Settings.h"
#include "shell/frmOptions.h"
#include "support/SameText.h"

namespace quillon::tests {
namespace {

using Names = std::vector<std::string>;

class OptionsTest : public SessionTest {
  protected:
    frmOptions options;
};

TEST_F(OptionsTest, AMissingKeyGivesTheDefaultAndKeysIgnoreCase) {
    EXPECT_EQ(settings::Read("Server", "none"), "none");
    settings::Write("PRACTICE", "server");
    EXPECT_EQ(settings::Read("Server", "none"), "PRACTICE");
    EXPECT_EQ(memorySettings.Entries[0].Application, "Harrowgate");
    EXPECT_EQ(memorySettings.Entries[0].Section, "Quillon");
    EXPECT_EQ(settings::ReadServer(1), "");
    settings::WriteServer("ONE", 1);
    EXPECT_EQ(settings::ReadServer(1), "ONE");
    EXPECT_EQ(memorySettings.Entries[1].Section, "Servers");
    EXPECT_EQ(settings::Read("1", ""), ""); // another section
}

TEST_F(OptionsTest, EveryDefaultOfTheTableConvertsToItsType) {
    for (const settings::Setting& setting : settings::All) {
        SCOPED_TRACE(setting.Key);
        switch (setting.ValueType) {
        case settings::Type::Integer: EXPECT_NO_THROW(settings::ReadLong(setting)); break;
        case settings::Type::Boolean: EXPECT_NO_THROW(settings::ReadBoolean(setting)); break;
        case settings::Type::Text: EXPECT_EQ(settings::Read(setting), setting.Default); break;
        }
        const auto same = std::ranges::count_if(
            settings::All, [&](const auto& other) { return SameText(other.Key, setting.Key); });
        EXPECT_EQ(same, 1);
    }
}

TEST_F(OptionsTest, TypedReadersConvertAsTheHostDoes) {
    const auto number = [](const char* text) -> std::int64_t {
        settings::Write(text, settings::Editor);
        try {
            return settings::ReadLong(settings::Editor);
        } catch (const Failure& failure) {
            return -failure.number();
        }
    };
    EXPECT_EQ(number("2"), 2);
    EXPECT_EQ(number(" 1 "), 1);
    EXPECT_EQ(number("1.5"), 2);
    EXPECT_EQ(number("abc"), -numbers::TypeMismatch);
    EXPECT_EQ(number(""), -numbers::TypeMismatch);
    EXPECT_EQ(number("99999999999"), -numbers::Overflow);
    for (const auto& [text, expected] : {std::pair("1", true), {"0", false}, {"True", true}, {"-1", true}}) {
        settings::Write(text, settings::LoginType);
        EXPECT_EQ(settings::ReadBoolean(settings::LoginType), expected) << text;
    }
}

TEST_F(OptionsTest, ShowsTheDefaultsAtFirst) {
    options.Load();
    EXPECT_TRUE(options.optEditor[0].Value());
    EXPECT_EQ(options.txtPrefix.Text(), "AUDIT");
    EXPECT_TRUE(options.chkExclude.IsTicked());
    EXPECT_EQ(options.txtDefaultArch.Text(), "Harrowgate.qlnx");
    EXPECT_TRUE(options.picOptions[0].Visible());
    EXPECT_FALSE(options.picOptions[1].Visible());
}

TEST_F(OptionsTest, OkWritesAllFourInOrderAndCloses) {
    frontEnd.ExpectModal("frmOptions", [&](Screen&) {
        options.optEditor[2].Click();
        options.txtPrefix.SetText("");
        options.chkExclude.Click();
        options.txtDefaultArch.SetText("\\home\\x.qlnx");
        options.cmdOK.Click();
    });
    options.ShowModal();
    EXPECT_EQ(memorySettings.Written,
              (Names{"Editor", "AuditTablePrefix", "ExcludeSysTables", "DefaultArch"}));
    EXPECT_EQ(memorySettings.Get("Editor"), "2");
    EXPECT_EQ(memorySettings.Get("AuditTablePrefix"), "");
    EXPECT_EQ(settings::Read(settings::AuditTablePrefix), ""); // empty is a value, not a missing one
    EXPECT_EQ(memorySettings.Get("ExcludeSysTables"), "0");
    EXPECT_EQ(memorySettings.Get("DefaultArch"), "\\home\\x.qlnx");
    EXPECT_FALSE(options.IsLoaded());

    options.Load();
    EXPECT_TRUE(options.optEditor[2].Value());
    EXPECT_FALSE(options.optEditor[0].Value());
    EXPECT_FALSE(options.chkExclude.IsTicked());
}

TEST_F(OptionsTest, CancelAndEscapeWriteNothing) {
    for (const bool byKey : {false, true}) {
        options.Load();
        options.txtPrefix.SetText("other");
        if (byKey)
            options.KeyDown(Key::Escape);
        else
            options.cmdCancel.Click();
        EXPECT_FALSE(options.IsLoaded());
        EXPECT_TRUE(memorySettings.Written.empty());
    }
    options.Load();
    EXPECT_EQ(options.txtPrefix.Text(), "AUDIT"); // read anew
    options.KeyDown(Key::Enter);
    EXPECT_EQ(memorySettings.Written.size(), 4u);
}

TEST_F(OptionsTest, ControlTabWalksTheTabsRound) {
    options.Load();
    std::vector<int> seen;
    for (int i = 0; i < 4; ++i) {
        options.KeyDown(Key::Tab, ControlDown);
        seen.push_back(options.tbsOptions.Selected());
        for (const Frame& panel : options.picOptions)
            EXPECT_EQ(panel.Visible(), panel.Index() == options.tbsOptions.Selected());
    }
    EXPECT_EQ(seen, (std::vector<int>{1, 2, 0, 1}));
    options.KeyDown(Key::Tab);
    EXPECT_EQ(options.tbsOptions.Selected(), 1);
    options.tbsOptions.Select(2);
    EXPECT_TRUE(options.picOptions[2].Visible());
}

TEST_F(OptionsTest, EveryControlOfTheScreenHasAPlace) {
    std::vector<Control*> placed;
    for (std::size_t panel = 0; panel < frmOptions::Panels; ++panel)
        std::ranges::copy(options.OnPanel(panel), std::back_inserter(placed));
    for (Control* control : options.Controls()) {
        const bool frame = control == &options.tbsOptions || control->Name() == "picOptions" ||
                           control == &options.cmdOK || control == &options.cmdCancel;
        EXPECT_EQ(std::ranges::count(placed, control), frame ? 0 : 1) << control->Name();
    }
    EXPECT_THROW(options.OnPanel(frmOptions::Panels), Failure);
}

TEST_F(OptionsTest, TheProfileIsPickedInTheFileDialogue) {
    options.Load();
    frontEnd.ExpectFile("Open File", std::nullopt);
    options.cmdFindTemplate.Click();
    EXPECT_EQ(options.txtDefaultArch.Text(), "Harrowgate.qlnx");
    frontEnd.ExpectFile("Open File", "\\home\\ann\\y.qlnx");
    options.cmdFindTemplate.Click();
    EXPECT_EQ(options.txtDefaultArch.Text(), "\\home\\ann\\y.qlnx");
    EXPECT_EQ(frontEnd.LastFileDialog().Filter, "All Files (*.*)|*.*|qlnx Files(*.qlnx)|*.qlnx|");
    EXPECT_EQ(frontEnd.LastFileDialog().FilterIndex, 2);
    EXPECT_TRUE(memorySettings.Written.empty());
}

// A spoilt number is reported, and OK does not wipe out the texts.
TEST_F(OptionsTest, ASpoiltEditorSettingLosesNoOtherSetting) {
    for (const auto& [spoilt, words] : {std::pair("abc", "Type mismatch"), {"7", "Subscript out of range"}}) {
        memorySettings.Set("Editor", spoilt);
        memorySettings.Set("AuditTablePrefix", "MINE");
        frontEnd.ExpectFailure(words);
        options.Load();
        options.cmdOK.Click();
        EXPECT_EQ(memorySettings.Get("AuditTablePrefix"), "MINE");
    }
}

TEST_F(OptionsTest, AStoreThatCannotBeWrittenKeepsTheScreenOpen) {
    options.Load();
    plan.FailAt("Settings.Write", 2, Failure(numbers::PathFileAccess));
    frontEnd.ExpectFailure("Path/File access error");
    options.cmdOK.Click();
    EXPECT_TRUE(options.IsLoaded());
    EXPECT_EQ(memorySettings.Written, Names{"Editor"});
}

} // namespace
} // namespace quillon::tests
