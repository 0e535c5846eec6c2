// Queries and what they share with the statements that change rows.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

/// Where a query stands decides what may stand in it: ORDER BY without TOP is for a statement's or a cursor's
/// own.
enum class QueryPlace { Statement, Cursor, Inner, View };

/// SELECT ... with set operations, ORDER BY and FOR; `query.with` is the caller's matter.
void ParseQuery(ParseState& state, Query& query, QueryPlace place);
/// `( query )`
std::unique_ptr<Query> ParseSubquery(ParseState& state);
/// WITH name AS (query), ...; nothing when no WITH is ahead.
std::vector<CommonTable> ParseWith(ParseState& state);
/// [WITH ...] query [OPTION (...)]
std::unique_ptr<SelectStatement> ParseSelectStatement(ParseState& state, QueryPlace place);

std::optional<Top> ParseTop(ParseState& state);
std::vector<SelectItem> ParseSelectList(ParseState& state);
/// FROM and all its sources, the word taken.
std::vector<TableSourcePtr> ParseFrom(ParseState& state);
TableSourcePtr ParseTableSource(ParseState& state);
/// WITH (hint, ...), if it is ahead.
std::vector<std::string> ParseTableHints(ParseState& state);
/// [AS] alias, if one is ahead.
std::string ParseTableAlias(ParseState& state);
/// ORDER BY, if it is ahead.
std::vector<OrderItem> ParseOrderBy(ParseState& state);
std::vector<QueryHint> ParseQueryHints(ParseState& state);
/// VALUES (...), (...), the word taken.
std::vector<ExpressionList> ParseRows(ParseState& state);
/// FOR XML or FOR BROWSE, if it is ahead.
void ParseForClause(ParseState& state, Query& query);

} // namespace quillon::practice::tsql
