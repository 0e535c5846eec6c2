// Text for the calls of the driver manager that take and give UTF-16.
//
// On a connection that was made with wide text, every call that carries text must be wide: of the plain ones
// the manager takes each byte for a character.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillon::adapters {

// UTF-16 with an end mark; what is no UTF-8 becomes the replacement character.
std::vector<SQLWCHAR> WideText(std::string_view text);

// UTF-8, up to the end mark; half of a pair becomes the replacement character.
std::string PlainText(const SQLWCHAR* text);

} // namespace quillon::adapters
