// The script command: both languages, what files may hold, and what goes wrong.
#include "Console.h"

namespace quillon::tests {
namespace {

std::string Utf16(std::string_view ascii, bool bigEndian) {
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : ascii)
        bytes.append({bigEndian ? '\0' : c, bigEndian ? c : '\0'});
    return bytes;
}

TEST_F(Console, ScriptPrintsWhatReturnThisReturns) {
    const std::string js = "function ReturnThis() { return 'h\xC3\xA9'; }";
    const std::string vbs = "Function ReturnThis()\r\nReturnThis = \"h\xC3\xA9\"\r\nEnd Function";
    for (const std::string mark : {"", "\xEF\xBB\xBF"}) {
        folder.Write("a.js", mark + js);
        folder.Write("a.vbs", mark + vbs);
        EXPECT_EQ(Run("script a.js --language jscript"), "h\xC3\xA9\n");
        EXPECT_EQ(Run("script a.vbs"), "h\xC3\xA9\n");
        EXPECT_EQ(exitCode, 0);
    }
    for (const bool bigEndian : {false, true}) {
        folder.Write("u.js", Utf16("function ReturnThis() { return 1; }", bigEndian));
        EXPECT_EQ(Run("script u.js --language JScript"), "1\n");
    }
    folder.Write("none.js", "var a = 1;");
    EXPECT_EQ(Run("script none.js --language JScript"), "");
    EXPECT_EQ(exitCode, 0);
    EXPECT_EQ(Errors(), "");
}

TEST_F(Console, ScriptErrorsAreReportedInFourLines) {
    folder.Write("run.js", "var a;\nfunction ReturnThis() {\n  return b;\n}");
    EXPECT_EQ(Run("script run.js --language JScript"), "");
    EXPECT_EQ(exitCode, 1);
    EXPECT_EQ(Errors(), "Error Number: 5009\nError Description: 'b' is undefined\nError Line: 3\n"
                        "Error Text:   return b;\n");
    folder.Write("v.vbs", "Function ReturnThis()\nReturnThis = 1\nEnd Function");
    Run("script v.vbs --language JScript");
    EXPECT_EQ(exitCode, 1);
    EXPECT_EQ(Errors(),
              "Error Number: 1004\nError Description: Syntax error: the text looks like VBScript, but "
              "the language is JScript\nError Line: 1\nError Text: Function ReturnThis()\n");
}

TEST_F(Console, ScriptIsStoppedInTime) {
    for (const char* code :
         {"for (;;) ;", "eval('for (;;) ;')", "/^(a+)+$/.test(new Array(50).join('a') + 'b')"}) {
        folder.Write("long.js", code);
        Run("script long.js --language JScript --timeout 0.1");
        EXPECT_EQ(exitCode, 1) << code;
        EXPECT_TRUE(ErrorsTell("stopped after 0.1 seconds")) << Errors();
        EXPECT_TRUE(ErrorsTell("Error Description: The script was stopped")) << Errors();
    }
}

TEST_F(Console, TimeCoversWhatObjectsDoWhenTheyAreLetGoOf) {
    const std::string endless = "Class A\nSub Class_Terminate\nDo\nLoop\nEnd Sub\nEnd Class\n"
                                "Dim o(3)\nFor i = 0 To 3\nSet o(i) = New A\nNext\n";
    for (const std::string end : {"", "x = 1 \\ 0\n"}) {
        folder.Write("end.vbs", endless + end);
        Run("script end.vbs --timeout 0.1");
        EXPECT_EQ(exitCode, 1);
        EXPECT_TRUE(ErrorsTell("stopped after 0.1 seconds")) << Errors();
        EXPECT_EQ(ErrorsTell("Error Description: Division by zero"), !end.empty()) << Errors();
    }
}

TEST_F(Console, ScriptBoxesTakeTheCautiousAnswerOfTheirButtons) {
    folder.Write("box.vbs",
                 "Function ReturnThis\nFor b = 0 To 5\n"
                 "ReturnThis = ReturnThis & MsgBox(\"?\", b + vbQuestion) & \" \"\nNext\nEnd Function");
    EXPECT_EQ(Run("script box.vbs"), "1 2 3 2 7 2 \n");
}

TEST_F(Console, ResultsWithoutTextAreReported) {
    for (const std::string result :
         {"ReturnThis = Null", "ReturnThis = Array(1)", "Set ReturnThis = New RegExp"}) {
        folder.Write("result.vbs", "Function ReturnThis\n" + result + "\nEnd Function");
        EXPECT_EQ(Run("script result.vbs"), "");
        EXPECT_EQ(exitCode, 1) << result;
        EXPECT_TRUE(Errors().starts_with("Error Number: ")) << Errors();
        EXPECT_TRUE(ErrorsTell("Error Line: 0")) << Errors();
    }
}

TEST_F(Console, ScriptRefusesWhatIsNoScript) {
    folder.Write("latin.js", "x = 'h\xE9'");
    folder.Write("binary.js", std::string("\x7F"
                                          "ELF\0\1",
                                          6));
    folder.Write("odd.js", "\xFF\xFE"
                           "a");
    folder.Write("half.js", std::string("\xFF\xFE\0\xD8", 4));
    for (const char* file : {"latin.js", "binary.js", "odd.js", "half.js"}) {
        Run(std::string("script --language JScript ") + file);
        EXPECT_EQ(exitCode, 1);
        EXPECT_TRUE(ErrorsTell(std::string(file) + " is no script: neither UTF-8 nor UTF-16 text"))
            << Errors();
    }
    Run("script missing.js");
    EXPECT_EQ(exitCode, 1);
    EXPECT_TRUE(ErrorsTell("File not found: missing.js")) << Errors();
    for (const char* arguments : {"script", "script a.js --language Perl", "script a.js --timeout -1",
                                  "script a.js --timeout nan", "script a.js --timeout 1e300"}) {
        Run(arguments);
        EXPECT_EQ(exitCode, 2) << arguments;
    }
}

} // namespace
} // namespace quillon::tests
