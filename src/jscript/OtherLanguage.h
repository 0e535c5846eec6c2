// Knows text of the other script language, so that its errors can say so.
#pragma once

#include <string_view>

namespace quillon::jscript {

bool LooksLikeVBScript(std::string_view text);

} // namespace quillon::jscript
