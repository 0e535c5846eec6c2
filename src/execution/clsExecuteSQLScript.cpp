#include "execution/clsExecuteSQLScript.h"

#include "execution/GoSplitter.h"
#include "model/CleanSQLMsg.h"
#include "platform/Conversion.h"
#include "platform/Failure.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Trace.h"
#include "template/TextCase.h"

namespace quillon {
namespace {

constexpr std::size_t Width = 30; // characters of every name and value

// Every try of a failed walk gets further, since a connection gives each of its failures once; a connection
// that does not is given up after so many.
constexpr int MostTries = 10000;

std::string FixedWidth(const std::string& text) {
    std::size_t bytes = 0, characters = 0;
    while (bytes < text.size() && characters < Width) {
        bytes += CharacterSize(text, bytes);
        ++characters;
    }
    return text.substr(0, bytes) + std::string(Width - characters, ' ');
}

} // namespace

const data::ConnectionRef& clsExecuteSQLScript::Connection() {
    if (!m_connection)
        m_connection = ThePlatform().dataAccess().NewConnection();
    return m_connection;
}

bool clsExecuteSQLScript::CreateODBCConnection(const std::string& server, const std::string& database,
                                               const std::string& user, const std::string& password) {
    Connection()->Open("Driver={SQL Server};Server=" + server + ";Database=" + database + ";Uid=" + user +
                       ";Pwd=" + password + ";");
    return true;
}

void clsExecuteSQLScript::Execute() {
    g_objTrace->Procedure("clsExecuteSQLScript.Execute", [this] {
        const auto batches = SplitAtGo(m_script, [] { ThePlatform().frontEnd().DoEvents(); });
        m_results.clear();
        const auto command = ThePlatform().dataAccess().NewCommand();
        command->SetActiveConnection(Connection());
        command->SetCommandType(data::CommandType::Text);
        for (const auto batch : batches)
            if (!batch.empty())
                RunBatch(*command, batch);
    });
}

void clsExecuteSQLScript::RunBatch(data::Command& command, std::string_view batch) {
    command.SetCommandText(std::string(batch));
    m_connection->ClearErrors();
    data::RecordsetRef results;
    try {
        results = command.Execute();
    } catch (const Failure&) {
        IgnoringFailures([this] { AddErrors(); });
        return;
    }
    WalkResults(std::move(results));
}

// A statement of the batch that fails late, at the step to its result, leaves the walk on what stands before
// it; the walk begins anew from there, and so reaches the results behind.
void clsExecuteSQLScript::WalkResults(data::RecordsetRef results) {
    for (int tries = 1;; ++tries) {
        try {
            WalkOnce(results);
            return;
        } catch (const Failure&) {
            if (tries == MostTries)
                throw;
        }
    }
}

void clsExecuteSQLScript::WalkOnce(data::RecordsetRef& results) {
    bool errorsShown = false;
    while (results) {
        if (results->State() == data::ObjectState::Open) {
            AddHeader(*results);
            AddRows(*results);
        } else if (!errorsShown) {
            errorsShown = true;
            AddErrors();
        }
        results = results->NextRecordset();
    }
}

void clsExecuteSQLScript::AddErrors() {
    for (const data::Error& error : m_connection->Errors()) {
        if (error.NativeError != 0)
            m_results.push_back(CleanSQLMsg("Server: Msg " + std::to_string(error.NativeError)));
        m_results.push_back(CleanSQLMsg(error.Description));
    }
}

void clsExecuteSQLScript::AddHeader(const data::Recordset& results) {
    std::string line;
    for (std::size_t field = 0; field < results.FieldCount(); ++field)
        line += FixedWidth(results.FieldAt(field).Name) + " ";
    line.pop_back();
    m_results.emplace_back(line);
    m_results.emplace_back(CharacterCount(line), '-');
}

void clsExecuteSQLScript::AddRows(data::Recordset& results) {
    std::int32_t count = 0;
    for (; !results.Eof(); results.MoveNext(), ++count) {
        std::string line;
        for (std::size_t field = 0; field < results.FieldCount(); ++field) {
            const Value& value = results.FieldAt(field).Value;
            line += FixedWidth(value.IsNull() ? "NULL" : conversion::ToText(value)) + " ";
        }
        m_results.push_back(std::move(line));
    }
    m_results.push_back("(" + std::to_string(count) + " row(s) affected)");
}

} // namespace quillon
