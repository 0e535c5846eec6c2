#include "practice/values/ConvertParts.h"
#include "practice/values/SqlError.h"

#include <cmath>

namespace quillon::practice {

namespace {

constexpr std::int32_t lastSmallDay = day1900 + 65535; // 2079-06-06
constexpr std::int64_t stepsPerDay = 24LL * 60 * 60 * 300;

bool IsOld(TypeId id) {
    return id == TypeId::DateTime || id == TypeId::SmallDateTime;
}

[[noreturn]] void OutOfRange(const SqlType& from, const SqlType& to) {
    if (from.IsNumber())
        throw SqlError(8115, {"expression", to.Name()}, 2);
    if (from.IsCharacter() && !IsOld(to.id))
        throw SqlError(241);
    throw SqlError(242, {from.Name(), to.Name()}, 3);
}

Moment RoundToSteps(const Moment& moment) {
    const std::int64_t steps = DateTimeSteps(moment.ticks);
    if (steps >= stepsPerDay)
        return {moment.day + 1, 0, 0};
    return {moment.day, TicksFromSteps(steps), 0};
}

Moment RoundToMinute(const Moment& moment) {
    const Moment stepped = RoundToSteps(moment);
    const std::int64_t minutes = (stepped.ticks + ticksPerMinute / 2) / ticksPerMinute;
    return Moment::FromTotalTicks(stepped.day * ticksPerDay + minutes * ticksPerMinute);
}

Moment MomentFromText(const Datum& value, const SqlType& to, const ConvertOptions& options, int style) {
    ParsedMoment parsed;
    const MomentFailure failure = ReadMoment(value.Text(), options, style, IsOld(to.id), parsed);
    const bool isStyleWrong = failure != MomentFailure::None && style != noStyle && !IsOld(to.id);
    if (isStyleWrong && ParseMoment(value.Text(), options))
        throw SqlError(9807, {std::to_string(style)});
    switch (failure) {
    case MomentFailure::None: break;
    case MomentFailure::Range: OutOfRange(value.Type(), to);
    case MomentFailure::Format:
        if (to.id == TypeId::SmallDateTime)
            throw SqlError(295, {}, 3);
        throw SqlError(241);
    }
    if (to.id != TypeId::DateTimeOffset) {
        parsed.moment.offsetMinutes = 0;
        return parsed.moment;
    }
    const std::int16_t offset = parsed.moment.offsetMinutes;
    return Moment::FromTotalTicks(parsed.moment.TotalTicks() - offset * ticksPerMinute, offset);
}

Moment MomentFromDays(double days, const SqlType& from, const SqlType& to) {
    const double whole = std::floor(days);
    if (!(whole >= -1e6 && whole <= 1e7))
        OutOfRange(from, to);
    const auto steps =
        static_cast<std::int64_t>(std::llround((days - whole) * static_cast<double>(stepsPerDay)));
    const auto day = static_cast<std::int32_t>(whole) + day1900;
    return steps >= stepsPerDay ? Moment{day + 1, 0, 0} : Moment{day, TicksFromSteps(steps), 0};
}

std::uint32_t BigEndian(std::string_view bytes) {
    std::uint32_t number = 0;
    for (const char byte : bytes)
        number = (number << 8) | static_cast<unsigned char>(byte);
    return number;
}

std::int64_t LittleEndian(std::string_view bytes) {
    std::int64_t number = 0;
    for (std::size_t index = bytes.size(); index > 0; --index)
        number = (number << 8) | static_cast<unsigned char>(bytes[index - 1]);
    return number;
}

// Datetime is days and steps of 1/300 second, most significant byte first; smalldatetime days and minutes.
Moment OldMomentFromBytes(std::string bytes, const SqlType& to) {
    const bool isSmall = to.id == TypeId::SmallDateTime;
    const std::size_t width = isSmall ? 4 : 8;
    if (bytes.size() < width)
        bytes.insert(0, width - bytes.size(), '\0');
    const std::string_view all = std::string_view(bytes).substr(bytes.size() - width);
    const std::uint32_t days = BigEndian(all.substr(0, width / 2));
    const std::uint32_t clock = BigEndian(all.substr(width / 2));
    if (clock >= (isSmall ? 1440u : static_cast<std::uint32_t>(stepsPerDay)))
        throw SqlError(210);
    const std::int64_t ticks = isSmall ? clock * ticksPerMinute : TicksFromSteps(clock);
    return {day1900 + static_cast<std::int32_t>(days), ticks, 0};
}

// The newer types write least significant byte first, time before date, with their scale in front of the
// time.
Moment NewMomentFromBytes(std::string_view bytes, const SqlType& to) {
    const bool hasClock = to.id != TypeId::Date;
    const std::size_t width = static_cast<std::size_t>(to.StorageBytes()) + hasClock;
    if (bytes.size() != width || (hasClock && bytes[0] != static_cast<char>(to.scale)))
        throw SqlError(210);
    Moment moment;
    moment.day = day1900;
    if (hasClock) {
        const std::size_t clockBytes =
            static_cast<std::size_t>(MomentType(TypeId::Time, to.scale).StorageBytes());
        moment.ticks = LittleEndian(bytes.substr(1, clockBytes));
        for (int digits = to.scale; digits < 7; ++digits)
            moment.ticks *= 10;
        bytes.remove_prefix(1 + clockBytes);
    }
    if (to.id != TypeId::Time)
        moment.day = static_cast<std::int32_t>(LittleEndian(bytes.substr(0, 3)));
    if (to.id == TypeId::DateTimeOffset)
        moment.offsetMinutes = static_cast<std::int16_t>(LittleEndian(bytes.substr(3, 2)));
    if (moment.ticks < 0 || moment.ticks >= ticksPerDay || moment.day > day9999)
        throw SqlError(210);
    return moment;
}

Moment MomentFromMoment(const Datum& value, const SqlType& to) {
    Moment moment = value.When();
    if (value.Type().id == TypeId::DateTimeOffset && to.id != TypeId::DateTimeOffset) {
        moment = moment.Local();
        moment.offsetMinutes = 0;
    }
    return moment;
}

double NumberOf(const Datum& value) {
    if (value.Type().IsInteger())
        return static_cast<double>(value.Integer());
    return value.Type().IsFloat() ? value.Float() : ToDouble(value.Number());
}

} // namespace

Datum MakeMoment(const Moment& moment, const SqlType& to, const SqlType& from) {
    Moment result = moment;
    switch (to.id) {
    case TypeId::Date: return Datum::When(to, {moment.day, 0, 0});
    case TypeId::Time:
        result = RoundFraction({0, moment.ticks, 0}, to.scale);
        return Datum::When(to, {day1900, result.ticks, 0}); // midnight when it rounds up to the next day
    case TypeId::DateTime:
        result = RoundToSteps(moment);
        if (result.day < day1753 || result.day > day9999)
            OutOfRange(from, to);
        return Datum::When(to, result);
    case TypeId::SmallDateTime:
        if (moment.day < day1900 || moment.day > lastSmallDay)
            OutOfRange(from, to);
        result = RoundToMinute(moment);
        if (result.day > lastSmallDay)
            OutOfRange(from, to);
        return Datum::When(to, result);
    default:
        result = RoundFraction(moment, to.scale);
        if (result.day < 0 || result.day > day9999)
            OutOfRange(from, to);
        return Datum::When(to, result);
    }
}

Datum ToMomentType(const Datum& value, const SqlType& to, const ConvertOptions& options, int style) {
    const SqlType& from = value.Type();
    if (from.IsCharacter())
        return MakeMoment(MomentFromText(value, to, options, style), to, from);
    if (ConversionBetween(from, to) == ConversionRule::NotAllowed)
        RefuseConversion(from, to);
    if (from.IsMoment() && to.id == TypeId::DateTimeOffset && style != noStyle && style != 0 && style != 1)
        throw SqlError(9809, {std::to_string(style), from.Name(), to.Name()});
    if (from.IsMoment())
        return MakeMoment(MomentFromMoment(value, to), to, from);
    if (from.IsBinary())
        return MakeMoment(IsOld(to.id) ? OldMomentFromBytes(value.Bytes(), to)
                                       : NewMomentFromBytes(value.Bytes(), to),
                          to, from);
    if (from.IsNumber())
        return MakeMoment(MomentFromDays(NumberOf(value), from, to), to, from);
    RefuseConversion(from, to);
}

} // namespace quillon::practice
