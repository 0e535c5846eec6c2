#include "practice/session/BulkScope.h"
#include "practice/session/Calls.h"
#include "practice/session/SessionState.h"
#include "practice/session/Variables.h"
#include "practice/tsql/TreeDml.h"
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

/// The type of an argument that its parameter cannot take, as messages tell it.
std::string TypeOf(const CallArgument& argument) {
    if (argument.rows)
        return argument.rows->type;
    if (argument.table)
        return "table";
    return std::string(argument.value.IsNull() ? "void type" : argument.value.Type().Name());
}

/// How a client's rows go into a parameter of a table type: the statement that loads them, and which values
/// of a row it takes.
struct TableLoad {
    tsql::InsertStatement statement;
    std::vector<std::size_t> taken;
};

/// An identity makes its own values: a client may give it none but NULL.
void RequireNull(const TableArgument& given, std::size_t place) {
    for (const std::vector<Datum>& row : given.rows)
        if (!row[place].IsNull())
            throw SqlError(1077);
}

void Prepare(TableLoad& load, const tsql::Parameter& parameter, const Table& table,
             const TableArgument& given) {
    if (given.leftOut.size() != table.columns.size())
        throw SqlError(500, {std::to_string(given.leftOut.size()), std::to_string(table.columns.size())});
    load.statement.source = tsql::InsertSource::Bulk;
    load.statement.bulk.checkConstraints = true;
    load.statement.bulk.keepNulls = true;
    load.statement.target.variable = parameter.name;
    load.statement.hasColumns = true;
    std::size_t place = 0;
    for (std::size_t i = 0; i < given.leftOut.size(); ++i) {
        if (given.leftOut[i])
            continue;
        if (table.columns[i].identity) {
            RequireNull(given, place);
        } else {
            load.taken.push_back(place);
            load.statement.columns.push_back({{table.columns[i].name}, parameter.position});
        }
        ++place;
    }
}

void FillTable(SessionState& session, const tsql::Parameter& parameter, const Table& table,
               const TableArgument& given) {
    if (!given.type.empty() && !SameName(given.type, parameter.type.name.Last()))
        throw SqlError(206, {given.type, parameter.type.name.Last()}, 2);
    if (given.rows.empty())
        return;
    TableLoad load;
    Prepare(load, parameter, table, given);
    auto next = given.rows.begin();
    const RowReader rows = [&](std::vector<Datum>& row) {
        if (next == given.rows.end())
            return false;
        row.clear();
        for (const std::size_t place : load.taken)
            row.push_back((*next)[place]);
        ++next;
        return true;
    };
    const BulkScope scope(session, rows);
    session.Statements().Execute(load.statement);
}

void BindTable(SessionState& session, const tsql::Parameter& parameter, const CallArgument* argument,
               const Table& table) {
    if (argument == nullptr || argument->useDefault)
        return; // an empty table of the type, made with the parameter
    if (argument->rows)
        return FillTable(session, parameter, table, *argument->rows);
    if (!argument->table)
        throw SqlError(206, {TypeOf(*argument), parameter.type.name.Last()}, 2);
    Variable variable;
    variable.table = argument->table;
    session.Top().variables[FoldName(parameter.name)] = std::move(variable);
}

void BindScalar(SessionState& session, const tsql::Parameter& parameter, const CallArgument* argument,
                Variable& variable, const std::string& called) {
    if (argument != nullptr && !argument->useDefault) {
        if (argument->table || argument->rows)
            throw SqlError(206, {TypeOf(*argument), variable.type.Name()}, 2);
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
        if (variable.table) {
            if (!parameter.readOnly)
                throw SqlError(352, {parameter.name});
            BindTable(session, parameter, matched[i], *variable.table);
            variable.readOnly = true;
        } else
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
