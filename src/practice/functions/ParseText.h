// PARSE(text AS type USING culture): numbers and dates as a country writes them.
#pragma once

#include "practice/functions/FunctionContext.h"

#include <optional>
#include <string_view>

namespace quillon::practice {

// 8116 unless the text is one, 10761 unless the target is a number or a moment; to be asked while binding.
void RequireParse(const SqlType& text, const SqlType& to, std::string_view function);
// Without a name the culture is that of the session. Throws 9818 for the culture, 9819 where the text is no
// such value.
Datum ParseText(FunctionContext& context, const Datum& text, const SqlType& to, const Datum* cultureName);
// Null instead of 9819.
Datum TryParseText(FunctionContext& context, const Datum& text, const SqlType& to, const Datum* cultureName);

} // namespace quillon::practice
