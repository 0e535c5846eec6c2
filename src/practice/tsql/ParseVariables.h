// DECLARE and SET.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

StatementPtr ParseDeclare(ParseState& state);
StatementPtr ParseSet(ParseState& state);
/// SET of anything but a variable, the word taken.
StatementPtr ParseSetOption(ParseState& state, Position position);

} // namespace quillon::practice::tsql
