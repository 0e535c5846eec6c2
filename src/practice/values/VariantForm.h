// The stored form of a sql_variant: a letter for the base type, its sizes and collation, and then the value.
// Not for other rooms; they see it through StorageForm.h.
#pragma once

#include "practice/values/Datum.h"

#include <string_view>

namespace quillon::practice {

std::string EncodeVariant(const Datum& value); // not null
Datum DecodeVariant(std::string_view stored);  // what EncodeVariant made

} // namespace quillon::practice
