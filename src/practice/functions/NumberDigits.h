// NumberDigits: a number as the decimal digits that a format chooses from. Not for other rooms.
#pragma once

#include "practice/values/Datum.h"

#include <string>

namespace quillon::practice {

struct NumberDigits {
    bool negative = false;
    std::string digits; // without zeros in front; empty for zero
    int point = 0;      // how many digits stand before the point; below zero for zeros behind it

    bool IsZero() const { return digits.empty(); }
    // The digit at a place counted from the first; zeros follow the last.
    char At(int place) const;
    // Keeps so many digits, half away from zero; what is left of them ends with no zero. A number that
    // becomes zero loses its sign.
    void Round(int count);
};

// Floats and reals have as many digits as asked for; zero stands for those that their type surely keeps: 15
// and 7. All others are exact.
NumberDigits DigitsOf(const Datum& value, int significant = 0);

} // namespace quillon::practice
