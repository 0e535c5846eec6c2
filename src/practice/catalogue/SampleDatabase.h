// The sample database Sales as a script: batches of Transact-SQL, run one by one by an ordinary session of sa
// when the server starts with --sample and there is no database of that name.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillon::practice {

constexpr std::string_view sampleDatabaseName = "Sales";
// In order. The first one makes the database, the second one uses it.
std::vector<std::string> SampleDatabaseBatches();

} // namespace quillon::practice
