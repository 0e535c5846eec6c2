#include "console/RunLogOutput.h"

#include <algorithm>

#include "console/StandardOutput.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::console {
namespace {

// Some messages are remarks: the change of database and language, NULLs left out of a sum, and a procedure
// that leaves its transaction open or ends the caller's, as those of an undo do.
bool IsError(const std::string& line) {
    constexpr std::string_view mark = "Server: Msg ";
    constexpr long remarks[] = {266, 5701, 5703, 8153};
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
