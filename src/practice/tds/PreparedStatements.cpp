#include "practice/tds/PreparedStatements.h"

#include "practice/tds/ForwardingSink.h"
#include "practice/tds/Refusals.h"

#include <algorithm>

namespace quillon::practice::tds {
namespace {

std::string TextArgument(const ProcedureCall& call, std::size_t index) {
    if (index >= call.parameters.size() || call.parameters[index].value.IsNull() ||
        !call.parameters[index].type.IsCharacter()) {
        return {};
    }
    return call.parameters[index].value.Text();
}

std::int32_t HandleArgument(const ProcedureCall& call) {
    if (call.parameters.empty() || call.parameters[0].value.IsNull() ||
        !call.parameters[0].type.IsInteger()) {
        return 0;
    }
    return static_cast<std::int32_t>(call.parameters[0].value.Integer());
}

void RefuseHandle(std::int32_t handle, ResultSink& sink) {
    FailCall(TableMessage(8179, {std::to_string(handle)}), sink);
}

CallParameter TextParameter(const std::string& text) {
    CallParameter parameter;
    parameter.type = NVarChar(maxLength);
    parameter.value = Datum::Text(parameter.type, text);
    return parameter;
}

// The call of sp_executesql that carries the arguments of `call` from `first` on.
ProcedureCall ExecuteSqlCall(const std::string& text, const std::string& parameters,
                             const ProcedureCall& call, std::size_t first) {
    ProcedureCall result;
    result.name = "sp_executesql";
    result.noMetadata = call.noMetadata;
    result.parameters.push_back(TextParameter(text));
    if (!parameters.empty()) {
        result.parameters.push_back(TextParameter(parameters));
        for (std::size_t index = first; index < call.parameters.size(); ++index) {
            result.parameters.push_back(call.parameters[index]);
        }
    }
    return result;
}

constexpr std::size_t executeSqlFirst = 2; // where the values begin in a call of sp_executesql

// Gives output parameters the places that they have in the client's own call, and adds the handle in front of
// them.
class CallSink : public ForwardingSink {
  public:
    CallSink(ResultSink& sink, std::size_t first, const CallParameter* handle, std::int32_t handleValue)
        : ForwardingSink(sink)
        , m_first(first)
        , m_handle(handle)
        , m_handleValue(handleValue) {}

    void ReturnStatus(std::int32_t status) override {
        ForwardingSink::ReturnStatus(status);
        TellHandle();
    }
    void OutputParameter(std::size_t ordinal, const std::string& name, const SqlType& type,
                         const Datum& value) override {
        TellHandle();
        ForwardingSink::OutputParameter(ordinal - executeSqlFirst + m_first, name, type, value);
    }
    void Done(const StatementEnd& end) override {
        if (end.scope == EndScope::Procedure) {
            TellHandle();
        }
        ForwardingSink::Done(end);
    }

  private:
    void TellHandle() {
        if (m_handle != nullptr) {
            ForwardingSink::OutputParameter(0, m_handle->name, SimpleType(TypeId::Int),
                                            Datum::Int(m_handleValue));
            m_handle = nullptr;
        }
    }

    std::size_t m_first;
    const CallParameter* m_handle;
    std::int32_t m_handleValue;
};

// Passes on what describing a statement answers, as part of a procedure, and notes whether it failed.
class DescribeSink : public ForwardingSink {
  public:
    using ForwardingSink::ForwardingSink;

    void Message(const ServerMessage& message) override {
        m_failed = m_failed || message.severity > 10;
        ForwardingSink::Message(message);
    }
    void Columns(const std::vector<ResultColumn>& columns) override {
        m_told = true;
        ForwardingSink::Columns(columns);
    }
    void Done(const StatementEnd& end) override {
        if (m_told) {
            ForwardingSink::Done({EndScope::InProcedure, end.kind, std::nullopt, false});
        }
    }
    bool Failed() const { return m_failed; }

  private:
    bool m_told = false;
    bool m_failed = false;
};

} // namespace

std::int32_t PreparedStatements::Keep(Statement statement) {
    m_statements.emplace(++m_lastHandle, std::move(statement));
    return m_lastHandle;
}

void PreparedStatements::Prepare(const ProcedureCall& call, SqlSession& session, ResultSink& sink) {
    Statement statement{TextArgument(call, 2), TextArgument(call, 1)};
    DescribeSink describe(sink);
    session.Describe(statement.text, statement.parameters, describe);
    if (describe.Failed()) {
        FailCall(TableMessage(8180), sink);
        return;
    }
    sink.ReturnStatus(0);
    const std::string name = call.parameters.empty() ? std::string() : call.parameters[0].name;
    sink.OutputParameter(0, name, SimpleType(TypeId::Int), Datum::Int(Keep(std::move(statement))));
    sink.Done({EndScope::Procedure, StatementKind::Execute, std::nullopt, false});
}

void PreparedStatements::Execute(const ProcedureCall& call, SqlSession& session, ResultSink& sink) {
    auto found = m_statements.find(HandleArgument(call));
    if (found == m_statements.end()) {
        RefuseHandle(HandleArgument(call), sink);
        return;
    }
    constexpr std::size_t first = 1;
    CallSink callSink(sink, first, nullptr, 0);
    session.ExecuteProcedure(ExecuteSqlCall(found->second.text, found->second.parameters, call, first),
                             callSink);
}

void PreparedStatements::PrepareAndExecute(const ProcedureCall& call, SqlSession& session, ResultSink& sink) {
    Statement statement{TextArgument(call, 2), TextArgument(call, 1)};
    constexpr std::size_t first = 3;
    ProcedureCall execute = ExecuteSqlCall(statement.text, statement.parameters, call, first);
    const CallParameter* handle = call.parameters.empty() ? nullptr : &call.parameters[0];
    CallSink callSink(sink, first, handle, Keep(std::move(statement)));
    session.ExecuteProcedure(execute, callSink);
}

void PreparedStatements::Unprepare(const ProcedureCall& call, SqlSession&, ResultSink& sink) {
    if (m_statements.erase(HandleArgument(call)) == 0) {
        RefuseHandle(HandleArgument(call), sink);
        return;
    }
    sink.ReturnStatus(0);
    sink.Done({EndScope::Procedure, StatementKind::Execute, std::nullopt, false});
}

bool PreparedStatements::TryExecute(const ProcedureCall& call, SqlSession& session, ResultSink& sink) {
    using Run = void (PreparedStatements::*)(const ProcedureCall&, SqlSession&, ResultSink&);
    static const std::map<std::string, Run, std::less<>> procedures{
        {"sp_prepare", &PreparedStatements::Prepare},
        {"sp_execute", &PreparedStatements::Execute},
        {"sp_prepexec", &PreparedStatements::PrepareAndExecute},
        {"sp_unprepare", &PreparedStatements::Unprepare},
    };
    std::string name = call.name;
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char character) { return static_cast<char>(std::tolower(character)); });
    auto found = procedures.find(name);
    if (found == procedures.end()) {
        return false;
    }
    (this->*found->second)(call, session, sink);
    return true;
}

} // namespace quillon::practice::tds
