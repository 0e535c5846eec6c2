// Data access: connections, commands, recordsets, with the shapes and numbers of the ADO 2.6 library.
//
// Used by: picking a database, OpenRecordset and its callers, the script executor, analysis, reports, undo.
// Implemented by: adapters/odbc.
// Ownership: a recordset and a command keep their connection alive. Objects belong to the interface thread.
// Failures carry the provider's number: LinkBroken for a broken link, DataAccess for a statement the server
// refused, CommandTimeout, LoginFailed, ObjectClosed, ObjectOpen, NoCurrentRecord, ItemNotFound. The server's
// own numbers and texts stand in Connection::Errors, prefixed "[Microsoft][ODBC SQL Server Driver][SQL
// Server]".
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/Value.h"

namespace quillon::data {

enum class CursorType { ForwardOnly = 0, Keyset = 1, Dynamic = 2, Static = 3 };
enum class LockType { ReadOnly = 1, Pessimistic = 2, Optimistic = 3, BatchOptimistic = 4 };
enum class CommandType { Unspecified = -1, Text = 1, StoredProcedure = 4 };
enum class CursorLocation { Server = 2, Client = 3 };
enum class ParameterDirection { Input = 1, Output = 2, InputOutput = 3, ReturnValue = 4 };
enum class DataType { Integer = 3, Double = 5, Boolean = 11, DateTime = 135, VarChar = 200, VarWChar = 202 };
enum class ObjectState { Closed = 0, Open = 1 };

// The default of every `options` argument.
inline constexpr std::int32_t OptionUnspecified = -1;

// One message of the server or the driver.
struct Error {
    std::int32_t NativeError = 0; // 0 for plain informational text
    std::string Description;
    std::string SqlState;
};

// A field of a recordset's current row, seen in place: good until the recordset moves or closes.
struct Field {
    const std::string& Name;
    const quillon::Value& Value; // Empty where there is no row
};

struct Parameter {
    std::string Name{};
    DataType Type = DataType::Integer;
    ParameterDirection Direction = ParameterDirection::Input;
    std::int32_t Size = 0;  // in characters for text, else 0 or 1
    quillon::Value Value{}; // Empty: no input value, sent as NULL; filled by Execute for the other directions
};

class Recordset;
using RecordsetRef = std::shared_ptr<Recordset>;

class Connection {
  public:
    virtual ~Connection() = default;

    // Either form of connection string (provider "sqloledb" or "Driver={SQL Server}"). An empty string opens
    // the last one again.
    virtual void Open(const std::string& connectionString, const std::string& user = {},
                      const std::string& password = {}, std::int32_t options = OptionUnspecified) = 0;
    virtual void Close() = 0;
    virtual ObjectState State() const = 0;

    // The database that the server says the connection is in.
    virtual std::string DefaultDatabase() const = 0;
    // The version of the data access library, "2.8" for example; compared as text by its reader.
    virtual std::string Version() const = 0;

    virtual const std::vector<Error>& Errors() const = 0;
    virtual void ClearErrors() = 0;
};
using ConnectionRef = std::shared_ptr<Connection>;

class Recordset {
  public:
    virtual ~Recordset() = default;

    virtual void SetCursorLocation(CursorLocation location) = 0;
    virtual void Open(const std::string& source, const ConnectionRef& connection, CursorType cursor,
                      LockType lock, CommandType type = CommandType::Text) = 0;
    virtual void Close() = 0;
    // Closed for the result of a statement that returned no rows.
    virtual ObjectState State() const = 0;

    virtual bool Bof() const = 0;
    virtual bool Eof() const = 0;
    virtual void MoveFirst() = 0; // refused (3021 or a data access failure) on a forward-only recordset
    virtual void MoveNext() = 0;

    virtual std::size_t FieldCount() const = 0;
    virtual Field FieldAt(std::size_t index) const = 0;          // from 0; 3265 beyond the last
    virtual Field FieldNamed(const std::string& name) const = 0; // without regard to case; 3265 if unknown
    // All rows from the current one on, row by row; the recordset then stands at EOF.
    virtual std::vector<std::vector<quillon::Value>> GetRows() = 0;

    // The next result of the same batch, in server order; none after the last. Ends this recordset.
    virtual RecordsetRef NextRecordset() = 0;
};

class Command {
  public:
    virtual ~Command() = default;

    virtual void SetActiveConnection(const ConnectionRef& connection) = 0;
    virtual void SetCommandType(CommandType type) = 0;
    virtual void SetCommandText(const std::string& text) = 0;
    // In the order of the call; positions count, names are for reading back.
    virtual void AppendParameter(const Parameter& parameter) = 0;
    virtual const Parameter& ParameterNamed(const std::string& name) const = 0; // 3265 if unknown
    // Output parameters and the return value are filled when no result with rows is left unread.
    virtual RecordsetRef Execute(std::int32_t options = OptionUnspecified) = 0;
};

class DataAccess {
  public:
    virtual ~DataAccess() = default;
    virtual ConnectionRef NewConnection() = 0;
    virtual RecordsetRef NewRecordset() = 0;
    virtual std::shared_ptr<Command> NewCommand() = 0;
};

} // namespace quillon::data
