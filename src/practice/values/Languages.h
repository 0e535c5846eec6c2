// The languages that the documentation of sys.syslanguages lists.
#pragma once

#include <string_view>

namespace quillon::practice {

constexpr int usEnglishMessages = 1033;

struct Language {
    std::string_view name;  // the official one: us_english, Deutsch ...
    std::string_view alias; // English, German ...
    int messages = 0;       // msglangid: what sys.messages knows its texts by
};
// By its official name or its alias, without regard to case; nullptr when there is none.
const Language* FindLanguage(std::string_view name);

} // namespace quillon::practice
