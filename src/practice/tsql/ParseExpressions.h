// Expressions and conditions.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

/// A value; a condition in its place is a fault.
ExpressionPtr ParseValue(ParseState& state);
/// A condition; a value in its place is fault 4145.
ExpressionPtr ParseCondition(ParseState& state);
/// A value, or the word DEFAULT.
ExpressionPtr ParseValueOrDefault(ParseState& state);
/// `value, value ...`
ExpressionList ParseValues(ParseState& state);

// Between the files of this family

/// What stands without operators around it: literal, name, call, CASE, bracketed expression of either sort.
ExpressionPtr ParsePrimary(ParseState& state);
/// Either a value or a condition, as brackets may hold.
ExpressionPtr ParseEither(ParseState& state);
ExpressionPtr ParseLiteral(ParseState& state);
bool IsLiteral(const ParseState& state);
/// A literal, and where it is a number a sign before it.
ExpressionPtr ParseConstant(ParseState& state);
/// A call whose name is taken and whose opening bracket is ahead.
ExpressionPtr ParseCall(ParseState& state, Name name);
/// The calls with a grammar of their own; nothing when none of them is ahead.
ExpressionPtr ParseSpecialCall(ParseState& state);
/// CASE ... END
ExpressionPtr ParseCase(ParseState& state);
/// OVER (...), with the word taken.
std::unique_ptr<OverClause> ParseOver(ParseState& state);

/// Sets what every node has, its height from `below` on; for nodes whose operands were parsed one after
/// another.
template <class Node>
std::unique_ptr<Node> Finish(ParseState& state, std::unique_ptr<Node> node, int height) {
    node->end = state.LastEnd();
    node->height = height;
    state.NoteHeight(height);
    return node;
}

/// A new node that begins with the token ahead.
template <class Node>
std::unique_ptr<Node> Begin(const ParseState& state) {
    auto node = std::make_unique<Node>();
    node->position = state.At();
    return node;
}

} // namespace quillon::practice::tsql
