// The command line as a person runs it: the built program, its output, reports and exit codes.
#include "Console.h"

namespace quillon::tests {
namespace {

constexpr const char* WorkedTemplate = "CREATE TRIGGER {% objAudit.Print strName %} ON t\n"
                                       "\n"
                                       "{% For i = 1 To 2 %}\n"
                                       "  -- col {% objAudit.Print i %}\n"
                                       "{% Next %}\n"
                                       "\t{% x = 1 %}\n"
                                       "GO {% y = 2\n"
                                       "z = 3\n"
                                       "%} END\n"
                                       "a {% p %} b {% q %} c\n"
                                       "say \"hi\"\n"
                                       "%} oops\n";

TEST_F(Console, TranslatesTheWorkedExample) {
    folder.Write("t.txt", WorkedTemplate);
    EXPECT_EQ(Run("translate t.txt"), "Function ReturnThis()\r\n"
                                      "Dim strVar \r\n"
                                      "strVar = strVar  & \"CREATE TRIGGER \"\r\n"
                                      "strVar = strVar &  strName \r\n"
                                      "strVar = strVar  & \" ON t\"\r\n"
                                      "strVar = strVar  &  vbCrlf\r\n"
                                      "strVar = strVar  &  vbCrlf\r\n"
                                      "For i = 1 To 2 \r\n"
                                      "strVar = strVar  & \"  -- col \"\r\n"
                                      "strVar = strVar &  i \r\n"
                                      "strVar = strVar  &  vbCrlf\r\n"
                                      "Next \r\n"
                                      "x = 1 \r\n"
                                      "strVar = strVar  &  vbCrlf\r\n"
                                      "strVar = strVar  & \"GO \"\r\n"
                                      "y = 2\r\n"
                                      "z = 3\r\n"
                                      "strVar = strVar  & \" END\"\r\n"
                                      "strVar = strVar  &  vbCrlf\r\n"
                                      "strVar = strVar  & \"a \"\r\n"
                                      "p \r\n"
                                      "strVar = strVar  & \" b  q  c\"\r\n"
                                      "strVar = strVar  &  vbCrlf\r\n"
                                      "strVar = strVar  & \"say \" & Chr(34) & \"hi\" & Chr(34) & \"\"\r\n"
                                      "strVar = strVar  &  vbCrlf\r\n"
                                      "\r\n"
                                      "ReturnThis = strVar\r\n"
                                      "End Function");
    EXPECT_EQ(exitCode, 0);
    EXPECT_EQ(Errors(), "Syntax warning: Line can not be interpreted\n\n%} oops\n");
}

TEST_F(Console, TranslatesToJScript) {
    folder.Write("t.txt", "\xEF\xBB\xBF{% objAudit.Print x %}!");
    EXPECT_EQ(Run("translate --jscript t.txt"),
              "function ReturnThis(x)\r\n{\r\nvar strVar \r\nstrVar = \"\"\r\n"
              "strVar = strVar +  x \r\n"
              "strVar = strVar  + \"!\"\r\n"
              "strVar = strVar  + \"\\n\"\r\n"
              "\r\nreturn (strVar);\r\n}");
    EXPECT_EQ(exitCode, 0);
    EXPECT_EQ(Errors(), "");
}

TEST_F(Console, LeavesTheScratchFilesToTheSession) {
    folder.Write("t.txt", "a");
    Run("translate t.txt");
    for (const char* scratch : {"template.txt", "output.txt"}) {
        EXPECT_FALSE(std::filesystem::exists(folder.path() / scratch));
        EXPECT_FALSE(std::filesystem::exists(folder.path() / "app" / scratch));
    }
}

TEST_F(Console, ReportsWhatItCannotReadOrWrite) {
    EXPECT_EQ(Run("translate nowhere.txt"), "");
    EXPECT_EQ(exitCode, 1);
    EXPECT_TRUE(ErrorsTell("Failure 53: File not found")) << Errors();
    EXPECT_TRUE(ErrorsTell("nowhere.txt")) << Errors();

    EXPECT_EQ(Run("translate ."), "");
    EXPECT_EQ(exitCode, 1);
    EXPECT_TRUE(ErrorsTell("Failure 75")) << Errors();

    folder.Write("t.txt", "a");
    Run("translate t.txt >/dev/full");
    EXPECT_EQ(exitCode, 1);
    EXPECT_TRUE(ErrorsTell("Failure 61: Disk full")) << Errors();
}

TEST_F(Console, ReportsALineThatIsTooLongAndGoesOn) {
    folder.Write("t.txt", "a\n" + std::string(32768, 'x') + "\nb");
    const std::string script = Run("translate t.txt");
    EXPECT_EQ(exitCode, 1);
    EXPECT_TRUE(ErrorsTell("Failure 6: Overflow")) << Errors();
    EXPECT_TRUE(ErrorsTell("basNewTemplate.ProcessTags")) << Errors();
    EXPECT_NE(script.find("\"b\""), std::string::npos);
    EXPECT_EQ(script.find("xxx"), std::string::npos);
}

TEST_F(Console, TellsItsVersionAndItsUse) {
    EXPECT_TRUE(Run("--version").starts_with("Quillon "));
    EXPECT_EQ(exitCode, 0);
    EXPECT_NE(Run("--help").find("translate"), std::string::npos);
    EXPECT_EQ(exitCode, 0);
    for (const char* wrong : {"", "transmogrify", "translate", "translate a b", "translate --perl t.txt"}) {
        EXPECT_EQ(Run(wrong), "") << wrong;
        EXPECT_EQ(exitCode, 2) << wrong;
        EXPECT_NE(Errors(), "") << wrong;
    }
}

} // namespace
} // namespace quillon::tests
