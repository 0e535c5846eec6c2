// DATEADD, DATEDIFF, DATEPART and their kin, and the clock.
#include "practice/functions/DateParts.h"
#include "practice/functions/FunctionParts.h"
#include "practice/values/ConvertParts.h"

#include <algorithm>
#include <limits>

namespace quillon::practice {

namespace {

SqlType DateAddType(ArgumentTypes types) {
    if (!types[1].IsNumber() && types[1].id != TypeId::Null)
        throw SqlError(8116, {types[1].Name(), "2", "dateadd"});
    const SqlType& type = types[2];
    if (type.IsMoment())
        return type;
    RequireConversion(type, SimpleType(TypeId::DateTime), false);
    return SimpleType(TypeId::DateTime);
}

std::int64_t TicksOf(DatePart part) {
    switch (part) {
    case DatePart::Week: return 7 * ticksPerDay;
    case DatePart::Hour: return ticksPerHour;
    case DatePart::Minute: return ticksPerMinute;
    case DatePart::Second: return ticksPerSecond;
    case DatePart::Millisecond: return ticksPerSecond / 1000;
    case DatePart::Microsecond: return 10;
    default: return ticksPerDay;
    }
}

int MonthsOf(DatePart part) {
    switch (part) {
    case DatePart::Year: return 12;
    case DatePart::Quarter: return 3;
    case DatePart::Month: return 1;
    default: return 0;
    }
}

// Months are added on the calendar; the day gives way at the end of a short month. Nothing when the year
// leaves 1..9999.
std::optional<Moment> AddMonths(const Moment& moment, std::int64_t months) {
    const CalendarDate date = DateFromDay(moment.day);
    const std::int64_t total = date.year * 12LL + date.month - 1 + months;
    if (total < 12 || total >= 120000)
        return {};
    const int year = static_cast<int>(total / 12), month = static_cast<int>(total % 12) + 1;
    const int day = std::min(date.day, DaysInMonth(year, month));
    return Moment{*DayFromDate(year, month, day), moment.ticks, moment.offsetMinutes};
}

std::optional<Moment> AddTicks(const Moment& moment, DatePart part, std::int64_t number) {
    const Int128 ticks = part == DatePart::Nanosecond ? Int128(number) / 100 : Int128(number) * TicksOf(part);
    const Int128 total = ticks + moment.TotalTicks();
    if (total < 0 || total >= Int128(day9999 + 1) * ticksPerDay)
        return {};
    return Moment::FromTotalTicks(static_cast<std::int64_t>(total), moment.offsetMinutes);
}

Datum DateAdd(FunctionContext& context, Arguments arguments) {
    const DatePart part = DatePartOf(arguments[0], "dateadd");
    if (AnyNull(arguments))
        return {};
    const Datum value = MomentOf(arguments[2], context.Options(), false);
    const SqlType& type = value.Type();
    if (part == DatePart::Offset || part == DatePart::IsoWeek)
        throw SqlError(9806, {NameOf(part), "dateadd"});
    RequirePart(part, type, "dateadd");
    const std::int64_t number = Convert(arguments[1], SimpleType(TypeId::Int)).Integer();
    if (type.id == TypeId::Time) {
        // The clock goes round.
        const std::int64_t step =
            part == DatePart::Nanosecond ? number / 100 : number % ticksPerDay * TicksOf(part) % ticksPerDay;
        const std::int64_t ticks = ((value.When().ticks + step) % ticksPerDay + ticksPerDay) % ticksPerDay;
        return MakeMoment({day1900, ticks, 0}, type, type);
    }
    const auto moved = MonthsOf(part) != 0 ? AddMonths(value.When(), number * MonthsOf(part))
                                           : AddTicks(value.When(), part, number);
    const bool tooEarly = moved && ((type.id == TypeId::DateTime && moved->day < day1753) ||
                                    (type.id == TypeId::SmallDateTime && moved->day < day1900));
    const bool tooLate = moved && type.id == TypeId::SmallDateTime && moved->day > day1900 + 65535;
    if (!moved || tooEarly || tooLate)
        throw SqlError(517, {type.Name()});
    return MakeMoment(*moved, type, type);
}

std::int64_t MonthNumber(const Moment& moment) {
    const CalendarDate date = DateFromDay(moment.day);
    return date.year * 12LL + date.month - 1;
}

// How many borders of the part lie between two moments; nothing on overflow of 64 bits.
std::optional<std::int64_t> CountBorders(DatePart part, const Moment& from, const Moment& to) {
    switch (part) {
    case DatePart::Year: return DateFromDay(to.day).year - DateFromDay(from.day).year;
    case DatePart::Quarter: return MonthNumber(to) / 3 - MonthNumber(from) / 3;
    case DatePart::Month: return MonthNumber(to) - MonthNumber(from);
    case DatePart::Week:
        return (to.day + 1) / 7 - (from.day + 1) / 7; // weeks begin on Sunday, whatever DATEFIRST says
    case DatePart::DayOfYear:
    case DatePart::Day:
    case DatePart::WeekDay: return to.day - from.day;
    case DatePart::Nanosecond: {
        const Int128 count = (Int128(to.TotalTicks()) - from.TotalTicks()) * 100;
        if (count > std::numeric_limits<std::int64_t>::max() ||
            count < std::numeric_limits<std::int64_t>::min())
            return {};
        return static_cast<std::int64_t>(count);
    }
    default: return to.TotalTicks() / TicksOf(part) - from.TotalTicks() / TicksOf(part);
    }
}

template <bool isBig>
Datum DateDifference(FunctionContext& context, Arguments arguments) {
    constexpr std::string_view name = isBig ? "datediff_big" : "datediff";
    const DatePart part = DatePartOf(arguments[0], name);
    if (AnyNull(arguments))
        return {};
    if (part == DatePart::Offset || part == DatePart::IsoWeek)
        throw SqlError(9806, {NameOf(part), name});
    const Datum from = MomentOf(arguments[1], context.Options(), true);
    const Datum to = MomentOf(arguments[2], context.Options(), true);
    const auto count = CountBorders(part, from.When(), to.When());
    if (!count || (!isBig && (*count > std::numeric_limits<std::int32_t>::max() ||
                              *count < std::numeric_limits<std::int32_t>::min())))
        throw SqlError(535, {name});
    return Datum::Integer(isBig ? TypeId::BigInt : TypeId::Int, *count);
}

int WeekDayNumber(std::int32_t day, int dateFirst) {
    return (DayOfWeek(day) + 7 - dateFirst % 7) % 7 + 1;
}

int WeekNumber(std::int32_t day, int dateFirst) {
    const int dayOfYear = DayOfYear(day);
    const int firstWeekDay = WeekDayNumber(day - dayOfYear + 1, dateFirst);
    return (dayOfYear - 1 + firstWeekDay - 1) / 7 + 1;
}

std::int64_t PartValue(DatePart part, const Moment& moment, int dateFirst) {
    const CalendarDate date = DateFromDay(moment.day);
    const ClockTime clock = ClockFromTicks(moment.ticks);
    switch (part) {
    case DatePart::Year: return date.year;
    case DatePart::Quarter: return (date.month - 1) / 3 + 1;
    case DatePart::Month: return date.month;
    case DatePart::DayOfYear: return DayOfYear(moment.day);
    case DatePart::Day: return date.day;
    case DatePart::Week: return WeekNumber(moment.day, dateFirst);
    case DatePart::WeekDay: return WeekDayNumber(moment.day, dateFirst);
    case DatePart::Hour: return clock.hour;
    case DatePart::Minute: return clock.minute;
    case DatePart::Second: return clock.second;
    case DatePart::Millisecond: return clock.fraction / 10'000;
    case DatePart::Microsecond: return clock.fraction / 10;
    case DatePart::Nanosecond: return clock.fraction * 100LL;
    case DatePart::Offset: return moment.offsetMinutes;
    case DatePart::IsoWeek: return IsoWeek(moment.day);
    }
    return 0;
}

Moment LocalMoment(const Datum& value) {
    return value.Type().id == TypeId::DateTimeOffset ? value.When().Local() : value.When();
}

Datum DatePartFunction(FunctionContext& context, Arguments arguments) {
    const DatePart part = DatePartOf(arguments[0], "datepart");
    if (AnyNull(arguments))
        return {};
    const Datum value = MomentOf(arguments[1], context.Options(), true);
    RequirePart(part, value.Type(), "datepart");
    return Datum::Int(PartValue(part, LocalMoment(value), context.DateFirst()));
}

Datum DateName(FunctionContext& context, Arguments arguments) {
    const DatePart part = DatePartOf(arguments[0], "datename");
    if (AnyNull(arguments))
        return {};
    const Datum value = MomentOf(arguments[1], context.Options(), true);
    RequirePart(part, value.Type(), "datename");
    const Moment moment = LocalMoment(value);
    std::string text;
    if (part == DatePart::Month)
        text = monthFullNames[DateFromDay(moment.day).month - 1];
    else if (part == DatePart::WeekDay)
        text = dayFullNames[DayOfWeek(moment.day)];
    else if (part == DatePart::Offset)
        text = ToText(Datum::When(MomentType(TypeId::DateTimeOffset, 0), value.When()), 121).substr(20);
    else
        text = std::to_string(PartValue(part, moment, context.DateFirst()));
    return Datum::Text(NVarChar(30), std::move(text));
}

template <DatePart part>
Datum OnePart(FunctionContext& context, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const Datum value = MomentOf(arguments[0], context.Options(), true);
    if (value.Type().id == TypeId::Time)
        throw SqlError(9810, {NameOf(part), NameOf(part), value.Type().Name()});
    return Datum::Int(PartValue(part, LocalMoment(value), context.DateFirst()));
}

Datum Now(FunctionContext& context, bool isLocal, const SqlType& type) {
    Moment now = context.UtcNow();
    const auto offset = static_cast<std::int16_t>(context.ZoneOffsetMinutes());
    if (type.id == TypeId::DateTimeOffset)
        now.offsetMinutes = offset;
    else if (isLocal)
        now = Moment::FromTotalTicks(now.TotalTicks() + offset * ticksPerMinute);
    return MakeMoment(now, type, type);
}

Datum GetDate(FunctionContext& context, Arguments) {
    return Now(context, true, SimpleType(TypeId::DateTime));
}
Datum GetUtcDate(FunctionContext& context, Arguments) {
    return Now(context, false, SimpleType(TypeId::DateTime));
}
Datum SysDateTime(FunctionContext& context, Arguments) {
    return Now(context, true, MomentType(TypeId::DateTime2));
}
Datum SysUtcDateTime(FunctionContext& context, Arguments) {
    return Now(context, false, MomentType(TypeId::DateTime2));
}
Datum SysDateTimeOffset(FunctionContext& context, Arguments) {
    return Now(context, true, MomentType(TypeId::DateTimeOffset));
}

constexpr auto once = Evaluation::OncePerStatement;

constexpr ScalarFunction rows[] = {
    {"DATEADD", 3, 3, DateAddType, DateAdd, once, true},
    {"DATEDIFF", 3, 3, Always<TypeId::Int>, DateDifference<false>, once, true},
    {"DATEDIFF_BIG", 3, 3, Always<TypeId::BigInt>, DateDifference<true>, once, true},
    {"DATEPART", 2, 2, Always<TypeId::Int>, DatePartFunction, once, true},
    {"DATENAME", 2, 2, AlwaysNVarChar<30>, DateName, once, true},
    {"DAY", 1, 1, Always<TypeId::Int>, OnePart<DatePart::Day>, once},
    {"MONTH", 1, 1, Always<TypeId::Int>, OnePart<DatePart::Month>, once},
    {"YEAR", 1, 1, Always<TypeId::Int>, OnePart<DatePart::Year>, once},
    {"GETDATE", 0, 0, Always<TypeId::DateTime>, GetDate, once, false, false, true},
    {"CURRENT_TIMESTAMP", 0, 0, Always<TypeId::DateTime>, GetDate, once, false, true, true},
    {"GETUTCDATE", 0, 0, Always<TypeId::DateTime>, GetUtcDate, once, false, false, true},
    {"SYSDATETIME", 0, 0, [](ArgumentTypes) { return MomentType(TypeId::DateTime2); }, SysDateTime, once,
     false, false, true},
    {"SYSUTCDATETIME", 0, 0, [](ArgumentTypes) { return MomentType(TypeId::DateTime2); }, SysUtcDateTime,
     once, false, false, true},
    {"SYSDATETIMEOFFSET", 0, 0, [](ArgumentTypes) { return MomentType(TypeId::DateTimeOffset); },
     SysDateTimeOffset, once, false, false, true},
};

} // namespace

std::span<const ScalarFunction> DateFunctions() {
    return rows;
}

} // namespace quillon::practice
