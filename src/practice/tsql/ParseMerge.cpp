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

std::string_view MatchWords(MergeMatch match) {
    switch (match) {
    case MergeMatch::Matched: return "WHEN MATCHED";
    case MergeMatch::NotMatchedByTarget: return "WHEN NOT MATCHED";
    case MergeMatch::NotMatchedBySource: return "WHEN NOT MATCHED BY SOURCE";
    }
    return "";
}

std::string_view ActionWord(MergeAction action) {
    switch (action) {
    case MergeAction::Update: return "UPDATE";
    case MergeAction::Delete: return "DELETE";
    case MergeAction::Insert: return "INSERT";
    }
    return "";
}

void ParseMergeAction(ParseState& state, MergeClause& clause) {
    const Token action = state.Peek();
    // Only a row that the target lacks can be inserted, and nothing else can be done with it.
    const bool known = state.Is(Keyword::Insert) || state.Is(Keyword::Update) || state.Is(Keyword::Delete);
    if (known && state.Is(Keyword::Insert) != (clause.match == MergeMatch::NotMatchedByTarget))
        state.Fail(10710, {UpperWord(state.Value(action)), std::string(MatchWords(clause.match))},
                   action.At());
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

// Of two clauses for the same rows the first takes a part of them, and each does something else.
void CheckMergeClause(const ParseState& state, const MergeClause& clause,
                      const std::vector<MergeClause>& earlier) {
    for (const MergeClause& other : earlier) {
        if (other.match != clause.match)
            continue;
        const std::string words(MatchWords(clause.match));
        if (other.action == clause.action)
            state.Fail(10714, {std::string(ActionWord(clause.action)), words}, clause.position);
        if (!other.condition)
            state.Fail(5324, {words, words}, clause.position);
    }
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
    while (state.Is(Keyword::When)) {
        MergeClause clause = ParseMergeClause(state);
        CheckMergeClause(state, clause, merge->clauses);
        merge->clauses.push_back(std::move(clause));
    }
    if (merge->clauses.empty())
        state.FailHere();
    merge->output = ParseOutput(state);
    merge->hints = ParseQueryHints(state);
    if (!state.Is(Symbol::Semicolon))
        state.Fail(10713, {}, state.At());
    return merge;
}

} // namespace quillon::practice::tsql
