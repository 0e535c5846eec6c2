// Profiles at the command line: only what was asked for changes in a file, and nothing when it fails.
#include "Console.h"

namespace quillon::tests {
namespace {

const std::string Profile =
    "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n"
    "<!-- ours -->\r\n"
    "<template>\r\n"
    "  <header><name>Sales</name><description/><author>Ann</author><legal>one\r\ntwo</legal>"
    "<scriptlanguage>VBScript</scriptlanguage></header>\r\n"
    "  <includes><!-- shared --><filename>a.vbs</filename></includes>\r\n"
    "  <templatecode><![CDATA[a\r\nb\r\n]]></templatecode>\r\n"
    "  <DDL><![CDATA[]]></DDL><house kept='yes'/>\r\n"
    "</template>\r\n";

class ProfileCommand : public Console {
  protected:
    ProfileCommand() { folder.Write("p.qlnx", Profile); }
};

TEST_F(ProfileCommand, ShowsTheListAndEachField) {
    EXPECT_EQ(Run("profile show p.qlnx"),
              "Field        Content\n"
              "-----------  --------\n"
              "name         Sales\n"
              "description\n"
              "author       Ann\n"
              "legal        2 lines\n"
              "language     VBScript\n"
              "template     2 lines\n"
              "ddl\nidentity\nviews\naggregate\nstandard\npurge\nundo\ndelete\nanalyze\n"
              "include      a.vbs\n");
    EXPECT_EQ(exitCode, 0);
    EXPECT_EQ(Run("profile show p.qlnx template"), "a\nb\n");
    EXPECT_EQ(Run("profile show p.qlnx identity"), "");
    EXPECT_EQ(exitCode, 0);
    EXPECT_EQ(folder.Read("p.qlnx"), Profile);
}

TEST_F(ProfileCommand, SetsAFieldAndNothingElse) {
    folder.Write("ddl.sql", "\xEF\xBB\xBF"
                            "CREATE TABLE t -- ü\nGO\n");
    EXPECT_EQ(Run("profile set p.qlnx ddl ddl.sql"), "");
    EXPECT_EQ(exitCode, 0) << Errors();
    std::string expected = Profile;
    expected.replace(expected.find("<DDL><![CDATA[") + 14, 0, "CREATE TABLE t -- ü\r\nGO\r\n");
    EXPECT_EQ(folder.Read("p.qlnx"), expected);
    EXPECT_EQ(Run("profile show p.qlnx ddl"), "CREATE TABLE t -- ü\nGO\n");
}

TEST_F(ProfileCommand, AFieldThatCannotBeSetChangesNothing) {
    folder.Write("latin.sql", "caf\xE9");
    folder.Write("text", "x");
    folder.Write("blank", " ");
    const std::pair<const char*, const char*> cases[] = {
        {"p.qlnx ddl latin.sql", "not UTF-8"},
        {"p.qlnx identity text", "Failure 91"}, // the file has no such element
        {"p.qlnx name blank", "Template Name"},
        {"p.qlnx ddl missing.sql", "Failure 53"},
        {"text ddl text", "not a valid template"},
    };
    for (const auto& [arguments, reason] : cases) {
        Run(std::string("profile set ") + arguments);
        EXPECT_EQ(exitCode, 1) << arguments;
        EXPECT_TRUE(ErrorsTell(reason)) << arguments << ": " << Errors();
        EXPECT_EQ(folder.Read("p.qlnx"), Profile) << arguments;
    }
    Run("profile set p.qlnx colour text");
    EXPECT_EQ(exitCode, 2);
}

TEST_F(ProfileCommand, SaysWhyAFileIsNone) {
    folder.Write("bad.qlnx", "<template>\n<header>\n</template>");
    EXPECT_EQ(Run("profile show bad.qlnx"), "");
    EXPECT_EQ(exitCode, 1);
    EXPECT_TRUE(ErrorsTell("The file specified was not a valid template.")) << Errors();
    EXPECT_TRUE(ErrorsTell("bad.qlnx: line 3:")) << Errors();
}

TEST_F(ProfileCommand, NewWritesAnEmptyProfileOnce) {
    EXPECT_EQ(Run("profile new n.qlnx --name 'Ann & Bob'"), "");
    EXPECT_EQ(exitCode, 0);
    const std::string made = folder.Read("n.qlnx");
    EXPECT_TRUE(made.starts_with("<template><header><name>Ann &amp; Bob</name><description></description>"));
    Run("profile new n.qlnx");
    EXPECT_EQ(exitCode, 1);
    EXPECT_TRUE(ErrorsTell("n.qlnx exists already")) << Errors();
    EXPECT_EQ(folder.Read("n.qlnx"), made);
    Run("profile new n.qlnx --overwrite");
    EXPECT_EQ(Run("profile show n.qlnx name"), "New Profile");
    Run("profile new missing/n.qlnx");
    EXPECT_EQ(exitCode, 1);
    EXPECT_TRUE(ErrorsTell("Failure 76")) << Errors();
}

} // namespace
} // namespace quillon::tests
