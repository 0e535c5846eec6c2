// The values that @@ names have, and the functions that tell what the session has set.
#pragma once

#include "practice/catalogue/CatalogueViews.h"
#include "practice/values/Datum.h"

#include <span>
#include <string_view>

namespace quillon::practice {

struct SessionState;

/// `name` in upper case with its @@. Throws SqlError 137 for a name that there is not.
Datum GlobalValue(SessionState& session, std::string_view name);

SessionSettings SettingsOf(const SessionState& session);

/// ROWCOUNT_BIG, SESSIONPROPERTY, CONNECTIONPROPERTY, CURRENT_TRANSACTION_ID, HOST_ID, GETANSINULL,
/// TRIGGER_NESTLEVEL with arguments; `function` in upper case. Throws SqlError 49999 for others.
Datum AnswerSetting(SessionState& session, std::string_view function, std::span<const Datum> arguments);

} // namespace quillon::practice
