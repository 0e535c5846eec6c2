// The options that statements take after WITH, SET and OPTION: which there are, and which of their settings
// are refused because results or safety would hang on them. Those that only say how the work is done are
// taken.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

enum class OptionPlace { Index, Table, Statistics, Database, NewDatabase };

/// 49999 for what is refused. An option that there is not is 155 with the words of the statement, or 102
/// where none are given.
void CheckOption(const ParseState& state, OptionPlace place, const OptionSetting& option, Position at,
                 std::string_view words = {});
void CheckOptions(const ParseState& state, OptionPlace place, const std::vector<OptionSetting>& options,
                  Position at, std::string_view words = {});

/// The hint's words as OPTION has them, without its argument.
bool IsQueryHint(std::string_view words);

} // namespace quillon::practice::tsql
