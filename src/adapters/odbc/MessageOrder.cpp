#include "adapters/odbc/MessageOrder.h"

#include <algorithm>
#include <array>
#include <span>

namespace quillon::adapters {
namespace {

using Messages = std::span<LocatedMessage>;

constexpr std::int32_t StatementTerminated = 3621; // stands behind the error that it explains

bool IsError(const LocatedMessage& message) {
    return !message.error.SqlState.starts_with("01");
}

// Whether a message does not fit behind the one before it.
bool IsBreak(Messages messages, std::size_t at) {
    const LocatedMessage& here = messages[at];
    if (here.error.NativeError == StatementTerminated)
        return at == 0 || !IsError(messages[at - 1]);
    if (at == 0)
        return false;
    const int before = messages[at - 1].line;
    return before != 0 && here.line != 0 && here.line < before;
}

// Breaks at the places that a change of the first message with the one at `place` concerns.
std::ptrdiff_t BreaksAround(Messages messages, std::size_t place) {
    std::array<std::size_t, 4> concerned{0, 1, place, place + 1};
    std::ranges::sort(concerned);
    const auto end = std::unique(concerned.begin(), concerned.end());
    return std::count_if(concerned.begin(), end, [messages](std::size_t at) {
        return at < messages.size() && IsBreak(messages, at);
    });
}

// The first message is an error. It came from somewhere before the next one.
void PutBackFirst(Messages messages) {
    const auto nextError = std::find_if(messages.begin() + 1, messages.end(), IsError);
    const auto places = static_cast<std::size_t>(nextError - messages.begin());
    std::size_t best = 0;
    std::ptrdiff_t fewest = 0;
    for (std::size_t place = 1; place < places; ++place) {
        const std::ptrdiff_t before = BreaksAround(messages, place);
        std::swap(messages[0], messages[place]);
        const std::ptrdiff_t more = BreaksAround(messages, place) - before;
        std::swap(messages[0], messages[place]);
        if (more <= fewest) {
            fewest = more;
            best = place;
        }
    }
    std::swap(messages[0], messages[best]);
}

} // namespace

std::vector<data::Error> InServerOrder(std::vector<LocatedMessage> messages) {
    const auto firstRemark = std::find_if_not(messages.begin(), messages.end(), IsError);
    for (auto error = firstRemark; error != messages.begin();)
        PutBackFirst(Messages(--error, messages.end()));
    std::vector<data::Error> ordered;
    ordered.reserve(messages.size());
    for (LocatedMessage& message : messages)
        ordered.push_back(std::move(message.error));
    return ordered;
}

} // namespace quillon::adapters
