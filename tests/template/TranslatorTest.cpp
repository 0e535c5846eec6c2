// The template language: what each kind of line becomes, in both forms, and what a run leaves behind.
#include "TranslatorTest.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "template/ScriptStream.h"

namespace quillon::tests {
namespace {

// Statements of the VBScript form as the tables below write them.
std::string Literal(const std::string& text) {
    return "strVar = strVar  & \"" + text + "\"\r\n";
}
const std::string Break = "strVar = strVar  &  vbCrlf\r\n";

struct Case {
    const char* name;
    std::string text;
    std::string body;
};

class Translator : public TranslatorTest {
  protected:
    void Check(std::initializer_list<Case> cases) {
        for (const Case& one : cases)
            EXPECT_EQ(Body(one.text), one.body) << one.name;
    }
};

TEST_F(Translator, LinesAndTags) {
    Check({
        {"nothing", "", ""},
        {"literal", "SELECT 1", Literal("SELECT 1") + Break},
        {"no line end at the end", "a\r\nb", Literal("a") + Break + Literal("b") + Break},
        {"any line end", "a\nb\rc\r\n", Literal("a") + Break + Literal("b") + Break + Literal("c") + Break},
        {"line ends in a row", "\r\r\n\n\r", Break + Break + Break + Break},
        {"empty line", "\r\n", Break},
        {"blanks", "   \n", Break},
        {"tabs are text behind no tag", "\t\t\n", Literal("\t\t") + Break},
        {"blanks and tabs keep", "\t x \n", Literal("\t x ") + Break},
        {"whole line", "{% x = 1 %}", "x = 1 \r\n"},
        {"tag at the end", "a {% x %}", Literal("a ") + "x \r\n" + Break},
        {"tag at the start", "{% x %} b", "x \r\n" + Literal(" b") + Break},
        {"tag inside", "a {% x %} b", Literal("a ") + "x \r\n" + Literal(" b") + Break},
        {"empty tag", "{%%}", ""},
        {"blank tag", "a{%  %}b", Literal("a") + Literal("b") + Break},
        {"tab in a tag is code", "{%\t%}", "\t\r\n"},
        {"indented by blanks", "  {% x %}", "x \r\n"},
        {"indented by a tab", "\t{% x %}", "x \r\n" + Break},
        {"trailing blanks", "{% x %}  ", "x \r\n"},
        {"trailing blanks behind text", "a{% x %}  ", Literal("a") + "x \r\n" + Break},
        {"trailing tab", "{% x %}\t", "x \r\n" + Literal("\t") + Break},
    });
}

TEST_F(Translator, TagsOverLines) {
    Check({
        {"opens and closes", "GO {% y = 2\nz = 3\n%} END",
         Literal("GO ") + "y = 2\r\nz = 3\r\n" + Literal(" END") + Break},
        {"empty line inside", "{% a\n\n  \nb %}", "a\r\nb \r\n"},
        {"indented code keeps its tabs alone", "{%\n  \tx\n%}", "\tx\r\n"},
        {"closes with nothing behind", "a {%\nx %}", Literal("a ") + "x \r\n"},
        {"full tag inside a tag ends both", "{% a\nb {% c %} d\ne",
         "a\r\n" + Literal("b ") + "c \r\n" + Literal(" d") + Break + Literal("e") + Break},
        {"opens again inside", "{% a\nb {% c\nd %}e",
         "a\r\n" + Literal("b ") + "c\r\nd \r\n" + Literal("e") + Break},
        {"open at the end", "{% a\nb", "a\r\nb\r\n"},
    });
}

TEST_F(Translator, DelimitersWhereTheyAreNone) {
    Check({
        {"second tag", "a {% p %} b {% q %} c", Literal("a ") + "p \r\n" + Literal(" b  q  c") + Break},
        {"shared character", "{%}", "{\r\n"},
        {"shared character and text", "x{%} y", Literal("x") + "{\r\n" + Literal(" y") + Break},
        {"close before open", "%} x {%\n%}", Literal(" x ")},
        {"removal once a pass", "{% %%}} %}", "%\r\n" + Literal("} ") + Break},
        {"code holds another open", "{% a {% b %}", "a  b \r\n"},
        {"lone halves", "{ % } %{ }%", Literal("{ % } %{ }%") + Break},
    });
}

TEST_F(Translator, StrayCloseYieldsNothing) {
    ExpectWarning("%} oops");
    EXPECT_EQ(Body("a\n%} oops\nb"), Literal("a") + Break + Literal("b") + Break);
    EXPECT_TRUE(g_objTrace->Chain().empty());
}

TEST_F(Translator, OutputCalls) {
    Check({
        {"call", "{% objAudit.Print x %}", "strVar = strVar &  x \r\n"},
        {"any case", "{% OBJAUDIT.pRINT(x) %}", "strVar = strVar & (x) \r\n"},
        {"inside a string", "{% s = \"objAudit.Print\" %}", "s = \"strVar = strVar & \" \r\n"},
        {"in literal text", "say objaudit.print now", Literal("say strVar = strVar &  now") + Break},
        {"longer name", "{% myobjAudit.Printer %}", "mystrVar = strVar & er \r\n"},
        {"put together by a removal", "objAudit.{%%}", Literal("objAudit.") + Break},
        {"split by a delimiter", "{% objAudit.{%Print x %}", "strVar = strVar &  x \r\n"},
        {"not quite", "{% objAudit .Print x %}", "objAudit .Print x \r\n"},
        {"many", "{% a.b objAudit.Print objAudit.Print %}", "a.b strVar = strVar &  strVar = strVar &  \r\n"},
        {"nothing but a call", "{%objAudit.Print%}", "strVar = strVar & \r\n"},
    });
}

TEST_F(Translator, Quotes) {
    Check({
        {"two", "say \"hi\"", Literal("say \" & Chr(34) & \"hi\" & Chr(34) & \"") + Break},
        {"one", "\"", Literal("\" & Chr(34) & \"") + Break},
        {"none in code", "{% x = \"a\" %}", "x = \"a\" \r\n"},
        {"backslash stays", "c:\\x", Literal("c:\\x") + Break},
    });
    EXPECT_EQ(basNewTemplate::ProcessQuotes("a\"b"), "a\" & Chr(34) & \"b");
}

TEST_F(Translator, JScriptForm) {
    g_bolJScript = true;
    EXPECT_EQ(Body("a \"b\"\n\n{% objAudit.Print x; %}"),
              "strVar = strVar  + \"a \" & Chr(34) & \"b\" & Chr(34) & \"\"\r\n"
              "strVar = strVar  + \"\\n\"\r\n"
              "strVar = strVar  + \"\\n\"\r\n"
              "strVar = strVar +  x; \r\n");
    std::string body = "x\r\n";
    basProcTemplate::WrapCodeForExec(body);
    EXPECT_EQ(
        body,
        "function ReturnThis(x)\r\n{\r\nvar strVar \r\nstrVar = \"\"\r\nx\r\n\r\nreturn (strVar);\r\n}");
}

TEST_F(Translator, Wrapping) {
    std::string body;
    basProcTemplate::WrapCodeForExec(body);
    EXPECT_EQ(body, "Function ReturnThis()\r\nDim strVar \r\n\r\nReturnThis = strVar\r\nEnd Function");
}

// Leading blanks of the body go with the second pass, those of later lines stay.
TEST_F(Translator, SecondPassTrimsTheBodyAlone) {
    EXPECT_EQ(Body("{%{{%% x %}\n{%{{%% y %}"), "x \r\n y \r\n");
    std::string text = "%}  a\r\n%}  b";
    basNewTemplate::ProcessScript(text);
    EXPECT_EQ(text, "a\r\n  b");
}

TEST_F(Translator, LongestLine) {
    const std::string longest(32767, 'x');
    std::string wide;
    for (int i = 0; i < 32767; ++i)
        wide += "\xC3\xA9"; // characters count, not bytes
    EXPECT_EQ(Body(longest + "\n" + wide), Literal(longest) + Break + Literal(wide) + Break);
    frontEnd.ExpectFailure("Overflow");
    EXPECT_EQ(Body("a\n" + longest + "x\nb"), Literal("a") + Break + Literal("b") + Break);
    EXPECT_EQ(frontEnd.Failures().at(0).Procedures.back(), "basNewTemplate.ProcessTags");
    frontEnd.ExpectFailure("Overflow");
    EXPECT_EQ(Body("{%\n" + wide + "\xC3\xA9%}\nb\n%}"), "b\r\n"); // the tag stays open
}

TEST_F(Translator, ScratchFilesStay) {
    memory.Contents["\\app\\output.txt"] = "former, longer than what comes now";
    const std::string body = Body("{% {% x {%%}");
    EXPECT_EQ(Output(), body);
    EXPECT_EQ(memory.Contents["\\app\\template.txt"], "{% {% x {%%}");
}

TEST_F(Translator, ScratchFileFaultsAreReportedOnce) {
    for (const char* operation :
         {"Files.ReadAll", "Files.OpenOutput", "FileWriter.Write", "FileWriter.Close"}) {
        WriteTemplate("a\nb");
        plan.FailAt(operation, 1, Failure(numbers::PathFileAccess, operation));
        frontEnd.ExpectFailure(operation);
        EXPECT_EQ(basNewTemplate::ProcessFile(), "") << operation;
        EXPECT_EQ(frontEnd.Failures().back().Procedures,
                  (std::vector<std::string>{"basNewTemplate.ProcessFile"}));
        plan.Forget();
    }
    memory.Contents.clear();
    frontEnd.ExpectFailure("File not found");
    EXPECT_EQ(basNewTemplate::ProcessFile(), "");
    EXPECT_FALSE(memory.Contents.contains("\\app\\output.txt"));
}

// The streamed script is the same, also where a piece begins with what the second pass rewrites.
TEST_F(Translator, StreamIsWhatARunMakes) {
    std::string text;
    for (int i = 0; i < 40000; ++i)
        text += i % 3 == 0   ? "{%{{%% objAudit.Print %}\n"
                : i % 3 == 1 ? "{%{{%% y %}\n"
                             : "objaudit.print {%\n%}\n";
    for (const bool jscript : {false, true}) {
        g_bolJScript = jscript;
        for (const std::string& source : {text, std::string(), std::string("{%{{%% x %}")}) {
            std::string whole = Body(source);
            basProcTemplate::WrapCodeForExec(whole);
            std::string streamed;
            int pieces = 0;
            const auto input = memory.OpenInput("\\app\\template.txt");
            StreamScript(*input, [&](std::string_view piece) {
                streamed += piece;
                ++pieces;
            });
            EXPECT_EQ(streamed, whole);
            EXPECT_EQ(pieces > 4, source.size() > 1000);
        }
    }
}

TEST_F(Translator, LineByLine) {
    bool isInTag = false;
    std::string_view before = "kept";
    std::string_view after = "kept";
    std::string_view code = "kept";
    frontEnd.ExpectFailure("Overflow");
    const std::string tooLong = "{%" + std::string(32766, 'x');
    basNewTemplate::ProcessTags(tooLong, isInTag, before, after, code);
    EXPECT_EQ(before, "kept");
    EXPECT_FALSE(isInTag);
    basNewTemplate::ProcessTags("a {% b", isInTag, before, after, code);
    EXPECT_EQ(before, "a ");
    EXPECT_EQ(code, "{% b");
    EXPECT_EQ(after, "");
    EXPECT_TRUE(isInTag);
}

} // namespace
} // namespace quillon::tests
