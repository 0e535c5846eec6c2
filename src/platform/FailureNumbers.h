// The one table of failure numbers and their English texts.
//
// Used by: everything that raises or tests a Failure. Numbers 5 to 1058 are those of the VBScript engine
// (run-time below 1000, compile-time from 1001); numbers with the facility bits of a COM result (0x8...) are
// those of the data access library, the catalogue library and the system's own object model.
#pragma once

#include <cstdint>
#include <string_view>

namespace quillon {

namespace numbers {

// Run-time.
inline constexpr std::int32_t InvalidCall = 5;
inline constexpr std::int32_t Overflow = 6;
inline constexpr std::int32_t OutOfMemory = 7;
inline constexpr std::int32_t SubscriptOutOfRange = 9;
inline constexpr std::int32_t ArrayLocked = 10;
inline constexpr std::int32_t DivisionByZero = 11;
inline constexpr std::int32_t TypeMismatch = 13;
inline constexpr std::int32_t OutOfStringSpace = 14;
inline constexpr std::int32_t OutOfStackSpace = 28;
inline constexpr std::int32_t BadFileNameOrNumber = 52;
inline constexpr std::int32_t FileNotFound = 53;
inline constexpr std::int32_t BadFileMode = 54;
inline constexpr std::int32_t FileAlreadyOpen = 55;
inline constexpr std::int32_t DeviceIoError = 57;
inline constexpr std::int32_t DiskFull = 61;
inline constexpr std::int32_t InputPastEndOfFile = 62;
inline constexpr std::int32_t PermissionDenied = 70;
inline constexpr std::int32_t PathFileAccess = 75;
inline constexpr std::int32_t PathNotFound = 76;
inline constexpr std::int32_t ObjectNotSet = 91;
inline constexpr std::int32_t ForLoopNotInitialized = 92;
inline constexpr std::int32_t InvalidUseOfNull = 94;
inline constexpr std::int32_t ObjectRequired = 424;
inline constexpr std::int32_t CannotCreateObject = 429;
inline constexpr std::int32_t NoAutomation = 430;
inline constexpr std::int32_t MemberNotSupported = 438;
inline constexpr std::int32_t ActionNotSupported = 445;
inline constexpr std::int32_t NamedArgumentsNotSupported = 446;
inline constexpr std::int32_t NamedArgumentNotFound = 448;
inline constexpr std::int32_t ArgumentNotOptional = 449;
inline constexpr std::int32_t WrongArgumentCount = 450;
inline constexpr std::int32_t NotACollection = 451;
inline constexpr std::int32_t KeyAlreadyInUse = 457;
inline constexpr std::int32_t VariantTypeNotSupported = 458;
inline constexpr std::int32_t VariableUndefined = 500;
inline constexpr std::int32_t IllegalAssignment = 501;
inline constexpr std::int32_t ObjectNotSafe = 502;
inline constexpr std::int32_t InvalidReference = 505;

// Data access, catalogue and dialogs.
inline constexpr auto Com = [](std::uint32_t number) { return static_cast<std::int32_t>(number); };
inline constexpr std::int32_t Unspecified = Com(0x80004005);
inline constexpr std::int32_t LinkBroken = Com(0x80040E21); // the one OpenRecordset retries on
inline constexpr std::int32_t DataAccess = Com(0x80040E14); // the server refused the statement
inline constexpr std::int32_t CommandTimeout = Com(0x80040E31);
inline constexpr std::int32_t LoginFailed = Com(0x80040E4D);
inline constexpr std::int32_t ObjectClosed = 3704;
inline constexpr std::int32_t ObjectOpen = 3705;
inline constexpr std::int32_t NoCurrentRecord = 3021;
inline constexpr std::int32_t ItemNotFound = 3265;
inline constexpr std::int32_t ModelPathEmpty = Com(0x80040069);
inline constexpr std::int32_t NoTemplate = Com(0x80040096);
inline constexpr std::int32_t NotATemplate = Com(0x800403E9);
inline constexpr std::int32_t JobExists = Com(0x800437B5);
inline constexpr std::int32_t AgentNotRunning = Com(0x80045606);
inline constexpr std::int32_t DialogCancelled = 32755;

} // namespace numbers

// The English text of a number, empty for one the table does not hold.
std::string_view FailureText(std::int32_t number) noexcept;

} // namespace quillon
