// A template run without a server, and the snapshot it runs over: what a pipeline sees of them.
#include "Console.h"

#include "practice/support/ServerProcess.h"

namespace quillon::tests {
namespace {

constexpr const char* Snapshot = R"({
  "snapshot": 1, "server": "S", "database": { "name": "Sales" },
  "tables": [
    { "name": "Country", "owner": "dbo", "columns": [
        { "name": "Code", "type": "char", "length": 2, "primaryKey": true },
        { "name": "Name", "type": "nvarchar", "length": 80 },
        { "name": "Note", "type": "ntext" } ] },
    { "name": "Order", "owner": "ann", "columns": [ { "name": "Id", "type": "int" } ] } ] })";

class TemplateCommand : public Console {
  protected:
    TemplateCommand() {
        folder.Write("s.json", Snapshot);
        WriteProfile("{% objAudit.Print Line(objAudit.Database.ActiveTable) %}",
                     "<filename>lib.vbs</filename>");
        folder.Write("lib.vbs", "Function Line(t)\n"
                                "Line = t.Owner & \".\" & t.Name & \" \" & t.Audit4Insert & t.Audit4Update & "
                                "t.Audit4Delete\n"
                                "For Each f In t.Fields\n"
                                "If f.IsChecked Then Line = Line & \" \" & f.Name\n"
                                "Next\n"
                                "End Function\n");
    }
    void WriteProfile(const std::string& text, const std::string& includes = {}) {
        folder.Write("p.qlnx",
                     "<template><header><name>n</name><scriptlanguage>VBScript</scriptlanguage></header>"
                     "<includes>" +
                         includes + "</includes><templatecode><![CDATA[" + text +
                         "]]></templatecode></template>");
    }
    std::string RunTemplate(const std::string& options = {}) {
        return Run("template --profile p.qlnx --snapshot s.json " + options);
    }
};

TEST_F(TemplateCommand, RunsOverWhatWasChosen) {
    EXPECT_EQ(RunTemplate(), "dbo.Country TrueTrueTrue Code Name\r\nann.Order TrueTrueTrue Id\r\n");
    EXPECT_EQ(exitCode, 0) << Errors();
    EXPECT_EQ(RunTemplate("--table ANN.order --operations update"), "ann.Order FalseTrueFalse Id\r\n");
    EXPECT_EQ(RunTemplate("--columns name,code --operations insert,delete"),
              "dbo.Country TrueFalseTrue Code Name\r\n");
    EXPECT_EQ(RunTemplate("--columns Name --output out.sql"), "");
    EXPECT_EQ(folder.Read("out.sql"), "dbo.Country TrueTrueTrue Name\r\n");
    EXPECT_EQ(exitCode, 0) << Errors();
}

TEST_F(TemplateCommand, FailsAloudAndLeavesTheOutputAlone) {
    folder.Write("out.sql", "former");
    folder.Write("bad.json", "{\"snapshot\": 1}");
    const std::pair<const char*, const char*> cases[] = {
        {"--profile p.qlnx --snapshot s.json --table dbo.Nobody", "no table dbo.Nobody"},
        {"--profile p.qlnx --snapshot s.json --columns Nothing", "column Nothing"},
        {"--profile p.qlnx --snapshot missing.json", "Failure 53"},
        {"--profile p.qlnx --snapshot bad.json", "snapshot cannot be read"},
        {"--profile p.qlnx --snapshot p.qlnx", "line 1, column 1"},
        {"--profile missing.qlnx --snapshot s.json", "missing.qlnx"},
        {"--profile s.json --snapshot s.json", "not a valid template"},
    };
    for (const auto& [options, reason] : cases) {
        Run(std::string("template --output out.sql ") + options);
        EXPECT_EQ(exitCode, 1) << options;
        EXPECT_TRUE(ErrorsTell(reason)) << options << ": " << Errors();
        EXPECT_EQ(folder.Read("out.sql"), "former") << options;
    }
    for (const char* unclear : {"--snapshot s.json", "--profile p.qlnx",
                                "--profile p.qlnx --snapshot s.json --operations truncate"}) {
        Run(std::string("template ") + unclear);
        EXPECT_EQ(exitCode, 2) << unclear;
    }
}

TEST_F(TemplateCommand, AFaultInTheTemplateIsReportedWithItsLine) {
    WriteProfile("a\n{% x = 1 / 0 %}\n");
    EXPECT_EQ(RunTemplate(), "");
    EXPECT_EQ(exitCode, 1);
    EXPECT_TRUE(ErrorsTell("Template Syntax Error")) << Errors();
    EXPECT_TRUE(ErrorsTell("Error Description: Division by zero\nError Line: 5\nError Text: x = 1 / 0"))
        << Errors();
}

TEST_F(TemplateCommand, ATemplateThatCancelsGivesWhatWasMadeBefore) {
    WriteProfile("{% If objAudit.Database.ActiveTable.Name = \"Order\" Then objAudit.Cancel %}x");
    EXPECT_EQ(RunTemplate(), "x\r\n\r\n");
    EXPECT_EQ(exitCode, 0) << Errors();
}

// The whole catalogue of a running server in a file, and a run over the file.
TEST_F(TemplateCommand, RunsOverASnapshotOfAServer) {
    const practice::testing::ServerProcess server{QUILLON_BIN_DIR, {}, {"--sample"}};
    const std::string login = "--server 127.0.0.1," + std::to_string(server.Port()) +
                              " --user sa --password-file password --database Sales ";
    folder.Write("password", server.Password());
    EXPECT_EQ(Run(login + "snapshot sales.json"), "") << Errors();
    EXPECT_EQ(exitCode, 0) << Errors();
    EXPECT_EQ(Run("template --profile p.qlnx --snapshot sales.json --table dbo.Country --operations insert"),
              "dbo.Country TrueFalseFalse CountryCode CountryName Currency\r\n");
    EXPECT_EQ(exitCode, 0) << Errors();
    Run(login + "snapshot missing/sales.json");
    EXPECT_EQ(exitCode, 1);
}

} // namespace
} // namespace quillon::tests
