// What the native procedures share. Not for other rooms.
#pragma once

#include "practice/catalogue/SystemProcedures.h"

namespace quillon::practice {

// An argument as text; empty when it is NULL or was not given.
std::string TextArgument(std::span<const Datum> arguments, std::size_t index);

int ChangeProperty(NativeHost& host, std::span<const Datum> arguments); // ExtendedProperties.cpp
// MessageProcedures.cpp
int AddMessage(NativeHost& host, std::span<const Datum> arguments);
int AlterMessage(NativeHost& host, std::span<const Datum> arguments);
int DropMessage(NativeHost& host, std::span<const Datum> arguments);

} // namespace quillon::practice
