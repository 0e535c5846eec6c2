// DROP of every kind of object.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

/// With DROP ahead.
StatementPtr ParseDrop(ParseState& state);

} // namespace quillon::practice::tsql
