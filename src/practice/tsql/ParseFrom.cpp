#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseQueries.h"
#include "practice/tsql/TreePivot.h"

namespace quillon::practice::tsql {

namespace {

constexpr std::string_view kHints[] = {
    "NOLOCK",          "NOWAIT",
    "READUNCOMMITTED", "UPDLOCK",
    "REPEATABLEREAD",  "SERIALIZABLE",
    "READCOMMITTED",   "HOLDLOCK",
    "FASTFIRSTROW",    "READPAST",
    "ROWLOCK",         "PAGLOCK",
    "TABLOCK",         "TABLOCKX",
    "XLOCK",           "NOEXPAND",
    "NOWAIT",          "INDEX",
    "SNAPSHOT",        "FORCESEEK",
    "FORCESCAN",       "KEEPIDENTITY",
    "KEEPDEFAULTS",    "IGNORE_CONSTRAINTS",
    "IGNORE_TRIGGERS", "READCOMMITTEDLOCK",
};

bool IsHint(const ParseState& state, std::size_t ahead) {
    return std::any_of(std::begin(kHints), std::end(kHints),
                       [&](std::string_view hint) { return state.Is(hint, ahead); });
}

std::string ParseHint(ParseState& state) {
    if (!IsHint(state, 0))
        state.Fail(321, {state.Value(state.Peek())}, state.At());
    // Only the rows of a file are loaded without them, which is refused itself.
    if (state.Is("IGNORE_CONSTRAINTS") || state.Is("IGNORE_TRIGGERS") || state.Is("KEEPIDENTITY") ||
        state.Is("KEEPDEFAULTS"))
        state.Refuse("the hint " + UpperWord(state.Value(state.Peek())), state.At());
    std::string hint = TakeWord(state);
    if (state.Accept(Symbol::Equal)) {
        state.Take(); // INDEX = name
    } else if (state.Is(Symbol::LeftParen)) {
        SkipBrackets(state);
    }
    return hint;
}

/// The hints between brackets; a comma between two of them may be missing.
std::vector<std::string> ParseHintList(ParseState& state) {
    std::vector<std::string> hints;
    state.Expect(Symbol::LeftParen);
    do {
        hints.push_back(ParseHint(state));
        state.Accept(Symbol::Comma);
    } while (!state.Is(Symbol::RightParen));
    state.Take();
    return hints;
}

/// `t (NOLOCK)`: hints without WITH, told from a function's arguments by their words.
bool AtOldHints(const ParseState& state) {
    return state.Is(Symbol::LeftParen) && IsHint(state, 1) &&
           (state.Is(Symbol::RightParen, 2) || state.Is(Symbol::Comma, 2) || state.Is(Symbol::LeftParen, 2));
}

/// WITH and hints; the WITH of a view's WITH CHECK OPTION is not for the table.
bool AtHints(const ParseState& state) {
    return state.Is(Keyword::With) && !state.Is(Keyword::Check, 1);
}

void ParseHintsInto(ParseState& state, std::vector<std::string>& hints) {
    if (AtOldHints(state)) {
        hints = ParseHintList(state);
    } else if (state.Is(Keyword::HoldLock)) {
        hints.push_back(TakeWord(state));
    } else if (AtHints(state)) {
        hints = ParseTableHints(state);
    }
}

void ParseAliases(ParseState& state, TableSource& source) {
    source.alias = ParseTableAlias(state);
    if (!source.alias.empty() && state.Is(Symbol::LeftParen) && !AtOldHints(state))
        source.columnAliases = ParseNameList(state);
}

void RefuseAfterSource(const ParseState& state) {
    if (state.Is(Keyword::TableSample))
        state.Refuse(UpperWord(state.Value(state.Peek())), state.At());
    if (state.Is(Keyword::For) && state.Is("SYSTEM_TIME", 1))
        state.Refuse("FOR SYSTEM_TIME", state.At());
}

TableSourcePtr ParseFunctionTable(ParseState& state, Name name, Position position) {
    auto source = std::make_unique<FunctionTable>();
    source->position = position;
    source->name = std::move(name);
    state.Expect(Symbol::LeftParen);
    if (!state.Is(Symbol::RightParen)) {
        do {
            source->arguments.push_back(ParseValueOrDefault(state));
        } while (state.Accept(Symbol::Comma));
    }
    state.Expect(Symbol::RightParen);
    if (AtHints(state))
        state.Refuse("table functions WITH a schema", state.At());
    ParseAliases(state, *source);
    return source;
}

TableSourcePtr ParseNamedSource(ParseState& state) {
    const Position position = state.At();
    const bool system = state.Accept(Symbol::DoubleColon); // ::fn_name() calls a system function
    Name name = ParseName(state);
    if (system || (state.Is(Symbol::LeftParen) && !AtOldHints(state)))
        return ParseFunctionTable(state, std::move(name), position);
    auto source = std::make_unique<NamedTable>();
    source->position = position;
    source->name = std::move(name);
    RefuseAfterSource(state);
    if (AtOldHints(state))
        source->hints = ParseHintList(state);
    ParseAliases(state, *source);
    if (source->hints.empty())
        ParseHintsInto(state, source->hints);
    return source;
}

TableSourcePtr ParseVariableSource(ParseState& state) {
    auto source = Begin<VariableTable>(state);
    source->variable = ParseVariableName(state);
    if (state.Is(Symbol::Point))
        state.Refuse("nodes() of xml", state.At());
    state.RequireTable(source->variable, source->position);
    ParseAliases(state, *source);
    ParseHintsInto(state, source->hints);
    return source;
}

TableSourcePtr ParseDerived(ParseState& state) {
    auto source = Begin<DerivedTable>(state);
    source->query = ParseSubquery(state);
    source->height = source->query->height + 1;
    ParseAliases(state, *source);
    if (source->alias.empty())
        state.FailHere();
    return source;
}

TableSourcePtr ParseValuesTable(ParseState& state) {
    auto source = Begin<ValuesTable>(state);
    state.Expect(Symbol::LeftParen);
    state.Expect(Keyword::Values);
    source->rows = ParseRows(state);
    state.Expect(Symbol::RightParen);
    ParseAliases(state, *source);
    if (source->alias.empty())
        state.FailHere();
    return source;
}

bool IsRefusedSource(Keyword keyword) {
    return keyword == Keyword::OpenXml || keyword == Keyword::OpenRowset || keyword == Keyword::OpenQuery ||
           keyword == Keyword::OpenDataSource || keyword == Keyword::ContainsTable ||
           keyword == Keyword::FreeTextTable;
}

bool IsChange(Keyword keyword) {
    return keyword == Keyword::Insert || keyword == Keyword::Update || keyword == Keyword::Delete ||
           keyword == Keyword::Merge;
}

TableSourcePtr ParseSimpleSource(ParseState& state) {
    if (IsRefusedSource(state.Peek().keyword))
        state.Refuse(UpperWord(state.Value(state.Peek())), state.At());
    if (state.Is("OPENJSON") && state.Is(Symbol::LeftParen, 1))
        state.Refuse("OPENJSON", state.At());
    if (state.Is(TokenKind::Variable))
        return ParseVariableSource(state);
    if (!state.Is(Symbol::LeftParen))
        return ParseNamedSource(state);
    if (IsChange(state.Peek(1).keyword))
        state.Refuse(UpperWord(state.Value(state.Peek(1))) + " in FROM", state.At());
    if (state.Is(Keyword::Values, 1))
        return ParseValuesTable(state);
    if (state.IsQueryBracket())
        return ParseDerived(state);
    state.Take();
    TableSourcePtr inner = ParseTableSource(state);
    state.Expect(Symbol::RightParen);
    return inner;
}

void SkipJoinHint(ParseState& state) {
    if (state.Is("LOOP") || state.Is("HASH") || state.Is(Keyword::Merge) || state.Is("REMOTE"))
        state.Take();
}

std::optional<JoinType> AcceptOuterJoin(ParseState& state) {
    JoinType type = JoinType::Left;
    if (state.Accept(Keyword::Right))
        type = JoinType::Right;
    else if (state.Accept(Keyword::Full))
        type = JoinType::Full;
    else if (!state.Accept(Keyword::Left))
        return std::nullopt;
    state.Accept(Keyword::Outer);
    SkipJoinHint(state);
    state.Expect(Keyword::Join);
    return type;
}

/// The words of a join, taken; nothing when none are ahead.
std::optional<JoinType> AcceptJoin(ParseState& state) {
    if (state.Accept(Keyword::Join))
        return JoinType::Inner;
    if (state.Accept(Keyword::Inner)) {
        SkipJoinHint(state);
        state.Expect(Keyword::Join);
        return JoinType::Inner;
    }
    if (state.Accept(Keyword::Cross)) {
        if (state.Accept("APPLY"))
            return JoinType::CrossApply;
        state.Expect(Keyword::Join);
        return JoinType::Cross;
    }
    if (state.Is(Keyword::Outer) && state.Is("APPLY", 1)) {
        state.Take();
        state.Take();
        return JoinType::OuterApply;
    }
    return AcceptOuterJoin(state);
}

void ParseTurnEnd(ParseState& state, TableSource& turned, int below) {
    state.Expect(Symbol::RightParen);
    ParseAliases(state, turned);
    if (turned.alias.empty())
        state.FailHere();
    turned.height = below + 1;
    state.NoteHeight(turned.height);
}

/// PIVOT (aggregate FOR column IN ([a], [b])) AS alias, or UNPIVOT (value FOR name IN (a, b)) AS alias.
TableSourcePtr ParseTurn(ParseState& state, TableSourcePtr source) {
    const int below = source->height;
    if (state.Is(Keyword::Pivot)) {
        auto pivot = Begin<PivotTable>(state);
        state.Take();
        state.Expect(Symbol::LeftParen);
        const Token start = state.Peek();
        pivot->aggregate = ParsePrimary(state);
        if (pivot->aggregate->kind != ExpressionKind::Function || As<FunctionCall>(pivot->aggregate).star)
            state.FailNear(start);
        pivot->source = std::move(source);
        state.Expect(Keyword::For);
        pivot->column = ParseName(state);
        state.Expect(Keyword::In);
        pivot->values = ParseNameList(state);
        ParseTurnEnd(state, *pivot, std::max(below, pivot->aggregate->height));
        return pivot;
    }
    auto unpivot = Begin<UnpivotTable>(state);
    state.Take();
    state.Expect(Symbol::LeftParen);
    unpivot->source = std::move(source);
    unpivot->value = ParseIdentifier(state);
    state.Expect(Keyword::For);
    unpivot->name = ParseIdentifier(state);
    state.Expect(Keyword::In);
    unpivot->columns = ParseNameList(state);
    ParseTurnEnd(state, *unpivot, below);
    return unpivot;
}

} // namespace

std::string ParseTableAlias(ParseState& state) {
    if (state.Accept(Keyword::As))
        return ParseIdentifier(state);
    return state.IsName() && !state.Is(Symbol::Colon, 1) ? ParseIdentifier(state) : std::string();
}

std::vector<std::string> ParseTableHints(ParseState& state) {
    std::vector<std::string> hints;
    if (!state.Accept(Keyword::With))
        return hints;
    if (!state.Is(Symbol::LeftParen))
        state.Fail(336, {state.Value(state.Peek())}, state.At());
    return ParseHintList(state);
}

/// A source and all that is joined to it. In `a JOIN b JOIN c ON x ON y` the right side of the first join is
/// the second join, so the right side is a chain of its own that ends at the ON it does not need.
TableSourcePtr ParseTableSource(ParseState& state) {
    const Nested nested(state);
    TableSourcePtr left = ParseSimpleSource(state);
    RefuseAfterSource(state);
    for (;;) {
        if (state.Is(Keyword::Pivot) || state.Is(Keyword::Unpivot)) {
            left = ParseTurn(state, std::move(left));
            continue;
        }
        const Position position = state.At();
        const auto type = AcceptJoin(state);
        if (!type)
            return left;
        auto join = std::make_unique<Join>();
        join->position = position;
        join->type = *type;
        const bool conditional = *type <= JoinType::Full;
        join->right = conditional ? ParseTableSource(state) : ParseSimpleSource(state);
        if (conditional) {
            state.Expect(Keyword::On);
            join->condition = ParseCondition(state);
        }
        join->height = std::max(left->height, join->right->height) + 1;
        state.NoteHeight(join->height);
        join->left = std::move(left);
        left = std::move(join);
    }
}

std::vector<TableSourcePtr> ParseFrom(ParseState& state) {
    std::vector<TableSourcePtr> sources;
    do {
        sources.push_back(ParseTableSource(state));
    } while (state.Accept(Symbol::Comma));
    return sources;
}

} // namespace quillon::practice::tsql
