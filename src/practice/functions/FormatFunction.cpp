// FORMAT(value, format, culture).
#include "practice/functions/FormatDate.h"
#include "practice/functions/FormatNumber.h"
#include "practice/functions/FormatTime.h"
#include "practice/functions/FunctionParts.h"

namespace quillon::practice {

namespace {

constexpr int longestResult = 4000;

SqlType FormatType(ArgumentTypes types) {
    const SqlType& value = types[0];
    if (!value.IsMoment() && (!value.IsNumber() || value.id == TypeId::Bit))
        throw SqlError(8116, {value.Name(), "1", "format"});
    for (std::size_t position = 1; position < types.size(); ++position)
        if (!types[position].IsCharacter() || types[position].IsLegacyLob())
            throw SqlError(8116, {types[position].Name(), std::to_string(position + 1), "format"});
    return NVarChar(longestResult);
}

std::optional<std::string> Formatted(FunctionContext& context, const Datum& value, std::string_view format,
                                     const Culture& culture) {
    if (!value.Type().IsMoment())
        return FormatNumber(value, format, culture);
    if (value.Type().id == TypeId::Time)
        return FormatTime(value.When().ticks, format, culture);
    return FormatDate(value, format, culture, context.ZoneOffsetMinutes());
}

Datum Format(FunctionContext& context, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const Culture& culture = arguments.size() > 2 ? CultureOf(arguments[2].Text()) : SessionCulture();
    const auto text = Formatted(context, arguments[0], arguments[1].Text(), culture);
    if (!text)
        return {};
    return Datum::Text(NVarChar(longestResult), std::string(FirstCharacters(*text, longestResult)));
}

constexpr ScalarFunction rows[] = {{"FORMAT", 2, 3, FormatType, Format, Evaluation::OncePerStatement}};

} // namespace

std::span<const ScalarFunction> FormatFunctions() {
    return rows;
}

} // namespace quillon::practice
