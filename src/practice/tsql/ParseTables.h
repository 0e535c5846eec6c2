// CREATE and ALTER of tables, indexes, types, schemas and databases.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

// Each with the words up to the kind of object taken; `position` is that of CREATE or ALTER.

StatementPtr ParseCreateTable(ParseState& state, Position position);
StatementPtr ParseAlterTable(ParseState& state, Position position);
/// From UNIQUE, CLUSTERED or INDEX on.
StatementPtr ParseCreateIndex(ParseState& state, Position position);
StatementPtr ParseAlterIndex(ParseState& state, Position position);
StatementPtr ParseCreateStatistics(ParseState& state, Position position);
StatementPtr ParseUpdateStatistics(ParseState& state);
StatementPtr ParseCreateType(ParseState& state, Position position);
StatementPtr ParseCreateSynonym(ParseState& state, Position position);
StatementPtr ParseCreateSchema(ParseState& state, Position position);
StatementPtr ParseAlterSchema(ParseState& state, Position position);
StatementPtr ParseCreateDatabase(ParseState& state, Position position);
StatementPtr ParseAlterDatabase(ParseState& state, Position position);
/// CREATE DEFAULT and CREATE RULE.
StatementPtr ParseDefaultOrRule(ParseState& state, Position position, bool rule);

} // namespace quillon::practice::tsql
