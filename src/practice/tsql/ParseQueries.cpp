#include "practice/tsql/ParseQueries.h"

#include "practice/tsql/Options.h"
#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"

#include <charconv>

namespace quillon::practice::tsql {

namespace {

/// GROUPING SETS (set, ...), a set being (a, b), () or a.
ExpressionList ParseGroupingSet(ParseState& state) {
    ExpressionList set;
    if (state.Is(Symbol::LeftParen) && state.Is(Symbol::RightParen, 1)) {
        state.Take();
        state.Take();
    } else if (state.Accept(Symbol::LeftParen)) {
        set = ParseValues(state);
        state.Expect(Symbol::RightParen);
    } else {
        set.push_back(ParseValue(state));
    }
    return set;
}

GroupingElement ParseGroupingList(ParseState& state, GroupingKind kind) {
    GroupingElement element;
    element.kind = kind;
    state.Expect(Symbol::LeftParen);
    do {
        element.sets.push_back(ParseGroupingSet(state));
    } while (state.Accept(Symbol::Comma));
    state.Expect(Symbol::RightParen);
    return element;
}

GroupingElement ParseGroupingElement(ParseState& state) {
    if ((state.Is("ROLLUP") || state.Is("CUBE")) && state.Is(Symbol::LeftParen, 1))
        return ParseGroupingList(state,
                                 TakeWord(state) == "CUBE" ? GroupingKind::Cube : GroupingKind::Rollup);
    if (state.Is("GROUPING") && state.Is("SETS", 1)) {
        state.Take();
        state.Take();
        return ParseGroupingList(state, GroupingKind::GroupingSets);
    }
    GroupingElement element;
    if (state.Is(Symbol::LeftParen) && state.Is(Symbol::RightParen, 1)) {
        state.Take();
        state.Take();
        element.kind = GroupingKind::GroupingSets;
        element.sets.emplace_back();
        return element;
    }
    element.sets.emplace_back();
    element.sets.back().push_back(ParseValue(state));
    return element;
}

/// GROUP BY a, b WITH ROLLUP is ROLLUP (a, b).
void ParseOldGrouping(ParseState& state, std::vector<GroupingElement>& elements) {
    if (!state.Is(Keyword::With) || (!state.Is("ROLLUP", 1) && !state.Is("CUBE", 1)))
        return;
    state.Take();
    GroupingElement all;
    all.kind = TakeWord(state) == "CUBE" ? GroupingKind::Cube : GroupingKind::Rollup;
    for (GroupingElement& element : elements)
        std::move(element.sets.begin(), element.sets.end(), std::back_inserter(all.sets));
    elements.clear();
    elements.push_back(std::move(all));
}

void ParseGroupBy(ParseState& state, SelectBody& body) {
    if (!state.Accept(Keyword::Group))
        return;
    state.Expect(Keyword::By);
    if (state.Is(Keyword::All))
        state.Refuse("GROUP BY ALL", state.At());
    do {
        body.groupBy.push_back(ParseGroupingElement(state));
    } while (state.Accept(Symbol::Comma));
    ParseOldGrouping(state, body.groupBy);
}

/// 141: a SELECT either assigns to variables or yields rows.
void CheckAssignments(const ParseState& state, const SelectBody& body) {
    const auto assigns = [](const SelectItem& item) { return item.kind == SelectItem::Kind::Assignment; };
    const auto count = std::count_if(body.items.begin(), body.items.end(), assigns);
    if (count != 0 && count != static_cast<std::ptrdiff_t>(body.items.size()))
        state.Fail(141, {}, body.position);
}

QueryBodyPtr ParseSelectBody(ParseState& state) {
    const HeightScope scope(state);
    auto body = Begin<SelectBody>(state);
    state.Expect(Keyword::Select);
    body->distinct = state.Accept(Keyword::Distinct);
    if (!body->distinct)
        state.Accept(Keyword::All);
    body->top = ParseTop(state);
    body->items = ParseSelectList(state);
    if (state.Accept(Keyword::Into))
        body->into = ParseName(state, 3);
    if (state.Accept(Keyword::From))
        body->from = ParseFrom(state);
    if (state.Accept(Keyword::Where))
        body->where = ParseCondition(state);
    ParseGroupBy(state, *body);
    if (state.Accept(Keyword::Having))
        body->having = ParseCondition(state);
    if (state.Is(Keyword::Compute))
        state.Refuse("COMPUTE", state.At());
    if (state.Is("WINDOW") && state.IsName(1) && state.Is(Keyword::As, 2))
        state.Refuse("WINDOW", state.At());
    CheckAssignments(state, *body);
    body->height = scope.Above();
    return body;
}

QueryBodyPtr ParseBody(ParseState& state);

QueryBodyPtr ParseOperand(ParseState& state) {
    if (!state.Is(Symbol::LeftParen))
        return ParseSelectBody(state);
    const Nested nested(state);
    state.Take();
    QueryBodyPtr body = ParseBody(state);
    state.Expect(Symbol::RightParen);
    return body;
}

QueryBodyPtr Combine(ParseState& state, QueryBodyPtr left, SetOperator op, QueryBodyPtr right) {
    auto node = std::make_unique<SetOperation>();
    node->position = left->position;
    node->op = op;
    node->height = std::max(left->height, right->height) + 1;
    state.NoteHeight(node->height);
    node->left = std::move(left);
    node->right = std::move(right);
    return node;
}

/// INTERSECT binds more tightly than the other two.
QueryBodyPtr ParseIntersections(ParseState& state) {
    QueryBodyPtr left = ParseOperand(state);
    while (state.Accept(Keyword::Intersect))
        left = Combine(state, std::move(left), SetOperator::Intersect, ParseOperand(state));
    return left;
}

QueryBodyPtr ParseBody(ParseState& state) {
    QueryBodyPtr left = ParseIntersections(state);
    for (;;) {
        SetOperator op = SetOperator::Except;
        if (state.Accept(Keyword::Union))
            op = state.Accept(Keyword::All) ? SetOperator::UnionAll : SetOperator::Union;
        else if (!state.Accept(Keyword::Except))
            return left;
        left = Combine(state, std::move(left), op, ParseIntersections(state));
    }
}

void ParseOffset(ParseState& state, Query& query) {
    if (!state.Accept("OFFSET"))
        return;
    query.offset = ParseValue(state);
    if (!state.Accept("ROWS"))
        state.Expect("ROW");
    if (!state.Accept(Keyword::Fetch))
        return;
    if (!state.Accept("NEXT"))
        state.Expect("FIRST");
    query.fetch = ParseValue(state);
    if (!state.Accept("ROWS"))
        state.Expect("ROW");
    state.Expect("ONLY");
}

bool HasTop(const QueryBody& body) {
    return body.kind == QueryBodyKind::Select && As<SelectBody>(body).top.has_value();
}

CommonTable ParseCommonTable(ParseState& state) {
    CommonTable table;
    table.position = state.At();
    // A hint's WITH needs a bracket: what follows one here was meant to be a common table.
    table.name = ParseIdentifier(state);
    if (state.Is(Symbol::LeftParen))
        table.columns = ParseNameList(state);
    state.Expect(Keyword::As);
    table.query = ParseSubquery(state);
    return table;
}

/// The argument of a query hint: a number, a text, or a list in brackets that is passed over.
void ParseHintArgument(ParseState& state, QueryHint& hint) {
    if (state.Is(TokenKind::Integer)) {
        const std::string digits = state.Value(state.Take());
        std::int64_t value = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), value);
        hint.value = value;
    } else if (state.Is(Symbol::LeftParen)) {
        SkipBrackets(state);
    } else if (state.IsString()) {
        state.Take();
    }
}

} // namespace

void ParseQuery(ParseState& state, Query& query, QueryPlace place) {
    const Nested nested(state);
    const HeightScope scope(state);
    query.position = state.At();
    query.body = ParseBody(state);
    const Position order = state.At();
    query.orderBy = ParseOrderBy(state);
    if (!query.orderBy.empty())
        ParseOffset(state, query);
    if (query.offset && HasTop(*query.body))
        state.Fail(10741, {}, order);
    if (place != QueryPlace::Cursor)
        ParseForClause(state, query);
    const bool inner = place == QueryPlace::Inner || place == QueryPlace::View;
    if (inner && !query.orderBy.empty() && !HasTop(*query.body) && !query.offset && !query.forXml)
        state.Fail(1033, {}, order);
    query.end = state.LastEnd();
    query.height = scope.Above();
}

std::unique_ptr<Query> ParseSubquery(ParseState& state) {
    auto query = std::make_unique<Query>();
    state.Expect(Symbol::LeftParen);
    // Columns may be named inside, whatever stands outside.
    const bool wasRefused = std::exchange(state.columnsRefused, false);
    ParseQuery(state, *query, QueryPlace::Inner);
    state.columnsRefused = wasRefused;
    state.Expect(Symbol::RightParen);
    return query;
}

std::vector<CommonTable> ParseWith(ParseState& state) {
    std::vector<CommonTable> tables;
    if (!state.Accept(Keyword::With))
        return tables;
    if (state.Is("XMLNAMESPACES"))
        state.Refuse("WITH XMLNAMESPACES", state.At());
    do {
        tables.push_back(ParseCommonTable(state));
    } while (state.Accept(Symbol::Comma));
    return tables;
}

std::unique_ptr<SelectStatement> ParseSelectStatement(ParseState& state, QueryPlace place) {
    auto statement = Begin<SelectStatement>(state);
    statement->query.with = ParseWith(state);
    ParseQuery(state, statement->query, place);
    statement->hints = ParseQueryHints(state);
    return statement;
}

std::optional<Top> ParseTop(ParseState& state) {
    if (!state.Accept(Keyword::Top))
        return std::nullopt;
    Top top;
    if (state.IsQueryBracket()) {
        top.count = ParsePrimary(state);
    } else if (state.Accept(Symbol::LeftParen)) {
        top.count = ParseValue(state);
        state.Expect(Symbol::RightParen);
    } else if (state.Is(TokenKind::Integer) || state.Is(TokenKind::Decimal) || state.Is(TokenKind::Float)) {
        top.count = ParseLiteral(state);
    } else if (state.Is(TokenKind::Variable)) {
        top.count = ParsePrimary(state);
    } else {
        state.FailHere();
    }
    top.percent = state.Accept(Keyword::Percent);
    if (state.Is(Keyword::With) && state.Is("TIES", 1)) {
        state.Take();
        state.Take();
        top.withTies = true;
    }
    return top;
}

std::vector<OrderItem> ParseOrderBy(ParseState& state) {
    std::vector<OrderItem> items;
    if (!state.Accept(Keyword::Order))
        return items;
    state.Expect(Keyword::By);
    do {
        OrderItem item;
        item.expression = ParseValue(state);
        item.descending = state.Accept(Keyword::Desc);
        if (!item.descending)
            state.Accept(Keyword::Asc);
        items.push_back(std::move(item));
    } while (state.Accept(Symbol::Comma));
    return items;
}

std::vector<QueryHint> ParseQueryHints(ParseState& state) {
    std::vector<QueryHint> hints;
    if (!state.Accept(Keyword::Option))
        return hints;
    state.Expect(Symbol::LeftParen);
    do {
        QueryHint hint;
        const Token first = state.Peek();
        hint.name = TakeWord(state);
        while (state.Is(TokenKind::Identifier))
            hint.name += " " + TakeWord(state);
        if (!IsQueryHint(hint.name))
            state.FailNear(first);
        state.Accept(Symbol::Equal);
        ParseHintArgument(state, hint);
        constexpr int deepest = 32767;
        if (hint.name == "MAXRECURSION" && hint.value.value_or(0) > deepest)
            state.Fail(310, {std::to_string(*hint.value), std::to_string(deepest)}, first.At());
        hints.push_back(std::move(hint));
    } while (state.Accept(Symbol::Comma));
    state.Expect(Symbol::RightParen);
    return hints;
}

std::vector<ExpressionList> ParseRows(ParseState& state) {
    std::vector<ExpressionList> rows;
    do {
        ExpressionList row;
        state.Expect(Symbol::LeftParen);
        do {
            row.push_back(ParseValueOrDefault(state));
        } while (state.Accept(Symbol::Comma));
        state.Expect(Symbol::RightParen);
        rows.push_back(std::move(row));
    } while (state.Accept(Symbol::Comma));
    return rows;
}

} // namespace quillon::practice::tsql
