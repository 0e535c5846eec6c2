#include "practice/functions/DateParts.h"

#include "practice/values/Convert.h"
#include "practice/values/SqlError.h"
#include "practice/values/Unicode.h"

namespace quillon::practice {

namespace {

struct PartName {
    std::string_view name;
    DatePart part;
};

// The full name of each part stands first.
constexpr PartName names[] = {
    {"year", DatePart::Year},       {"yy", DatePart::Year},
    {"yyyy", DatePart::Year},       {"quarter", DatePart::Quarter},
    {"qq", DatePart::Quarter},      {"q", DatePart::Quarter},
    {"month", DatePart::Month},     {"mm", DatePart::Month},
    {"m", DatePart::Month},         {"dayofyear", DatePart::DayOfYear},
    {"dy", DatePart::DayOfYear},    {"y", DatePart::DayOfYear},
    {"day", DatePart::Day},         {"dd", DatePart::Day},
    {"d", DatePart::Day},           {"week", DatePart::Week},
    {"wk", DatePart::Week},         {"ww", DatePart::Week},
    {"weekday", DatePart::WeekDay}, {"dw", DatePart::WeekDay},
    {"w", DatePart::WeekDay},       {"hour", DatePart::Hour},
    {"hh", DatePart::Hour},         {"minute", DatePart::Minute},
    {"mi", DatePart::Minute},       {"n", DatePart::Minute},
    {"second", DatePart::Second},   {"ss", DatePart::Second},
    {"s", DatePart::Second},        {"millisecond", DatePart::Millisecond},
    {"ms", DatePart::Millisecond},  {"microsecond", DatePart::Microsecond},
    {"mcs", DatePart::Microsecond}, {"nanosecond", DatePart::Nanosecond},
    {"ns", DatePart::Nanosecond},   {"tzoffset", DatePart::Offset},
    {"tz", DatePart::Offset},       {"iso_week", DatePart::IsoWeek},
    {"isowk", DatePart::IsoWeek},   {"isoww", DatePart::IsoWeek},
};

bool IsClockPart(DatePart part) {
    return part >= DatePart::Hour && part <= DatePart::Nanosecond;
}

} // namespace

DatePart DatePartOf(const Datum& word, std::string_view function) {
    const std::string lower = unicode::ToLower(word.Text());
    for (const PartName& row : names)
        if (row.name == lower)
            return row.part;
    throw SqlError(155, {word.Text(), function});
}

std::string_view NameOf(DatePart part) {
    for (const PartName& row : names)
        if (row.part == part)
            return row.name;
    return {};
}

void RequirePart(DatePart part, const SqlType& type, std::string_view function) {
    const bool isMissing =
        (type.id == TypeId::Date && IsClockPart(part)) || (type.id == TypeId::Time && !IsClockPart(part)) ||
        (part == DatePart::Offset && type.id != TypeId::DateTimeOffset && type.id != TypeId::DateTime2);
    if (isMissing)
        throw SqlError(9810, {NameOf(part), function, type.Name()});
}

Datum MomentOf(const Datum& value, const ConvertOptions& options, bool wide) {
    if (value.Type().IsMoment())
        return value;
    if (wide && value.Type().IsCharacter())
        return ConvertForVariable(value, MomentType(TypeId::DateTimeOffset), options);
    return ConvertForVariable(value, SimpleType(TypeId::DateTime), options);
}

} // namespace quillon::practice
