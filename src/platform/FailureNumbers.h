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
inline constexpr std::int32_t CannotPerform = 17;
inline constexpr std::int32_t ProcedureNotDefined = 35;
inline constexpr std::int32_t DllLoad = 48;
inline constexpr std::int32_t InternalError = 51;
inline constexpr std::int32_t FileAlreadyExists = 58;
inline constexpr std::int32_t TooManyFiles = 67;
inline constexpr std::int32_t DeviceUnavailable = 68;
inline constexpr std::int32_t NoTemporaryFile = 322;
inline constexpr std::int32_t InvalidPropertyValue = 380;
inline constexpr std::int32_t MemberNotFound = 423;
inline constexpr std::int32_t NameNotFoundInAutomation = 432;
inline constexpr std::int32_t AutomationError = 440;
inline constexpr std::int32_t LocaleNotSupported = 447;
inline constexpr std::int32_t InvalidOrdinal = 452;
inline constexpr std::int32_t DllFunctionNotFound = 453;
inline constexpr std::int32_t RemoteServerUnavailable = 462;
inline constexpr std::int32_t ObjectNotSafeForInitializing = 503;
inline constexpr std::int32_t ObjectNotSafeForCreating = 504;
inline constexpr std::int32_t ClassNotDefined = 506;
inline constexpr std::int32_t ExceptionOccurred = 507;
inline constexpr std::int32_t RegularExpressionExpected = 5016;
inline constexpr std::int32_t RegularExpressionSyntax = 5017;
inline constexpr std::int32_t UnexpectedQuantifier = 5018;
inline constexpr std::int32_t ExpectedSetEnd = 5019;
inline constexpr std::int32_t ExpectedGroupEnd = 5020;
inline constexpr std::int32_t InvalidSetRange = 5021;
inline constexpr std::int32_t ElementNotFound = 32811;

// Compile-time.
inline constexpr std::int32_t CompileOutOfMemory = 1001;
inline constexpr std::int32_t SyntaxError = 1002;
inline constexpr std::int32_t ExpectedColon = 1003;
inline constexpr std::int32_t ExpectedOpenBracket = 1005;
inline constexpr std::int32_t ExpectedCloseBracket = 1006;
inline constexpr std::int32_t ExpectedCloseSquareBracket = 1007;
inline constexpr std::int32_t ExpectedIdentifier = 1010;
inline constexpr std::int32_t ExpectedEquals = 1011;
inline constexpr std::int32_t ExpectedIf = 1012;
inline constexpr std::int32_t ExpectedTo = 1013;
inline constexpr std::int32_t ExpectedEnd = 1014;
inline constexpr std::int32_t ExpectedFunction = 1015;
inline constexpr std::int32_t ExpectedSub = 1016;
inline constexpr std::int32_t ExpectedThen = 1017;
inline constexpr std::int32_t ExpectedWend = 1018;
inline constexpr std::int32_t ExpectedLoop = 1019;
inline constexpr std::int32_t ExpectedNext = 1020;
inline constexpr std::int32_t ExpectedCase = 1021;
inline constexpr std::int32_t ExpectedSelect = 1022;
inline constexpr std::int32_t ExpectedExpression = 1023;
inline constexpr std::int32_t ExpectedStatement = 1024;
inline constexpr std::int32_t ExpectedEndOfStatement = 1025;
inline constexpr std::int32_t ExpectedIntegerConstant = 1026;
inline constexpr std::int32_t ExpectedWhileOrUntil = 1027;
inline constexpr std::int32_t ExpectedWhileUntilOrEnd = 1028;
inline constexpr std::int32_t ExpectedWith = 1029;
inline constexpr std::int32_t IdentifierTooLong = 1030;
inline constexpr std::int32_t InvalidNumber = 1031;
inline constexpr std::int32_t InvalidCharacter = 1032;
inline constexpr std::int32_t UnterminatedString = 1033;
inline constexpr std::int32_t UnterminatedComment = 1034;
inline constexpr std::int32_t NestedComment = 1035;
inline constexpr std::int32_t InvalidMe = 1037;
inline constexpr std::int32_t LoopWithoutDo = 1038;
inline constexpr std::int32_t InvalidExit = 1039;
inline constexpr std::int32_t InvalidForVariable = 1040;
inline constexpr std::int32_t NameRedefined = 1041;
inline constexpr std::int32_t MustBeFirstStatement = 1042;
inline constexpr std::int32_t NonByValAssignment = 1043;
inline constexpr std::int32_t BracketsOnSubCall = 1044;
inline constexpr std::int32_t ExpectedLiteral = 1045;
inline constexpr std::int32_t ExpectedIn = 1046;
inline constexpr std::int32_t ExpectedClass = 1047;
inline constexpr std::int32_t MustBeInClass = 1048;
inline constexpr std::int32_t ExpectedPropertyKind = 1049;
inline constexpr std::int32_t ExpectedProperty = 1050;
inline constexpr std::int32_t InconsistentProperty = 1051;
inline constexpr std::int32_t MultipleDefaults = 1052;
inline constexpr std::int32_t InitializeArguments = 1053;
inline constexpr std::int32_t PropertyWithoutArgument = 1054;
inline constexpr std::int32_t UnexpectedNext = 1055;
inline constexpr std::int32_t DefaultOnWhat = 1056;
inline constexpr std::int32_t DefaultNotPublic = 1057;
inline constexpr std::int32_t DefaultNotGet = 1058;

// The host ended the script on request.
inline constexpr std::int32_t ScriptStopped = static_cast<std::int32_t>(0x80004004);

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
