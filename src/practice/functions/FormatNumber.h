// Numbers as FORMAT writes them. Not for other rooms.
#pragma once

#include "practice/functions/Culture.h"
#include "practice/functions/NumberDigits.h"

#include <optional>

namespace quillon::practice {

// A standard format (a letter and perhaps a precision) or a custom one; nothing where it is not valid for the
// type.
std::optional<std::string> FormatNumber(const Datum& value, std::string_view format, const Culture& culture);
// A custom format: digits, separators, sections and texts between them.
std::string FormatNumberPattern(NumberDigits number, std::string_view format, const Culture& culture);
// The exponent with its sign (that of plus where asked for) and at least so many digits.
std::string ExponentText(char letter, int exponent, int digits, bool plus);

} // namespace quillon::practice
