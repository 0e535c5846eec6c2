// Functions that make dates from parts, or tell and change what a date is: EOMONTH, DATEFROMPARTS, ISDATE,
// SWITCHOFFSET.
#include "practice/functions/DateParts.h"
#include "practice/functions/FunctionParts.h"
#include "practice/values/ConvertParts.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace quillon::practice {

namespace {

[[noreturn]] void CannotConstruct(const SqlType& type) {
    const int state = type.id == TypeId::Date            ? 1
                      : type.id == TypeId::Time          ? 2
                      : type.id == TypeId::DateTime      ? 3
                      : type.id == TypeId::SmallDateTime ? 4
                      : type.id == TypeId::DateTime2     ? 5
                                                         : 6;
    throw SqlError(289, {type.Name()}, state);
}

std::int32_t DayOf(Arguments arguments, const SqlType& type) {
    const auto part = [&](std::size_t index) {
        return static_cast<int>(std::clamp<std::int64_t>(IntegerOf(arguments[index]), -1, 10000));
    };
    const auto day = DayFromDate(part(0), part(1), part(2));
    if (!day)
        CannotConstruct(type);
    return *day;
}

// Hour, minute, second, and a fraction that counts units of 10^-digits seconds.
std::int64_t TicksOf(Arguments arguments, std::int64_t fraction, int digits, const SqlType& type) {
    constexpr std::int64_t units[] = {1, 10, 100, 1000, 10'000, 100'000, 1'000'000, 10'000'000};
    const std::int64_t hour = IntegerOf(arguments[0]), minute = IntegerOf(arguments[1]),
                       second = IntegerOf(arguments[2]);
    const bool isClock = hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60 &&
                         digits >= 0 && digits <= 7 && fraction >= 0 && fraction < units[digits];
    if (!isClock)
        CannotConstruct(type);
    return hour * ticksPerHour + minute * ticksPerMinute + second * ticksPerSecond +
           fraction * (ticksPerSecond / units[digits]);
}

Datum EndOfMonth(FunctionContext& context, Arguments arguments) {
    if (arguments[0].IsNull())
        return {};
    const Datum date = ConvertForVariable(arguments[0], SimpleType(TypeId::Date), context.Options());
    const CalendarDate parts = DateFromDay(date.When().day);
    std::int64_t months = parts.year * 12LL + parts.month - 1;
    if (arguments.size() > 1 && !arguments[1].IsNull())
        months += IntegerOf(arguments[1]);
    if (months < 12 || months >= 120000)
        throw SqlError(517, {"date"});
    const int year = static_cast<int>(months / 12), month = static_cast<int>(months % 12) + 1;
    return Datum::When(date.Type(), {*DayFromDate(year, month, DaysInMonth(year, month)), 0, 0});
}

Datum DateFromParts(FunctionContext&, Arguments arguments) {
    const SqlType type = SimpleType(TypeId::Date);
    return AnyNull(arguments) ? Datum() : Datum::When(type, {DayOf(arguments, type), 0, 0});
}

Datum DateTimeFromParts(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const SqlType type = SimpleType(TypeId::DateTime);
    const std::int32_t day = DayOf(arguments, type);
    if (day < day1753)
        CannotConstruct(type);
    return MakeMoment({day, TicksOf(arguments.subspan(3), IntegerOf(arguments[6]), 3, type), 0}, type, type);
}

Datum SmallDateTimeFromParts(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const SqlType type = SimpleType(TypeId::SmallDateTime);
    const std::int32_t day = DayOf(arguments, type);
    if (day < day1900 || day > day1900 + 65535)
        CannotConstruct(type);
    const std::array clock{arguments[3], arguments[4], Datum::Int(0)};
    return Datum::When(type, {day, TicksOf(clock, 0, 0, type), 0});
}

// The scale of the result, which is the last argument.
int ScaleOf(Arguments arguments, const SqlType& type) {
    if (arguments.back().IsNull())
        throw SqlError(10760, {type.Name()});
    const std::int64_t scale = IntegerOf(arguments.back());
    if (scale < 0 || scale > 7)
        throw SqlError(1002, {"1", std::to_string(scale)});
    return static_cast<int>(scale);
}

Datum TimeFromParts(FunctionContext&, Arguments arguments) {
    const SqlType type = MomentType(TypeId::Time);
    const int scale = ScaleOf(arguments, type);
    if (AnyNull(arguments))
        return {};
    return Datum::When(type, {day1900, TicksOf(arguments, IntegerOf(arguments[3]), scale, type), 0});
}

Datum DateTime2FromParts(FunctionContext&, Arguments arguments) {
    const SqlType type = MomentType(TypeId::DateTime2);
    const int scale = ScaleOf(arguments, type);
    if (AnyNull(arguments))
        return {};
    return Datum::When(type, {DayOf(arguments, type),
                              TicksOf(arguments.subspan(3), IntegerOf(arguments[6]), scale, type), 0});
}

Datum DateTimeOffsetFromParts(FunctionContext&, Arguments arguments) {
    const SqlType type = MomentType(TypeId::DateTimeOffset);
    const int scale = ScaleOf(arguments, type);
    if (AnyNull(arguments))
        return {};
    const std::int64_t hours = IntegerOf(arguments[7]), minutes = IntegerOf(arguments[8]);
    const bool isOffset = hours >= -14 && hours <= 14 && minutes > -60 && minutes < 60 &&
                          hours * minutes >= 0 && (std::abs(hours) < 14 || minutes == 0);
    if (!isOffset)
        CannotConstruct(type);
    const auto offset = static_cast<std::int16_t>(hours * 60 + minutes);
    const Moment local{DayOf(arguments, type),
                       TicksOf(arguments.subspan(3), IntegerOf(arguments[6]), scale, type), 0};
    return Datum::When(type, Moment::FromTotalTicks(local.TotalTicks() - offset * ticksPerMinute, offset));
}

SqlType IsDateType(ArgumentTypes types) {
    const SqlType& type = types[0];
    if (type.IsMoment() && type.id != TypeId::DateTime && type.id != TypeId::SmallDateTime)
        throw SqlError(8116, {type.Name(), "1", "isdate"});
    return SimpleType(TypeId::Int);
}

// Whether a value converts to datetime: texts, and whole numbers as the texts of their digits.
Datum IsDate(FunctionContext& context, Arguments arguments) {
    const Datum& given = arguments[0];
    if (given.IsNull())
        return Datum::Int(0);
    if (given.Type().IsMoment())
        return Datum::Int(1);
    if (!given.Type().IsCharacter() && !given.Type().IsInteger())
        return Datum::Int(0);
    const Datum value = Convert(given, NVarChar(4000));
    if (value.Text().empty())
        return Datum::Int(0);
    return Datum::Int(!TryConvert(value, SimpleType(TypeId::DateTime), context.Options()).IsNull());
}

// '+hh:mm' or minutes. Throws 9812 for anything else.
std::int16_t OffsetOf(const Datum& value, std::string_view function) {
    std::int64_t minutes = 15 * 60;
    if (value.Type().IsCharacter()) {
        const std::string& text = value.Text();
        int hour = 0, minute = 0;
        const bool isForm = text.size() >= 6 && (text[0] == '+' || text[0] == '-') && text[3] == ':' &&
                            std::from_chars(&text[1], &text[3], hour).ptr == &text[3] &&
                            std::from_chars(&text[4], &text[6], minute).ptr == &text[6] && minute < 60;
        if (isForm)
            minutes = (text[0] == '-' ? -1 : 1) * (hour * 60 + minute);
    } else {
        minutes = IntegerOf(value);
    }
    if (minutes < -14 * 60 || minutes > 14 * 60)
        throw SqlError(9812, {function});
    return static_cast<std::int16_t>(minutes);
}

SqlType OffsetType(ArgumentTypes types) {
    const bool hasScale = types[0].id == TypeId::DateTime2 || types[0].id == TypeId::DateTimeOffset ||
                          types[0].id == TypeId::Time;
    return MomentType(TypeId::DateTimeOffset, hasScale ? types[0].scale : 7);
}

Datum SwitchOffset(FunctionContext& context, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const SqlType type = OffsetType(std::array{arguments[0].Type()});
    Moment moment = ConvertForVariable(arguments[0], type, context.Options()).When();
    moment.offsetMinutes = OffsetOf(arguments[1], "switchoffset");
    return Datum::When(type, moment);
}

Datum ToDateTimeOffset(FunctionContext& context, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const SqlType type = OffsetType(std::array{arguments[0].Type()});
    const Datum local =
        ConvertForVariable(arguments[0], MomentType(TypeId::DateTime2, type.scale), context.Options());
    const std::int16_t offset = OffsetOf(arguments[1], "todatetimeoffset");
    const std::int64_t utc = local.When().TotalTicks() - offset * ticksPerMinute;
    return MakeMoment(Moment::FromTotalTicks(utc, offset), type, type);
}

template <TypeId id>
SqlType FullScale(ArgumentTypes) {
    return MomentType(id);
}

constexpr auto once = Evaluation::OncePerStatement;

constexpr ScalarFunction rows[] = {
    {"EOMONTH", 1, 2, Always<TypeId::Date>, EndOfMonth, once},
    {"DATEFROMPARTS", 3, 3, Always<TypeId::Date>, DateFromParts},
    {"DATETIMEFROMPARTS", 7, 7, Always<TypeId::DateTime>, DateTimeFromParts},
    {"SMALLDATETIMEFROMPARTS", 5, 5, Always<TypeId::SmallDateTime>, SmallDateTimeFromParts},
    {"TIMEFROMPARTS", 5, 5, FullScale<TypeId::Time>, TimeFromParts},
    {"DATETIME2FROMPARTS", 8, 8, FullScale<TypeId::DateTime2>, DateTime2FromParts},
    {"DATETIMEOFFSETFROMPARTS", 10, 10, FullScale<TypeId::DateTimeOffset>, DateTimeOffsetFromParts},
    {"ISDATE", 1, 1, IsDateType, IsDate, once, false, false, true},
    {"SWITCHOFFSET", 2, 2, OffsetType, SwitchOffset, once},
    {"TODATETIMEOFFSET", 2, 2, OffsetType, ToDateTimeOffset, once},
};

} // namespace

std::span<const ScalarFunction> DateBuildingFunctions() {
    return rows;
}

} // namespace quillon::practice
