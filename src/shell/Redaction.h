// Takes passwords out of texts that leave the session: failure reports name connection strings, statements
// and command lines.
//
// Used by: the trace. What counts as a password: the value of Password= or Pwd= in any spelling (quoted, in
// braces, with blanks around the sign), the nameless element behind an empty one, and the argument of -P on a
// command line.
#pragma once

#include <string>
#include <string_view>

namespace quillon {

// `knownPassword`, where it stands as such a value, is taken out whole even when it holds the characters that
// end a value; it may be empty.
std::string WithoutPasswords(std::string_view text, std::string_view knownPassword);

} // namespace quillon
