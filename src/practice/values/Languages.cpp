#include "practice/values/Languages.h"

#include "practice/values/Unicode.h"

#include <algorithm>
#include <iterator>

namespace quillon::practice {

namespace {

constexpr Language languages[] = {
    {"us_english", "English", usEnglishMessages},
    {"Deutsch", "German", 1031},
    {"Français", "French", 1036},
    {"日本語", "Japanese", 1041},
    {"Dansk", "Danish", 1030},
    {"Español", "Spanish", 3082},
    {"Italiano", "Italian", 1040},
    {"Nederlands", "Dutch", 1043},
    {"Norsk", "Norwegian", 2068},
    {"Português", "Portuguese", 2070},
    {"Suomi", "Finnish", 1035},
    {"Svenska", "Swedish", 1053},
    {"čeština", "Czech", 1029},
    {"magyar", "Hungarian", 1038},
    {"polski", "Polish", 1045},
    {"română", "Romanian", 1048},
    {"hrvatski", "Croatian", 1050},
    {"slovenčina", "Slovak", 1051},
    {"slovenski", "Slovenian", 1060},
    {"ελληνικά", "Greek", 1032},
    {"български", "Bulgarian", 1026},
    {"русский", "Russian", 1049},
    {"Türkçe", "Turkish", 1055},
    {"British", "British English", usEnglishMessages},
    {"eesti", "Estonian", 1061},
    {"latviešu", "Latvian", 1062},
    {"lietuvių", "Lithuanian", 1063},
    {"Português (Brasil)", "Brazilian", 1046},
    {"繁體中文", "Traditional Chinese", 1028},
    {"한국어", "Korean", 1042},
    {"简体中文", "Simplified Chinese", 2052},
    {"Arabic", "Arabic", 1025},
    {"ไทย", "Thai", 1054},
};

} // namespace

const Language* FindLanguage(std::string_view name) {
    const std::string wanted = unicode::ToLower(name);
    const auto* found = std::find_if(std::begin(languages), std::end(languages), [&](const Language& one) {
        return unicode::ToLower(one.name) == wanted || unicode::ToLower(one.alias) == wanted;
    });
    return found == std::end(languages) ? nullptr : found;
}

} // namespace quillon::practice
