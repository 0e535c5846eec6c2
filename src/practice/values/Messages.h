// The documented messages, in three tables by number because one would be too long to read.
#pragma once

#include "practice/values/SqlError.h"

#include <span>

namespace quillon::practice {

std::span<const MessageRow> LanguageMessages(); // 100 .. 499: the text and the binding of statements
std::span<const MessageRow> DataMessages();     // 500 .. 7999: values, constraints, objects, transactions
std::span<const MessageRow>
ServiceMessages(); // 8000 and up: later checks, procedures of the system, cursors, logins

} // namespace quillon::practice
