#include "console/RunLogOutput.h"

#include <algorithm>

#include "console/StandardOutput.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::console {
namespace {

// Messages below this number are the server's remarks, such as the change of database.
bool IsError(const std::string& line) {
    constexpr std::string_view mark = "Server: Msg ";
    constexpr long remarks[] = {5701, 5703, 8153};
    if (!line.starts_with(mark))
        return false;
    const long number = std::atol(line.c_str() + mark.size());
    return std::ranges::find(remarks, number) == std::end(remarks);
}

} // namespace

void PrintRunLog(const RunLog& log) {
    for (const std::string& line : log)
        WriteStandardOutput(line + "\n");
    FlushStandardOutput();
    if (const auto refused = std::ranges::count_if(log, IsError); refused > 0)
        throw Failure(numbers::InvalidCall, "The server refused " + std::to_string(refused) +
                                                (refused == 1 ? " batch" : " batches"));
}

} // namespace quillon::console
