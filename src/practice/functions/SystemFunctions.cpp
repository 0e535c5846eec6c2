// Functions about the session: who, where, the error caught, chance and identifiers.
#include "practice/functions/FunctionParts.h"
#include "practice/values/Unicode.h"

namespace quillon::practice {

namespace {

Datum Name(std::string text) {
    return Datum::Text(SysName(), std::move(text));
}

template <std::string (FunctionContext::*ask)()>
Datum NameOfSession(FunctionContext& context, Arguments) {
    return Name((context.*ask)());
}

template <int CaughtError::*member>
Datum ErrorNumber(FunctionContext& context, Arguments) {
    const CaughtError* error = context.Caught();
    return error == nullptr ? Datum() : Datum::Int(error->*member);
}

Datum ErrorText(FunctionContext& context, Arguments) {
    const CaughtError* error = context.Caught();
    return error == nullptr ? Datum() : Datum::Text(NVarChar(4000), error->text);
}

Datum ErrorProcedure(FunctionContext& context, Arguments) {
    const CaughtError* error = context.Caught();
    return error == nullptr || error->procedure.empty() ? Datum() : Name(error->procedure);
}

Datum ContextInfo(FunctionContext& context, Arguments) {
    std::string bytes = context.ContextInfo();
    return bytes.empty() ? Datum() : Datum::Bytes(BinaryType(TypeId::VarBinary, 128), std::move(bytes));
}

Datum SessionContext(FunctionContext& context, Arguments arguments) {
    if (arguments[0].IsNull())
        throw SqlError(15666);
    return context.SessionContext(TextOf(arguments[0]));
}

Datum TransactionState(FunctionContext& context, Arguments) {
    return Datum::Integer(TypeId::SmallInt, context.TransactionState());
}

Datum ScopeIdentity(FunctionContext& context, Arguments) {
    return context.ScopeIdentity();
}

Datum TriggerNestLevel(FunctionContext& context, Arguments arguments) {
    if (!arguments.empty())
        return context.AskCatalogue("TRIGGER_NESTLEVEL", arguments.data(),
                                    static_cast<int>(arguments.size()));
    return Datum::Int(context.TriggerNestLevel());
}

Datum CursorStatus(FunctionContext& context, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    return Datum::Integer(TypeId::SmallInt,
                          context.CursorStatus(unicode::ToLower(TextOf(arguments[0])), TextOf(arguments[1])));
}

Datum NewId(FunctionContext& context, Arguments) {
    Guid guid;
    for (std::uint8_t& byte : guid.bytes)
        byte = static_cast<std::uint8_t>(context.NextRandom() * 256);
    guid.bytes[7] =
        static_cast<std::uint8_t>((guid.bytes[7] & 0x0F) | 0x40); // version 4: from chance (RFC 4122)
    guid.bytes[8] = static_cast<std::uint8_t>((guid.bytes[8] & 0x3F) | 0x80);
    return Datum::Identifier(guid);
}

SqlType ScopeIdentityType(ArgumentTypes) {
    return DecimalType(38, 0, TypeId::Numeric);
}
SqlType ContextInfoType(ArgumentTypes) {
    return BinaryType(TypeId::VarBinary, 128);
}

constexpr auto once = Evaluation::OncePerStatement;
constexpr auto Sys = AlwaysNVarChar<128>;

constexpr ScalarFunction rows[] = {
    {"HOST_NAME", 0, 0, Sys, NameOfSession<&FunctionContext::HostName>, once},
    {"APP_NAME", 0, 0, Sys, NameOfSession<&FunctionContext::ApplicationName>, once},
    {"PROGRAM_NAME", 0, 0, Sys, NameOfSession<&FunctionContext::ApplicationName>, once},
    {"SYSTEM_USER", 0, 0, Sys, NameOfSession<&FunctionContext::LoginName>, once, false, true, true},
    {"ORIGINAL_LOGIN", 0, 0, Sys, NameOfSession<&FunctionContext::OriginalLogin>, once, false, false, true},
    {"USER", 0, 0, Sys, NameOfSession<&FunctionContext::UserName>, once, false, true, true},
    {"CURRENT_USER", 0, 0, Sys, NameOfSession<&FunctionContext::UserName>, once, false, true, true},
    {"SESSION_USER", 0, 0, Sys, NameOfSession<&FunctionContext::UserName>, once, false, true, true},
    {"ERROR_NUMBER", 0, 0, Always<TypeId::Int>, ErrorNumber<&CaughtError::number>, once},
    {"ERROR_SEVERITY", 0, 0, Always<TypeId::Int>, ErrorNumber<&CaughtError::severity>, once},
    {"ERROR_STATE", 0, 0, Always<TypeId::Int>, ErrorNumber<&CaughtError::state>, once},
    {"ERROR_LINE", 0, 0, Always<TypeId::Int>, ErrorNumber<&CaughtError::line>, once},
    {"ERROR_PROCEDURE", 0, 0, Sys, ErrorProcedure, once},
    {"ERROR_MESSAGE", 0, 0, AlwaysNVarChar<4000>, ErrorText, once},
    {"CONTEXT_INFO", 0, 0, ContextInfoType, ContextInfo, once},
    {"SESSION_CONTEXT", 1, 1, Always<TypeId::SqlVariant>, SessionContext, once},
    {"XACT_STATE", 0, 0, Always<TypeId::SmallInt>, TransactionState, once, false, false, true},
    {"SCOPE_IDENTITY", 0, 0, ScopeIdentityType, ScopeIdentity, once},
    {"TRIGGER_NESTLEVEL", 0, 3, Always<TypeId::Int>, TriggerNestLevel, once, false, false, true},
    {"CURSOR_STATUS", 2, 2, Always<TypeId::SmallInt>, CursorStatus, once},
    {"NEWID", 0, 0, Always<TypeId::UniqueIdentifier>, NewId, Evaluation::EachRow, false, false, true},
};

} // namespace

std::span<const ScalarFunction> SystemFunctions() {
    return rows;
}

} // namespace quillon::practice
