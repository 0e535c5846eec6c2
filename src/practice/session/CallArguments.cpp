#include "practice/session/Calls.h"
#include "practice/session/SessionState.h"
#include "practice/session/Variables.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

std::size_t FindParameter(const std::vector<tsql::Parameter>& parameters, std::string_view name) {
    const auto found =
        std::find_if(parameters.begin(), parameters.end(),
                     [&](const tsql::Parameter& parameter) { return SameName(parameter.name, name); });
    return static_cast<std::size_t>(found - parameters.begin());
}

/// For every parameter its argument, nullptr for one that was left out.
std::vector<CallArgument*> Match(const std::vector<tsql::Parameter>& parameters,
                                 std::vector<CallArgument>& arguments, const std::string& called) {
    if (parameters.empty() && !arguments.empty())
        throw SqlError(8146, {called}, 2);
    std::vector<CallArgument*> matched(parameters.size(), nullptr);
    std::size_t next = 0;
    for (CallArgument& argument : arguments) {
        const std::size_t index = argument.name.empty() ? next++ : FindParameter(parameters, argument.name);
        if (index >= parameters.size() && argument.name.empty())
            throw SqlError(8144, {called}, 2);
        if (index >= parameters.size())
            throw SqlError(8145, {argument.name, called}, 2);
        if (matched[index] != nullptr)
            throw SqlError(8143, {parameters[index].name});
        matched[index] = &argument;
    }
    return matched;
}

Datum ConvertArgument(SessionState& session, const Datum& value, const SqlType& type) {
    try {
        return ConvertForVariable(value, type, session.Functions().Options());
    } catch (const SqlError& error) {
        // A call tells what it could not convert by types, not by value.
        if (error.number != 245 && error.number != 241)
            throw;
        throw SqlError(8114, {value.Type().Name(), type.Name()});
    }
}

void BindTable(SessionState& session, const tsql::Parameter& parameter, const CallArgument* argument) {
    if (argument == nullptr || argument->useDefault || !argument->table)
        return; // an empty table of the type, made with the parameter
    Variable variable;
    variable.table = argument->table;
    session.Top().variables[FoldName(parameter.name)] = std::move(variable);
}

void BindScalar(SessionState& session, const tsql::Parameter& parameter, const CallArgument* argument,
                Variable& variable, const std::string& called) {
    if (argument != nullptr && !argument->useDefault) {
        if (argument->output && !parameter.output)
            throw SqlError(8162, {parameter.name}, 2);
        variable.value = ConvertArgument(session, argument->value, variable.type);
    } else if (parameter.defaultValue) {
        variable.value = session.Statements().Evaluate(*parameter.defaultValue, variable.type);
    } else {
        throw SqlError(201, {called, parameter.name}, 4);
    }
}

} // namespace

void BindArguments(SessionState& session, const std::vector<tsql::Parameter>& parameters,
                   std::vector<CallArgument>& arguments, const std::string& called) {
    const std::vector<CallArgument*> matched = Match(parameters, arguments, called);
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const tsql::Parameter& parameter = parameters[i];
        if (parameter.cursor) {
            session.Top().cursors[FoldName(parameter.name)] =
                matched[i] == nullptr ? nullptr : matched[i]->cursor;
            continue;
        }
        Variable& variable = AddVariable(session, parameter.name, parameter.type);
        if (variable.table)
            BindTable(session, parameter, matched[i]);
        else
            BindScalar(session, parameter, matched[i], variable, called);
    }
}

void TakeOutputs(SessionState& session, const std::vector<tsql::Parameter>& parameters,
                 std::vector<CallArgument>& arguments) {
    std::size_t next = 0;
    for (CallArgument& argument : arguments) {
        const std::size_t index = argument.name.empty() ? next++ : FindParameter(parameters, argument.name);
        if (!argument.output)
            continue;
        if (parameters[index].cursor)
            argument.cursor = session.Top().cursors[FoldName(parameters[index].name)];
        else
            argument.value = RequireVariable(session, parameters[index].name).value;
    }
}

} // namespace quillon::practice
