// Data access in memory: connections remember how they were opened, and statements are answered as the test
// says.
//
//     FakeDataAccess data;
//     data.Answer("select name from sysobjects", {{{"name"}, {{"authors"}, {"titles"}}}});
//
// A statement without an answer is refused with a failure that quotes it. Answers to the same text are given
// in turn, the last one again and again.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/DataAccess.h"
#include "platform/Failure.h"
#include "platform/Object.h" // completes the references that a Value may hold

namespace quillon::tests {

// One result of a statement; without columns it is that of a statement that returns no rows.
struct FakeResult {
    std::vector<std::string> Columns;
    std::vector<std::vector<Value>> Rows;
};

struct FakeAnswer {
    FakeAnswer(std::vector<FakeResult> results = {})
        : Results(std::move(results)) {}
    explicit FakeAnswer(Failure failure)
        : Trouble(std::move(failure)) {}

    std::vector<FakeResult> Results;
    std::vector<data::Error> Messages;       // what Errors holds afterwards
    std::optional<Failure> Trouble;          // raised in place of the results
    std::map<std::string, Value> Parameters; // values of output parameters and the return value, by name
};

// What the connections of one FakeDataAccess share.
struct FakeDataState {
    std::map<std::string, std::vector<FakeAnswer>> Answers;
    std::vector<std::string> Statements; // in the order of running
    std::vector<std::string> Opened;     // connection strings
    std::string Version = "2.8";

    FakeAnswer Run(const std::string& statement);
};

class FakeConnection : public data::Connection {
  public:
    explicit FakeConnection(std::shared_ptr<FakeDataState> state)
        : m_data(std::move(state)) {}

    void Open(const std::string& connectionString, const std::string& user, const std::string& password,
              std::int32_t options) override;
    void Close() override;
    data::ObjectState State() const override { return m_state; }
    // That of the connection string.
    std::string DefaultDatabase() const override;
    std::string Version() const override { return m_data->Version; }
    const std::vector<data::Error>& Errors() const override { return m_errors; }
    void ClearErrors() override { m_errors.clear(); }

    // Raises 3704 unless the connection is open, and what the answer says.
    FakeAnswer Run(const std::string& statement);

  private:
    std::shared_ptr<FakeDataState> m_data;
    std::string m_string;
    data::ObjectState m_state = data::ObjectState::Closed;
    std::vector<data::Error> m_errors;
};

class FakeDataAccess : public data::DataAccess {
  public:
    // Adds the next answer to this statement.
    void Answer(const std::string& statement, FakeAnswer answer) {
        m_data->Answers[statement].push_back(std::move(answer));
    }
    FakeDataState& Data() { return *m_data; }

    data::ConnectionRef NewConnection() override;
    data::RecordsetRef NewRecordset() override;
    std::shared_ptr<data::Command> NewCommand() override;

  private:
    std::shared_ptr<FakeDataState> m_data = std::make_shared<FakeDataState>();
};

} // namespace quillon::tests
