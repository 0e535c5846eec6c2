// The architecture profile on a live document: what its properties read and write, what they tell the object
// model, and that a file changes only where it was asked to.
#include <gtest/gtest.h>

#include "adapters/xml/Library.h"
#include "architecture/basArchitectureUtils.h"
#include "architecture/clsQlnTemplate.h"
#include "model/AuditObj.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "support/FaultyServices.h"
#include "support/FaultyXml.h"
#include "support/MemoryFiles.h"
#include "support/MemorySettings.h"
#include "support/ScriptedFrontEnd.h"

namespace quillon::tests {
namespace {

const std::string ByHand =
    "<template>\r\n"
    "  <header><name>Sales audit</name><description>d</description><author>Ann</author>"
    "<legal>(c)</legal><scriptlanguage>VBScript</scriptlanguage></header>\r\n"
    "  <includes><filename>a.vbs</filename><filename>b.vbs</filename></includes>\r\n"
    "  <templatecode><![CDATA[{% x %}\r\n]]></templatecode>\r\n"
    "  <analyze><![CDATA[an]]></analyze><identity><![CDATA[id]]></identity>\r\n"
    "  <DDL><![CDATA[ddl]]></DDL><Views><![CDATA[v]]></Views>\r\n"
    "  <ReportingSPAggregate><![CDATA[ag]]></ReportingSPAggregate>\r\n"
    "  <ReportingSPStandard><![CDATA[st]]></ReportingSPStandard>\r\n"
    "  <DeleteDataSP><![CDATA[dd]]></DeleteDataSP>\r\n"
    "  <DeleteQlnarchitecture><![CDATA[da]]></DeleteQlnarchitecture>\r\n"
    "  <UndoSPs><![CDATA[un]]></UndoSPs>\r\n"
    "</template>\r\n";

class Profile : public testing::Test {
  protected:
    Profile() {
        g_objTrace = std::make_unique<Trace>();
        g_objAudit = std::make_shared<AuditObj>();
        g_objArch.reset();
        g_strArchFile.clear();
        files.Contents["\\p\\hand.qlnx"] = ByHand;
    }
    ~Profile() override {
        g_objAudit.reset();
        g_objArch.reset();
    }
    std::string Saved() {
        EXPECT_TRUE(profile.Save("\\p\\out.qlnx"));
        return files.Contents["\\p\\out.qlnx"];
    }

    FaultPlan plan;
    MemoryFiles files;
    FaultyFiles faultyFiles{files, plan};
    MemorySettings settings;
    ScriptedFrontEnd frontEnd;
    adapters::XmlLibrary xml;
    FaultyXml faultyXml{xml, plan};
    Platform platform{PlatformServices{
        .frontEnd = &frontEnd, .files = &faultyFiles, .settings = &settings, .xml = &faultyXml}};
    clsQlnTemplate profile;
};

int NumberOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const Failure& failure) {
        return failure.number();
    }
    return 0;
}

TEST_F(Profile, ReadsEveryFieldAndTellsTheModel) {
    settings.Set("ScriptingLanguage", "1");
    EXPECT_TRUE(profile.Load("\\p\\hand.qlnx"));
    EXPECT_TRUE(profile.IsLoaded());
    const std::pair<std::string, std::string> fields[] = {
        {profile.Header_Name(), "Sales audit"},
        {profile.Header_Desc(), "d"},
        {profile.Header_Author(), "Ann"},
        {profile.Header_Legal(), "(c)"},
        {profile.ScriptLanguage(), "VBScript"},
        {profile.TemplateText(), "{% x %}\n"},
        {profile.SCRIPT_DDL(), "ddl"},
        {profile.SCRIPT_IDENTITY(), "id"},
        {profile.SCRIPT_ANALYZE(), "an"},
        {profile.Script_Views(), "v"},
        {profile.Script_ReportingSPAggregate(), "ag"},
        {profile.Script_ReportingSPStandard(), "st"},
        {profile.Script_DeleteDataSP(), "dd"},
        {profile.Script_DeleteQlnarchitecture(), "da"},
        {profile.Script_UndoSPs(), "un"},
    };
    for (const auto& [read, expected] : fields)
        EXPECT_EQ(read, expected);
    EXPECT_EQ(g_objAudit->Author(), "Ann");
    EXPECT_EQ(g_objAudit->Legal(), "(c)");
    EXPECT_EQ(settings.Get("ScriptingLanguage"), "0"); // a profile's language becomes the setting
    ASSERT_EQ(g_objAudit->Includes()->Count(), 2);
    EXPECT_EQ(g_objAudit->Includes()->Item(Value(std::int32_t(2)))->File(), "b.vbs");
}

TEST_F(Profile, SavesByteForByteWhatWasNotSet) {
    profile.Load("\\p\\hand.qlnx");
    EXPECT_EQ(Saved(), ByHand);
    profile.SetSCRIPT_DDL("CREATE\nGO\n");
    std::string expected = ByHand;
    expected.replace(expected.find("ddl]]"), 3, "CREATE\r\nGO\r\n");
    EXPECT_EQ(Saved(), expected);
}

// What a profile may look like from outside, and the one place of it that each of two changes touches.
struct Dress {
    const char* name;
    std::string before, behind; // what stands around the profile
    std::string lineEnd;
};

TEST_F(Profile, ChangesOneFieldOfAFileHoweverItIsDressed) {
    const Dress dresses[] = {
        {"plain", "", "", "\n"},
        {"mark and declaration", "\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8' ?>\r\n", "", "\r\n"},
        {"foreign", "<!DOCTYPE template [<!ENTITY co 'Stone'>]>\n<!-- ours -->\n<?style x?>\n",
         "\n<!-- end -->\n\n", "\n"},
    };
    for (const Dress& dress : dresses) {
        const auto file = [&](const std::string& name, const std::string& ddl) {
            std::string text =
                dress.before +
                "<template a = 'b'>\n\t<other><DDL2>x</DDL2></other>\n\t<header>\n\t\t<name >" + name +
                "</name ><scriptlanguage>VBScript</scriptlanguage>\n\t\t<!-- c --><author/>\n"
                "\t</header>\n\t<includes>\n\t</includes><!-- none -->\n\t<DDL>\n<![CDATA[" +
                ddl + "]]>\n</DDL>\n</template>" + dress.behind;
            for (std::size_t at = 0; dress.lineEnd != "\n" && (at = text.find('\n', at)) != std::string::npos;
                 at += 2)
                if (at == 0 || text[at - 1] != '\r')
                    text.replace(at, 1, dress.lineEnd);
                else
                    --at;
            return text;
        };
        files.Contents["\\p\\in.qlnx"] = file("n", "one\ntwo");
        ASSERT_TRUE(profile.Load("\\p\\in.qlnx")) << dress.name;
        EXPECT_EQ(Saved(), file("n", "one\ntwo")) << dress.name;
        profile.SetSCRIPT_DDL("GO\r\n]]> ü 漢\n");
        EXPECT_EQ(Saved(), file("n", "GO\n]]]]><![CDATA[> ü 漢\n")) << dress.name;
        profile.SetHeader_Name("a < b & c");
        EXPECT_EQ(Saved(), file("a &lt; b &amp; c", "GO\n]]]]><![CDATA[> ü 漢\n")) << dress.name;
        profile.Load("\\p\\out.qlnx");
        EXPECT_EQ(profile.SCRIPT_DDL(), "GO\n]]> ü 漢\n") << dress.name;
        EXPECT_EQ(profile.Header_Name(), "a < b & c") << dress.name;
    }
}

TEST_F(Profile, KeepsTheFilesEncodingOrLeavesTheFile) {
    const std::string latin =
        "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?><template><header><name>caf\xE9</name>"
        "<scriptlanguage>VBScript</scriptlanguage></header></template>";
    files.Contents["\\p\\out.qlnx"] = latin;
    profile.Load("\\p\\out.qlnx");
    EXPECT_EQ(profile.Header_Name(), "café");
    EXPECT_EQ(Saved(), latin);
    profile.SetHeader_Name("漢");
    EXPECT_EQ(NumberOf([this] { profile.Save(""); }), numbers::InvalidCall);
    EXPECT_EQ(files.Contents["\\p\\out.qlnx"], latin);
    EXPECT_EQ(NumberOf([this] { profile.SetHeader_Name("caf\xE9"); }), numbers::InvalidCall); // no UTF-8
    EXPECT_EQ(profile.Header_Name(), "漢");
}

TEST_F(Profile, KeepsTheDifferencesBetweenNewAndLoadedFiles) {
    settings.Set("author", "Ann");
    profile.NewFile();
    EXPECT_FALSE(profile.IsLoaded());
    profile.SetHeader_Name("New Audit Profile");
    profile.SetSCRIPT_IDENTITY("identity");
    profile.SetScript_ReportingSPStandard("standard");
    EXPECT_EQ(
        Saved(),
        "<template><header><name>New Audit Profile</name><description></description><author>Ann</author>"
        "<legal></legal><scriptlanguage>VBScript</scriptlanguage></header><includes></includes>"
        "<templatecode><![CDATA[]]></templatecode><UndoSPs><![CDATA[]]></UndoSPs>"
        "<DeleteQlnarchitecture><![CDATA[]]></DeleteQlnarchitecture>"
        "<DeleteDataSP><![CDATA[]]></DeleteDataSP><ReportingSPStandard><![CDATA[]]></ReportingSPStandard>"
        "<ReportingSPStandard><![CDATA[standard]]></ReportingSPStandard>"
        "<ReportingSPAggregate><![CDATA[]]></ReportingSPAggregate><Views><![CDATA[]]></Views>"
        "<DDL><![CDATA[]]></DDL><Identity><![CDATA[identity]]></Identity>"
        "<Analyze><![CDATA[]]></Analyze></template>");
    EXPECT_TRUE(profile.IsLoaded());

    profile.Load("\\p\\out.qlnx");
    EXPECT_EQ(profile.SCRIPT_IDENTITY(), "");
    EXPECT_EQ(profile.Script_ReportingSPStandard(), ""); // the first of the two
    EXPECT_EQ(NumberOf([this] { profile.SetSCRIPT_IDENTITY("x"); }), numbers::ObjectNotSet);
    EXPECT_EQ(NumberOf([this] { profile.SetSCRIPT_ANALYZE("x"); }), numbers::ObjectNotSet);
}

TEST_F(Profile, SettersReachTheModel) {
    profile.Load("\\p\\hand.qlnx");
    profile.SetHeader_Author("Bob");
    profile.SetHeader_Legal("law");
    EXPECT_EQ(g_objAudit->Author(), "Bob");
    EXPECT_EQ(g_objAudit->Legal(), "law");
    frontEnd.ExpectMessage("Scripting Language must be VBScript or JScript\r\n\r\n"
                           "Note: This property is not case sensitive",
                           "Invalid Pre-Processor Value", Icon::Warning);
    profile.SetScriptLanguage("Perl");
    profile.SetScriptLanguage("jscript");
    EXPECT_EQ(settings.Get("ScriptingLanguage"), "1");
}

TEST_F(Profile, RemovingAnIncludeCountsFromZeroHereAndFromOneThere) {
    profile.Load("\\p\\hand.qlnx");
    profile.AddInclude("c.vbs");
    EXPECT_EQ(profile.IncludeCount(), 3);
    profile.RemoveInclude(0); // the model's list keeps all three
    EXPECT_EQ(profile.Includes(0), "b.vbs");
    EXPECT_EQ(g_objAudit->Includes()->Count(), 3);
    profile.RemoveInclude(1); // c.vbs goes here, a.vbs there
    EXPECT_EQ(profile.IncludeCount(), 1);
    EXPECT_EQ(g_objAudit->Includes()->Item(Value(std::int32_t(1)))->File(), "b.vbs");
    profile.ClearIncludes();
    EXPECT_EQ(profile.IncludeCount(), 0);
    EXPECT_EQ(g_objAudit->Includes()->Count(), 0);
    profile.RemoveInclude(0); // nothing to remove, nothing said
    EXPECT_EQ(NumberOf([this] { profile.Includes(0); }), numbers::SubscriptOutOfRange);
}

TEST_F(Profile, AFileThatIsNoProfile) {
    files.Contents["\\p\\other.xml"] = "<other/>";
    files.Contents["\\p\\bad.xml"] = "<template>";
    files.Contents["\\p\\plain.xml"] = "<template><DDL>plain</DDL></template>";
    frontEnd.ExpectMessage("Scripting Language must be VBScript or JScript\r\n\r\n"
                           "Note: This property is not case sensitive",
                           "Invalid Pre-Processor Value", Icon::Warning);
    EXPECT_TRUE(profile.Load("\\p\\other.xml"));
    EXPECT_EQ(profile.Header_Name() + profile.TemplateText() + profile.SCRIPT_DDL(), "");
    EXPECT_EQ(profile.IncludeCount(), 0);

    profile.Load("\\p\\hand.qlnx");
    EXPECT_EQ(NumberOf([this] { profile.Load("\\p\\bad.xml"); }), numbers::NotATemplate);
    EXPECT_EQ(NumberOf([this] { profile.Load("\\p\\missing.xml"); }), numbers::NotATemplate);
    EXPECT_EQ(NumberOf([this] { profile.Load("\\p\\plain.xml"); }), numbers::TypeMismatch);
    EXPECT_TRUE(profile.IsLoaded());
    EXPECT_EQ(profile.SCRIPT_DDL(), "ddl"); // what was loaded is still there
}

// The limits: what is far too large, too deep or of far too many parts is refused as any file that is none.
TEST_F(Profile, HostileFilesAreRefusedAndTheProfileStays) {
    profile.Load("\\p\\hand.qlnx");
    std::string deep, laughs = "<!DOCTYPE t [<!ENTITY a0 \"ha\">";
    for (const char* tag : {"<a>", "</a>"})
        for (int depth = 0; depth < 10000; ++depth)
            deep += tag;
    for (int level = 1; level < 40; ++level)
        laughs += "<!ENTITY a" + std::to_string(level) + " \"&a" + std::to_string(level - 1) + ";&a" +
                  std::to_string(level - 1) + ";\">";
    files.Contents["\\p\\deep"] = "<template>" + deep + "</template>";
    files.Contents["\\p\\large"] =
        "<template><DDL><![CDATA[" + std::string(100 << 20, 'x') + "]]></DDL></template>";
    for (const char* path : {"\\p\\deep", "\\p\\large"}) {
        EXPECT_EQ(NumberOf([&] { profile.Load(path); }), numbers::NotATemplate) << path;
        EXPECT_NE(g_objTrace->Note().find(path), std::string::npos);
        EXPECT_EQ(profile.SCRIPT_DDL(), "ddl");
    }
    files.Contents["\\p\\laughs"] = laughs + "]><template><DDL><![CDATA[]]></DDL><header><name>&a39;</name>"
                                             "<scriptlanguage>VBScript</scriptlanguage></header></template>";
    if (NumberOf([&] { profile.Load("\\p\\laughs"); }) == 0) {
        EXPECT_EQ(profile.Header_Name(), ""); // nothing is expanded
    }
}

TEST_F(Profile, FailuresOfTheFileSystemAndOfTheParserReachTheCaller) {
    profile.Load("\\p\\hand.qlnx");
    plan.FailAt("Files.Replace", 1, Failure(numbers::DiskFull));
    EXPECT_EQ(NumberOf([this] { profile.Save("\\p\\hand.qlnx"); }), numbers::DiskFull);
    EXPECT_EQ(files.Contents["\\p\\hand.qlnx"], ByHand);

    plan.FailAlways("Xml.NewDocument", Failure(numbers::CannotCreateObject));
    EXPECT_EQ(NumberOf([this] { profile.Load("\\p\\hand.qlnx"); }), numbers::CannotCreateObject);
    EXPECT_EQ(NumberOf([this] { profile.NewFile(); }), numbers::CannotCreateObject);
    EXPECT_EQ(profile.SCRIPT_DDL(), "ddl");
    // In the session the failure is reported, with the note of the run that asks for the profile.
    g_strArchFile = "\\p\\hand.qlnx";
    frontEnd.ExpectFailure("ActiveX component can't create object");
    EXPECT_FALSE(basArchitectureUtils::CheckForArch());
    EXPECT_EQ(frontEnd.Failures().back().Number, 429);
}

TEST_F(Profile, ACommentIsNoInclude) {
    files.Contents["\\p\\c.qlnx"] =
        "<template><includes><!-- shared --> <filename>a.vbs</filename><?x y?></includes>"
        "<header><name>n</name><scriptlanguage>VBScript</scriptlanguage></header></template>";
    profile.Load("\\p\\c.qlnx");
    EXPECT_EQ(profile.IncludeCount(), 1);
    EXPECT_EQ(profile.Includes(0), "a.vbs");
    EXPECT_EQ(g_objAudit->Includes()->Count(), 1);
    profile.ClearIncludes();
    EXPECT_NE(Saved().find("<includes><!-- shared --> <?x y?></includes>"), std::string::npos);
}

TEST_F(Profile, SaveAsksForNameAndLanguage) {
    profile.Load("\\p\\hand.qlnx");
    profile.SetHeader_Name("  ");
    frontEnd.ExpectMessage("Required data is missing: \r\n\r\n Template Name\r\n\r\nOperation Cancelled",
                           "Missing Template Fields", Icon::Warning);
    EXPECT_FALSE(profile.Save(""));
    EXPECT_EQ(files.Contents["\\p\\hand.qlnx"], ByHand);

    clsQlnTemplate fresh;
    EXPECT_EQ(NumberOf([&] { fresh.SetHeader_Name("x"); }), numbers::ObjectNotSet);
    fresh.NewFile();
    fresh.SetHeader_Name("x");
    EXPECT_EQ(NumberOf([&] { fresh.Save(""); }), numbers::InvalidCall);
    EXPECT_FALSE(fresh.IsLoaded());
}

TEST_F(Profile, CheckForArchLoadsTheSelectedFileOnce) {
    frontEnd.ExpectMessage("You must select a valid audit architecture file first", "Invalid Operation",
                           Icon::Warning);
    frontEnd.ExpectFile("Open Audit Profile", std::nullopt);
    EXPECT_FALSE(basArchitectureUtils::CheckForArch());

    g_strArchFile = "\\p\\hand.qlnx";
    EXPECT_TRUE(basArchitectureUtils::CheckForArch());
    files.Contents.clear();
    EXPECT_TRUE(basArchitectureUtils::CheckForArch());
}

} // namespace
} // namespace quillon::tests
