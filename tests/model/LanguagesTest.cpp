// The script language as profiles and templates set it.
#include "ModelTest.h"

namespace quillon::tests {
namespace {

class Languages : public ModelTest {
  protected:
    Languages() {
        mdLanguages::Hooks() = {.RegisterLanguages = [this] { calls += "register "; },
                                .SwitchEditor = [this] { calls += "switch "; },
                                .UpdateStatusBar = [this] { calls += "status "; }};
    }
    std::string Set(const char* name) {
        calls.clear();
        audit->Languages()->SetScriptLanguage(name);
        return calls;
    }

    std::string calls;
};

TEST_F(Languages, ADifferentLanguageBecomesTheSetting) {
    EXPECT_EQ(audit->Languages()->ScriptLanguage(), "VBScript");
    EXPECT_EQ(Set("vbSCRIPT"), "status ");
    EXPECT_TRUE(settings.Written.empty());
    EXPECT_EQ(Set("JSCRIPT"), "register switch status ");
    EXPECT_EQ(settings.Get("ScriptingLanguage"), "1");
    EXPECT_EQ(audit->Languages()->ScriptLanguage(), "JScript");
    EXPECT_EQ(Set("jscript"), "status ");
    EXPECT_EQ(Set("VBScript"), "register switch status ");
    EXPECT_EQ(settings.Get("ScriptingLanguage"), "0");
}

TEST_F(Languages, AnUnknownNameIsAnsweredWithABox) {
    for (const char* name : {"", "Perl", " VBScript", "VBScript "}) {
        frontEnd.ExpectMessage("Scripting Language must be VBScript or JScript\r\n\r\n"
                               "Note: This property is not case sensitive",
                               "Invalid Pre-Processor Value", Icon::Warning);
        EXPECT_EQ(Set(name), "");
    }
    EXPECT_TRUE(settings.Written.empty());
}

TEST_F(Languages, NoHookIsNeeded) {
    mdLanguages::Hooks() = {};
    EXPECT_EQ(Set("JScript"), "");
    EXPECT_EQ(audit->Languages()->ScriptLanguage(), "JScript");
}

} // namespace
} // namespace quillon::tests
