// PRINT, RAISERROR and THROW.
#pragma once

#include "practice/tsql/TreeControl.h"
#include "practice/values/Datum.h"

#include <span>

namespace quillon::practice {

struct SessionState;

void RunPrint(SessionState& session, const tsql::PrintStatement& statement);
void RunRaiseError(SessionState& session, const tsql::RaiseErrorStatement& statement);
void RunThrow(SessionState& session, const tsql::ThrowStatement& statement);

/// The text of RAISERROR with its arguments in place, printf's way: %d %i %u %o %x %X %s, flags, width,
/// precision, `*`. A missing or null argument shows as (null). Throws SqlError 2786 (wrong type of argument)
/// and 2787 (wrong format).
std::string FormatMessage(std::string_view format, std::span<const Datum> arguments);

/// FORMATMESSAGE(number or format, arguments ...): NULL for a number of which the table has no message.
Datum FormattedMessage(SessionState& session, std::span<const Datum> arguments);

} // namespace quillon::practice
