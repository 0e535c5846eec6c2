// A server on the loopback that answers each statement as the test says, and data access to it through the
// installed driver.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "adapters/odbc/OdbcDataAccess.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Object.h"
#include "practice/wire/RunningListener.h"

namespace quillon::tests {

namespace wire = practice::testing;
using practice::Datum;
using practice::ResultSink;

class ScriptedDatabase : public testing::Test {
  protected:
    using Answer = std::function<void(ResultSink&)>;

    ScriptedDatabase() {
        listener.server.script.batch = [this](const std::string& text, ResultSink& sink,
                                              wire::ScriptedSession&) {
            if (const auto found = answers.find(text); found != answers.end())
                found->second(sink);
            else
                Refuse(sink, 102, "Incorrect syntax near '" + text + "'.");
        };
    }

    // --- parts of an answer ---
    // Servers tell the end of a PRINT or leave it out.
    static void Print(ResultSink& sink, const char* text, bool tellsEnd = true) {
        sink.Message(wire::Message(0, 0, text));
        if (tellsEnd)
            sink.Done({});
    }
    static void Refuse(ResultSink& sink, std::int32_t number, std::string text) {
        sink.Message(wire::Message(number, 16, std::move(text)));
        sink.Done({practice::EndScope::Batch, practice::StatementKind::Other, std::nullopt, true});
    }
    static void Rows(ResultSink& sink, const char* column, std::initializer_list<int> values) {
        practice::ResultColumn described;
        described.name = column;
        described.type = practice::SimpleType(practice::TypeId::Int);
        sink.Columns({described});
        for (const int value : values) {
            const Datum datum = Datum::Int(value);
            sink.Row(std::span<const Datum>(&datum, 1));
        }
        wire::TellCount(sink, practice::StatementKind::Select, values.size());
    }

    std::string ServerName() const { return "127.0.0.1," + std::to_string(listener.Port()); }
    std::string ConnectionString(const char* password = "Secret1!") const {
        return "Provider=sqloledb;Data Source=" + ServerName() +
               ";Initial Catalog=;User ID=sa;Password=" + password + ";";
    }
    data::ConnectionRef Connect() {
        auto connection = access.NewConnection();
        connection->Open(ConnectionString());
        return connection;
    }
    data::RecordsetRef Query(const data::ConnectionRef& connection, const char* text,
                             data::CursorType cursor = data::CursorType::ForwardOnly) {
        auto recordset = access.NewRecordset();
        recordset->Open(text, connection, cursor, data::LockType::ReadOnly);
        return recordset;
    }
    static std::int32_t Number(data::Recordset& recordset) {
        return recordset.FieldAt(0).Value.As<std::int32_t>();
    }
    // The failure that an action ends in; number 0 when it has none.
    template <class Action>
    static Failure FailureOf(Action&& action) {
        try {
            action();
        } catch (const Failure& failure) {
            return failure;
        }
        return Failure(0);
    }

    wire::RunningListener listener;
    std::map<std::string, Answer> answers;
    adapters::OdbcDataAccess access;
};

} // namespace quillon::tests
