// The names of days and months in en-US.
#pragma once

#include <array>
#include <string_view>

namespace quillon::vbscript {

inline constexpr std::array<std::u16string_view, 7> WeekdayNames{
    u"Sunday", u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday"};
inline constexpr std::array<std::u16string_view, 12> MonthNames{
    u"January", u"February", u"March",     u"April",   u"May",      u"June",
    u"July",    u"August",   u"September", u"October", u"November", u"December"};

} // namespace quillon::vbscript
