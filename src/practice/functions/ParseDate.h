// Dates and times in texts of a culture. Not for other rooms.
#pragma once

#include "practice/functions/Culture.h"
#include "practice/values/Convert.h"

#include <optional>
#include <string_view>

namespace quillon::practice {

// What the text leaves out comes from today: the year of "5 March", the day of "10:30". Nothing where it is
// no date or time.
std::optional<ParsedMoment> ReadDate(std::string_view text, const Culture& culture, std::int32_t today);

} // namespace quillon::practice
