// The words of the language.
#pragma once

#include <string_view>

#include "vbscript/source/Token.h"

namespace quillon::vbscript {

// None for a name that is no word of the language; without regard to case.
Keyword KeywordOf(std::u16string_view name);

} // namespace quillon::vbscript
