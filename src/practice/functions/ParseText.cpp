#include "practice/functions/ParseText.h"

#include "practice/functions/Culture.h"
#include "practice/functions/ParseDate.h"
#include "practice/functions/ParseNumber.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

// A whole number may have zeros after its point.
std::optional<Datum> ReadNumber(std::string_view text, const SqlType& to, const Culture& culture) {
    const NumberParts parts{.groups = !to.IsFloat(),
                            .closingSign = !to.IsFloat(),
                            .money = to.IsMoney(),
                            .exponent = to.IsFloat()};
    const auto plain = PlainNumber(text, parts, culture);
    if (!plain)
        return {};
    if (to.IsFloat())
        return Convert(Datum::VarCharOf(*plain), to);
    const auto number = ParseDecimal(*plain);
    if (!number || (to.IsInteger() && !(*Rescale(*number, 0, true) == *number)))
        return {};
    return Convert(Datum::Number(DecimalType(38, number->scale), number->unscaled), to);
}

std::int32_t Today(FunctionContext& context) {
    const std::int64_t now = context.UtcNow().TotalTicks() + context.ZoneOffsetMinutes() * ticksPerMinute;
    return Moment::FromTotalTicks(now).day;
}

// Without an offset the clock is that of UTC.
std::optional<Datum> ReadMomentOf(FunctionContext& context, std::string_view text, const SqlType& to,
                                  const Culture& culture) {
    const auto read = ReadDate(text, culture, Today(context));
    if (!read)
        return {};
    const std::int16_t offset = read->moment.offsetMinutes;
    if (offset == 0)
        return Convert(Datum::When(MomentType(TypeId::DateTime2), read->moment), to);
    if (to.id != TypeId::DateTimeOffset)
        throw SqlError::NotSupported("PARSE of an offset into " + std::string(to.Name()));
    const std::int64_t universal = read->moment.TotalTicks() - offset * ticksPerMinute;
    if (universal < 0 || universal >= (day9999 + 1) * ticksPerDay)
        return {};
    return Convert(Datum::When(MomentType(TypeId::DateTimeOffset), Moment::FromTotalTicks(universal, offset)),
                   to);
}

// Also nothing where the number or moment is out of the range of its type.
std::optional<Datum> Read(FunctionContext& context, std::string_view text, const SqlType& to,
                          const Culture& culture) {
    try {
        return to.IsMoment() ? ReadMomentOf(context, text, to, culture) : ReadNumber(text, to, culture);
    } catch (const SqlError& error) {
        if (error.number == notSupportedNumber)
            throw;
        return {};
    }
}

std::optional<Datum> ReadIn(FunctionContext& context, const Datum& text, const SqlType& to,
                            const Datum* cultureName) {
    if (text.IsNull() || (cultureName != nullptr && cultureName->IsNull()))
        return Datum::Null(to);
    const Culture& culture = cultureName != nullptr ? CultureOf(cultureName->Text()) : SessionCulture();
    return Read(context, text.Text(), to, culture);
}

} // namespace

void RequireParse(const SqlType& text, const SqlType& to, std::string_view function) {
    if (!text.IsCharacter() || text.IsLegacyLob())
        throw SqlError(8116, {text.Name(), "1", function});
    if (!to.IsMoment() && (!to.IsNumber() || to.id == TypeId::Bit))
        throw SqlError(10761, {to.Name(), function});
}

Datum ParseText(FunctionContext& context, const Datum& text, const SqlType& to, const Datum* cultureName) {
    if (auto value = ReadIn(context, text, to, cultureName))
        return std::move(*value);
    throw SqlError(9819, {text.Text(), to.Name(), cultureName != nullptr ? cultureName->Text() : ""});
}

Datum TryParseText(FunctionContext& context, const Datum& text, const SqlType& to, const Datum* cultureName) {
    return ReadIn(context, text, to, cultureName).value_or(Datum::Null(to));
}

} // namespace quillon::practice
