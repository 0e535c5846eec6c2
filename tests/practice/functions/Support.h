// A context for functions without a session, and a short way to call them.
#pragma once

#include "practice/functions/FunctionTable.h"
#include "practice/values/Literals.h"
#include "practice/values/SqlError.h"

#include <gtest/gtest.h>

namespace quillon::practice {

class QuietContext : public FunctionContext {
  public:
    Moment UtcNow() override { return {*DayFromDate(2020, 1, 5), 10 * ticksPerHour + 1234567, 0}; }
    int ZoneOffsetMinutes() override { return 60; }
    ConvertOptions Options() override { return options; }
    int DateFirst() override { return dateFirst; }
    int SessionId() override { return 51; }
    std::string HostName() override { return "host"; }
    std::string ApplicationName() override { return "app"; }
    std::string LoginName() override { return "ann"; }
    std::string OriginalLogin() override { return "ann"; }
    std::string UserName() override { return "dbo"; }
    std::string DatabaseName() override { return "db"; }
    std::string ServerName() override { return "server"; }
    const CaughtError* Caught() override { return caught; }
    std::string ContextInfo() override { return ""; }
    Datum SessionContext(std::string_view) override { return {}; }
    int TransactionState() override { return 1; }
    Datum ScopeIdentity() override { return {}; }
    int TriggerNestLevel() override { return 0; }
    int CursorStatus(std::string_view, std::string_view) override { return -3; }
    Datum IsColumnUpdated(int) override { return Datum::Bit(false); }
    Datum AskCatalogue(std::string_view function, const Datum*, int count) override {
        return Datum::NVarCharOf(std::string(function) + std::to_string(count));
    }
    double NextRandom() override { return 0.5; }
    void SeedRandom(int) override {}

    ConvertOptions options;
    int dateFirst = 7;
    const CaughtError* caught = nullptr;
};

inline Datum Call(QuietContext& context, const std::string& name, const std::vector<Datum>& arguments) {
    const ScalarFunction* function = FindFunction(name);
    if (function == nullptr)
        throw std::logic_error(name + " is missing");
    RequireArgumentCount(*function, static_cast<int>(arguments.size()));
    std::vector<SqlType> types;
    for (const Datum& argument : arguments)
        types.push_back(argument.Type());
    const SqlType type = function->resultType(types);
    const Datum result = function->evaluate(context, arguments);
    return result.IsNull() ? Datum::Null(type) : result;
}

// A short notation for arguments: numbers, texts in quotes (N before), 0x bytes, $ money, d'date',
// t'datetime2', NULL.
inline Datum Argument(const std::string& text) {
    const auto quoted = [&](std::size_t skip) { return text.substr(skip, text.size() - skip - 1); };
    if (text == "NULL")
        return {};
    if (text.starts_with("N'"))
        return StringLiteral(quoted(2), true, nullptr);
    if (text.starts_with("d'"))
        return Convert(Datum::VarCharOf(quoted(2)), SimpleType(TypeId::DateTime));
    if (text.starts_with("t'"))
        return Convert(Datum::VarCharOf(quoted(2)), MomentType(TypeId::DateTime2));
    if (text.starts_with("'"))
        return StringLiteral(quoted(1), false, nullptr);
    if (text.starts_with("0x"))
        return BinaryLiteral(text);
    if (text.starts_with("$"))
        return MoneyLiteral(text);
    if (text.find('e') != std::string::npos)
        return Convert(Datum::VarCharOf(text), SimpleType(TypeId::Float));
    if (text.starts_with("-")) {
        const Datum number = Argument(text.substr(1));
        return number.Type().IsInteger() ? Datum::Int(-number.Integer())
                                         : Datum::Number(number.Type(), -number.Number().unscaled);
    }
    return text.find('.') != std::string::npos ? DecimalLiteral(text) : IntegerLiteral(text);
}

// The result as text: NULL for null, hex for bytes, an error as "error 245".
inline std::string Show(QuietContext& context, const std::string& name,
                        const std::vector<std::string>& arguments) {
    try {
        std::vector<Datum> values;
        for (const std::string& argument : arguments)
            values.push_back(Argument(argument));
        const Datum result = Call(context, name, values);
        return ToText(result, result.Type().IsBinary() ? 1 : result.Type().IsMoment() ? 121 : noStyle);
    } catch (const SqlError& error) {
        return "error " + std::to_string(error.number);
    }
}

struct FunctionCase {
    const char* function;
    std::vector<std::string> arguments;
    const char* expected;
};

inline void ExpectAll(const std::vector<FunctionCase>& cases) {
    QuietContext context;
    for (const FunctionCase& item : cases) {
        std::string call = item.function;
        for (const std::string& argument : item.arguments)
            call += " " + argument;
        EXPECT_EQ(item.expected, Show(context, item.function, item.arguments)) << call;
    }
}

} // namespace quillon::practice
