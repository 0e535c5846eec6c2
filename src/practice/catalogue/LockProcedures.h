// The procedures that concern locks: those that applications name themselves, and the list of all.
#pragma once

#include "practice/catalogue/SystemProcedures.h"

namespace quillon::practice {

std::span<const SystemProcedure> LockProcedures();

// q_getapplock resource, mode, owner, timeout and q_releaseapplock resource, owner, principal; the words have
// been looked at. They answer what sp_getapplock and sp_releaseapplock return.
int TakeApplicationLock(NativeHost& host, std::span<const Datum> arguments);
int ReleaseApplicationLock(NativeHost& host, std::span<const Datum> arguments);

} // namespace quillon::practice
