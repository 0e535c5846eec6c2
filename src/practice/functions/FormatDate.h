// Dates as FORMAT writes them. Not for other rooms.
#pragma once

#include "practice/functions/Culture.h"
#include "practice/values/Datum.h"

#include <optional>
#include <string>

namespace quillon::practice {

// A standard format (one letter) or a custom one; nothing where it is not valid. Values without an offset are
// taken to be on the server's clock, so many minutes from UTC. For all moments but time.
std::optional<std::string> FormatDate(const Datum& value, std::string_view format, const Culture& culture,
                                      int zoneMinutes);

} // namespace quillon::practice
