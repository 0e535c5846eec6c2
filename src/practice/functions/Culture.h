// Culture: how a country writes numbers, money and dates, for FORMAT and PARSE. Not for other rooms.
#pragma once

#include <string_view>

namespace quillon::practice {

struct Culture {
    std::string_view name; // empty for the invariant one
    std::string_view decimalPoint, groupSeparator;
    std::string_view currencySymbol;
    std::string_view currency, negativeCurrency; // n stands for the number, $ for the symbol
    std::string_view dateSeparator;
    bool dayFirst; // 2/3 is the second of March
    // Custom formats of dates, which the standard ones stand for.
    std::string_view shortDate, longDate, shortTime, longTime, monthDay, yearMonth;
    std::string_view morning, afternoon, era;
    const std::string_view* months; // twelve
    const std::string_view* shortMonths;
    const std::string_view* days; // seven, Sunday first
    const std::string_view* shortDays;
};

// That of the language of the session.
const Culture& SessionCulture();
// Without regard to case. Throws 9818 where there is no such culture, and refuses those that are not here.
const Culture& CultureOf(std::string_view name);

} // namespace quillon::practice
