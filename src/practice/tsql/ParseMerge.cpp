#include "practice/tsql/ParseDml.h"
#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseQueries.h"

namespace quillon::practice::tsql {

namespace {

MergeMatch ParseMatch(ParseState& state) {
    const bool negated = state.Accept(Keyword::Not);
    state.Expect("MATCHED");
    if (!negated)
        return MergeMatch::Matched;
    if (!state.Accept(Keyword::By))
        return MergeMatch::NotMatchedByTarget;
    if (state.Accept("SOURCE"))
        return MergeMatch::NotMatchedBySource;
    state.Expect("TARGET");
    return MergeMatch::NotMatchedByTarget;
}

void ParseMergeInsert(ParseState& state, MergeClause& clause) {
    clause.action = MergeAction::Insert;
    if (state.Is(Symbol::LeftParen)) {
        clause.hasColumns = true;
        clause.columns = ParseColumnNames(state);
    }
    if (state.Accept(Keyword::Default)) {
        state.Expect(Keyword::Values);
        clause.defaultValues = true;
        return;
    }
    state.Expect(Keyword::Values);
    std::vector<ExpressionList> rows = ParseRows(state);
    if (rows.size() != 1)
        state.FailHere();
    clause.values = std::move(rows.front());
}

void ParseMergeAction(ParseState& state, MergeClause& clause) {
    // Only a row that the target lacks can be inserted, and nothing else can be done with it.
    if (state.Is(Keyword::Insert) != (clause.match == MergeMatch::NotMatchedByTarget))
        state.FailHere();
    if (state.Accept(Keyword::Update)) {
        state.Expect(Keyword::Set);
        clause.sets = ParseSetClauses(state);
    } else if (state.Accept(Keyword::Delete)) {
        clause.action = MergeAction::Delete;
    } else {
        state.Expect(Keyword::Insert);
        ParseMergeInsert(state, clause);
    }
}

MergeClause ParseMergeClause(ParseState& state) {
    MergeClause clause;
    clause.position = state.At();
    state.Expect(Keyword::When);
    clause.match = ParseMatch(state);
    if (state.Accept(Keyword::And))
        clause.condition = ParseCondition(state);
    state.Expect(Keyword::Then);
    ParseMergeAction(state, clause);
    return clause;
}

} // namespace

StatementPtr ParseMerge(ParseState& state) {
    auto merge = Begin<MergeStatement>(state);
    state.Expect(Keyword::Merge);
    merge->top = ParseTop(state);
    state.Accept(Keyword::Into);
    merge->target = ParseDmlTarget(state);
    if (!state.Is("USING"))
        merge->targetAlias = ParseTableAlias(state);
    state.Expect("USING");
    merge->source = ParseTableSource(state);
    state.Expect(Keyword::On);
    merge->on = ParseCondition(state);
    while (state.Is(Keyword::When))
        merge->clauses.push_back(ParseMergeClause(state));
    if (merge->clauses.empty())
        state.FailHere();
    merge->output = ParseOutput(state);
    merge->hints = ParseQueryHints(state);
    if (!state.Is(Symbol::Semicolon))
        state.Fail(10713, {}, state.At());
    return merge;
}

} // namespace quillon::practice::tsql
