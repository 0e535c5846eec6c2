// Numbers and amounts of money in texts of a culture. Not for other rooms.
#pragma once

#include "practice/functions/Culture.h"

#include <optional>
#include <string>

namespace quillon::practice {

// Which parts a text may have beside a sign, digits and a point.
struct NumberParts {
    bool groups = false; // separators among the digits before the point
    bool closingSign = false;
    bool money = false; // the culture's symbol; brackets for amounts below zero
    bool exponent = false;
};

// The same number in plain form (-1234.5, 1e5); nothing where the text is no number.
std::optional<std::string> PlainNumber(std::string_view text, const NumberParts& parts,
                                       const Culture& culture);

} // namespace quillon::practice
