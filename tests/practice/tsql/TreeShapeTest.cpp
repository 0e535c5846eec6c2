// What the tree says: precedence, spans, and the readings where a text could be taken in two ways.
#include "practice/tsql/Parser.h"

#include <gtest/gtest.h>

namespace quillon::practice::tsql {
namespace {

/// Every operator in brackets, so that its operands can be seen.
std::string Show(const Expression& expression) {
    static constexpr const char* binary[] = {"+", "-", "*", "/", "%", "&", "|", "^"};
    static constexpr const char* unary[] = {"+", "-", "~"};
    static constexpr const char* comparison[] = {"=", "<>", "<", "<=", ">", ">="};
    switch (expression.kind) {
    case ExpressionKind::Literal: return As<Literal>(expression).text;
    case ExpressionKind::Column: return As<ColumnReference>(expression).name.Text();
    case ExpressionKind::Unary: {
        const auto& node = As<Unary>(expression);
        return std::string("(") + unary[static_cast<int>(node.op)] + Show(*node.operand) + ")";
    }
    case ExpressionKind::Binary: {
        const auto& node = As<Binary>(expression);
        return "(" + Show(*node.left) + binary[static_cast<int>(node.op)] + Show(*node.right) + ")";
    }
    case ExpressionKind::Comparison: {
        const auto& node = As<Comparison>(expression);
        return "(" + Show(*node.left) + comparison[static_cast<int>(node.op)] + Show(*node.right) + ")";
    }
    case ExpressionKind::Logical: {
        const auto& node = As<Logical>(expression);
        return "(" + Show(*node.left) + (node.isAnd ? " and " : " or ") + Show(*node.right) + ")";
    }
    case ExpressionKind::Not: return "(not " + Show(*As<Not>(expression).operand) + ")";
    default: return "?";
    }
}

TEST(Precedence, FollowsTheDocumentedRanks) {
    const std::pair<const char*, const char*> cases[] = {
        {"1 + 2 * 3", "(1+(2*3))"},
        {"1 - 2 - 3", "((1-2)-3)"},
        {"1 | 2 + 3 & 4", "(((1|2)+3)&4)"},
        {"-2 % 3", "(-(2%3))"},
        {"1 / -2 * 3", "(1/(-(2*3)))"},
        {"~1 * 2", "((~1)*2)"},
        {"(1 + 2) * 3", "((1+2)*3)"},
        {"a = 1 or b = 2 and not c = 3", "((a=1) or ((b=2) and (not (c=3))))"},
        {"a + 1 > b and (c < 2 or d !< 3)", "(((a+1)>b) and ((c<2) or (d>=3)))"},
        {"a != 1 and b ! > 2", nullptr},
    };
    for (const auto& [text, shape] : cases) {
        if (shape == nullptr) {
            EXPECT_THROW(ParseStoredExpression(text), SqlError) << text;
            continue;
        }
        EXPECT_EQ(Show(*ParseStoredExpression(text)->expression), shape);
    }
}

TEST(Quotes, MeanNamesOrTextsAsTheSettingSays) {
    ParseOptions off;
    off.quotedIdentifiers = false;
    EXPECT_EQ(ParseStoredExpression("\"a\"")->expression->kind, ExpressionKind::Column);
    EXPECT_EQ(ParseStoredExpression("\"a\"", off)->expression->kind, ExpressionKind::Literal);
    // The setting takes effect from its own place in the text on.
    const auto batch = ParseBatch("SET QUOTED_IDENTIFIER OFF PRINT \"a\"");
    EXPECT_EQ(As<PrintStatement>(batch->statements[1]).value->kind, ExpressionKind::Literal);
}

TEST(Modules, KeepTheirWholeTextAndTheirParts) {
    const std::string text = "-- head\nALTER PROC [s].[p] @a int = 2, @b varchar(5) OUTPUT AS\nSELECT "
                             "@a\nGO_ON: RETURN 3\n-- tail";
    const auto batch = ParseBatch(text);
    const auto& procedure = As<CreateProcedureStatement>(batch->statements[0]);
    EXPECT_EQ(procedure.source, text);
    EXPECT_EQ(batch->Text(procedure.verbText), "ALTER");
    EXPECT_EQ(procedure.verb, ModuleVerb::Alter);
    EXPECT_EQ(procedure.name.Text(), "s.p");
    ASSERT_EQ(procedure.parameters.size(), 2U);
    EXPECT_NE(procedure.parameters[0].defaultValue, nullptr);
    EXPECT_TRUE(procedure.parameters[1].output);
    ASSERT_EQ(procedure.body.size(), 3U);
    EXPECT_EQ(procedure.body[2]->position.line, 4);
}

TEST(Definitions, KeepTheTextsThatTheCatalogueShows) {
    const auto batch = ParseBatch(
        "CREATE TABLE t (a int DEFAULT (getdate()) CHECK (a > 0 OR a < -5), b AS a * 2 PERSISTED NOT NULL)");
    const auto& table = As<CreateTableStatement>(batch->statements[0]).definition;
    EXPECT_EQ(batch->Text(table.columns[0].constraints[0].expressionText), "(getdate())");
    EXPECT_EQ(batch->Text(table.columns[0].constraints[1].expressionText), "(a > 0 OR a < -5)");
    EXPECT_EQ(batch->Text(table.columns[1].computedText), "a * 2");
    EXPECT_TRUE(table.columns[1].persisted);
    EXPECT_EQ(table.columns[1].nullable, false);
}

TEST(Readings, OfSelectItems) {
    const auto batch =
        ParseBatch("DECLARE @v int; SELECT a.b.*, x = 1, 'y' = 2, c AS 'z', d e; SELECT @v += 3");
    const auto& items = As<SelectStatement>(batch->statements[1]).First().items;
    ASSERT_EQ(items.size(), 5U);
    EXPECT_EQ(items[0].kind, SelectItem::Kind::QualifiedStar);
    EXPECT_EQ(items[0].qualifier.Text(), "a.b");
    EXPECT_EQ(items[1].alias + items[2].alias + items[3].alias + items[4].alias, "xyze");
    const auto& assignment = As<SelectStatement>(batch->statements[2]).First().items[0];
    EXPECT_EQ(assignment.kind, SelectItem::Kind::Assignment);
    EXPECT_EQ(assignment.op, AssignmentOperator::Add);
}

TEST(Readings, OfUpdateThatFillsAVariableOnItsWay) {
    const auto batch = ParseBatch("DECLARE @v int UPDATE t SET @v = a = a + 1");
    const SetClause& clause = As<UpdateStatement>(batch->statements[1]).sets[0];
    EXPECT_EQ(clause.variable, "@v");
    EXPECT_EQ(clause.column.Text(), "a");
    EXPECT_EQ(Show(*clause.value), "(a+1)");
}

TEST(Readings, OfJoinsWhoseConditionsStandAtTheEnd) {
    const auto batch = ParseBatch("SELECT * FROM a LEFT JOIN b JOIN c ON b.x = c.x ON a.x = b.x");
    const auto& outer = As<Join>(As<SelectStatement>(batch->statements[0]).First().from[0]);
    EXPECT_EQ(outer.type, JoinType::Left);
    EXPECT_EQ(outer.left->kind, TableSourceKind::Table);
    EXPECT_EQ(outer.right->kind, TableSourceKind::Join);
}

TEST(Types, HaveOneNameEach) {
    const std::pair<const char*, const char*> cases[] = {
        {"INTEGER", "int"},
        {"national char varying(5)", "nvarchar"},
        {"double precision", "float"},
        {"[int]", "int"},
        {"sys.nvarchar(max)", "nvarchar"},
        {"rowversion", "timestamp"},
        {"dbo.MyType", "dbo.MyType"},
        {"dec(5,2)", "decimal"},
    };
    for (const auto& [text, name] : cases) {
        const auto type = ParseTypeText(text);
        ASSERT_TRUE(type) << text;
        EXPECT_EQ(type->name.Text(), name);
    }
    EXPECT_FALSE(ParseTypeText("int; DROP TABLE t"));
}

TEST(Names, AreReadFromTexts) {
    const auto name = ParseObjectName("db..[a.]]b]");
    ASSERT_TRUE(name);
    EXPECT_EQ(name->parts, (std::vector<std::string>{"db", "", "a.]b"}));
    const auto last = ParseObjectName("..only"); // as drivers name what they want from the current database
    ASSERT_TRUE(last);
    EXPECT_EQ(last->parts, std::vector<std::string>{"only"});
    EXPECT_FALSE(ParseObjectName("a b"));
    EXPECT_FALSE(ParseObjectName(".."));
    EXPECT_FALSE(ParseObjectName(""));
    EXPECT_TRUE(NeedsBrackets("a b"));
    EXPECT_TRUE(NeedsBrackets("order"));
    EXPECT_FALSE(NeedsBrackets("\xd0\x98\xd0\xbc\xd1\x8f"));
}

TEST(Parameters, OfSpExecutesqlAreRead) {
    const auto parsed = ParseParameters("@a int, @b nvarchar(20) = N'x' OUTPUT");
    ASSERT_EQ(parsed.parameters.size(), 2U);
    EXPECT_TRUE(parsed.parameters[1].output);
    EXPECT_TRUE(ParseParameters("  ").parameters.empty());
    EXPECT_THROW(ParseParameters("@a"), SqlError);
}

} // namespace
} // namespace quillon::practice::tsql
