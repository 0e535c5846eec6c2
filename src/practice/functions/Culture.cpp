#include "practice/functions/Culture.h"

#include "practice/values/SqlError.h"
#include "practice/values/Unicode.h"

#include <algorithm>
#include <cctype>
#include <string>

namespace quillon::practice {

namespace {

constexpr std::string_view englishMonths[] = {"January",   "February", "March",    "April",
                                              "May",       "June",     "July",     "August",
                                              "September", "October",  "November", "December"};
constexpr std::string_view englishShortMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::string_view englishDays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                            "Thursday", "Friday", "Saturday"};
constexpr std::string_view englishShortDays[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

constexpr std::string_view germanMonths[] = {"Januar",    "Februar", "M\xC3\xA4rz", "April",
                                             "Mai",       "Juni",    "Juli",        "August",
                                             "September", "Oktober", "November",    "Dezember"};
constexpr std::string_view germanShortMonths[] = {"Jan", "Feb", "Mrz", "Apr", "Mai", "Jun",
                                                  "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"};
constexpr std::string_view germanDays[] = {"Sonntag",    "Montag",  "Dienstag", "Mittwoch",
                                           "Donnerstag", "Freitag", "Samstag"};
constexpr std::string_view germanShortDays[] = {"So", "Mo", "Di", "Mi", "Do", "Fr", "Sa"};

constexpr Culture cultures[] = {
    {"en-US",
     ".",
     ",",
     "$",
     "$n",
     "($n)",
     "/",
     false,
     "M/d/yyyy",
     "dddd, MMMM d, yyyy",
     "h:mm tt",
     "h:mm:ss tt",
     "MMMM d",
     "MMMM yyyy",
     "AM",
     "PM",
     "A.D.",
     englishMonths,
     englishShortMonths,
     englishDays,
     englishShortDays},
    {"",
     ".",
     ",",
     "\xC2\xA4",
     "$n",
     "($n)",
     "/",
     false,
     "MM/dd/yyyy",
     "dddd, dd MMMM yyyy",
     "HH:mm",
     "HH:mm:ss",
     "MMMM dd",
     "yyyy MMMM",
     "AM",
     "PM",
     "A.D.",
     englishMonths,
     englishShortMonths,
     englishDays,
     englishShortDays},
    {"en-GB",
     ".",
     ",",
     "\xC2\xA3",
     "$n",
     "-$n",
     "/",
     true,
     "dd/MM/yyyy",
     "dd MMMM yyyy",
     "HH:mm",
     "HH:mm:ss",
     "d MMMM",
     "MMMM yyyy",
     "AM",
     "PM",
     "A.D.",
     englishMonths,
     englishShortMonths,
     englishDays,
     englishShortDays},
    {"de-DE",
     ",",
     ".",
     "\xE2\x82\xAC",
     "n $",
     "-n $",
     ".",
     true,
     "dd.MM.yyyy",
     "dddd, d. MMMM yyyy",
     "HH:mm",
     "HH:mm:ss",
     "d. MMMM",
     "MMMM yyyy",
     "",
     "",
     "n. Chr.",
     germanMonths,
     germanShortMonths,
     germanDays,
     germanShortDays},
};

// The languages of ISO 639-1.
constexpr std::string_view languages = " aa ab ae af ak am an ar as av ay az ba be bg bi bm bn bo br bs ca "
                                       "ce ch co cr cs cu cv cy da de dv dz ee "
                                       "el en eo es et eu fa ff fi fj fo fr fy ga gd gl gn gu gv ha he hi ho "
                                       "hr ht hu hy hz ia id ie ig ii ik io "
                                       "is it iu ja jv ka kg ki kj kk kl km kn ko kr ks ku kv kw ky la lb lg "
                                       "li ln lo lt lu lv mg mh mi mk ml mn "
                                       "mr ms mt my na nb nd ne ng nl nn no nr nv ny oc oj om or os pa pi pl "
                                       "ps pt qu rm rn ro ru rw sa sc sd se "
                                       "sg si sk sl sm sn so sq sr ss st su sv sw ta te tg th ti tk tl tn to "
                                       "tr ts tt tw ty ug uk ur uz ve vi vo "
                                       "wa wo xh yi yo za zh zu ";

// A language, perhaps with a country: it exists elsewhere, so that calling it invalid would be wrong.
bool IsForeignCulture(std::string_view lower) {
    const auto isLetter = [](unsigned char c) { return std::islower(c) != 0; };
    const bool isShaped = (lower.size() == 2 || (lower.size() == 5 && lower[2] == '-')) &&
                          isLetter(lower[0]) && isLetter(lower[1]) && isLetter(lower[lower.size() - 2]) &&
                          isLetter(lower.back());
    return isShaped && languages.find(" " + std::string(lower.substr(0, 2)) + " ") != std::string_view::npos;
}

} // namespace

const Culture& SessionCulture() {
    return cultures[0];
}

const Culture& CultureOf(std::string_view name) {
    const std::string lower = unicode::ToLower(name);
    const auto* found = std::find_if(std::begin(cultures), std::end(cultures), [&](const Culture& culture) {
        return unicode::ToLower(culture.name) == lower;
    });
    if (found != std::end(cultures))
        return *found;
    if (IsForeignCulture(lower))
        throw SqlError::NotSupported("culture " + std::string(name));
    throw SqlError(9818, {name});
}

} // namespace quillon::practice
