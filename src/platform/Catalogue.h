// The catalogue tree: servers, databases, tables, columns, keys, triggers, procedures, with the shape of
// SQL-DMO.
//
// Used by: login, picking a database, the metadata loader, the object model's lazy texts, the trigger
// manager, purge jobs. Implemented by: adapters/catalogue over a server, adapters/snapshot over a file.
// Ownership: the tree belongs to its Server; references stay good until the server disconnects or the
// database is refreshed. Loading is the adapter's business (in bulk, on demand). Failures: LoginFailed and
// data access numbers from the server; ItemNotFound for an unknown name.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Value.h"

namespace quillon {

class JobServer;

namespace catalogue {

// Script types, a bit set.
enum ScriptType : std::int32_t {
    ScriptDrops = 1,
    ScriptDefault = 4,
    ScriptPrimaryObject = 4,
    ScriptIncludeIfNotExists = 4096,
    ScriptIncludeHeaders = 131072,
};

// Trigger types, a bit set.
enum TriggerType : std::int16_t { TriggerInsert = 1, TriggerUpdate = 2, TriggerDelete = 4 };

struct Column {
    std::string Name;
    std::string Datatype;    // bare type name; for identity columns of some servers followed by "() identity"
    std::int32_t Length = 0; // bytes; -1 for (max)
    std::int32_t NumericPrecision = 0;
    std::int32_t NumericScale = 0;
    bool AllowNulls = false;
    bool Identity = false;
    bool InPrimaryKey = false;
    bool IsRowGuidCol = false;
    std::string Default;           // name of a bound default
    std::string DriDefaultText;    // text of a declared default
    std::vector<std::string> Keys; // names of the keys that contain the column
};

class Trigger {
  public:
    virtual ~Trigger() = default;
    virtual std::string Name() const = 0;
    virtual std::string Owner() const = 0;
    virtual std::int16_t Type() const = 0; // TriggerType bits
    virtual DateValue CreateDate() const = 0;
    virtual bool Enabled() const = 0;
    virtual void SetEnabled(bool enabled) = 0; // at once on the server
    virtual std::string Script(std::int32_t scriptType) = 0;
    virtual std::string Text() = 0;
    virtual void Remove() = 0; // drops the trigger on the server
};

class Table {
  public:
    virtual ~Table() = default;
    virtual std::string Name() const = 0;
    virtual std::string Owner() const = 0;
    virtual bool SystemObject() const = 0;
    virtual DateValue CreateDate() const = 0;
    virtual const std::vector<Column>& Columns() = 0;
    virtual std::size_t TriggerCount() = 0;
    virtual Trigger& TriggerAt(std::size_t index) = 0; // from 0
    // "owner.name", without regard to case.
    virtual Trigger& TriggerNamed(const std::string& qualifiedName) = 0;
    virtual std::string Script(std::int32_t scriptType) = 0;
};

class Database {
  public:
    virtual ~Database() = default;
    virtual std::string Name() const = 0;
    virtual std::string Owner() const = 0;
    virtual bool SystemObject() const = 0;
    virtual std::size_t TableCount() = 0;
    // From 0, in the catalogue's order. Who walks the tables wants what is in them: what can be loaded for
    // all at once is loaded here, so that it fails once and not at every table.
    virtual Table& TableAt(std::size_t index) = 0;
    // "owner.name" or a bare name, without regard to case.
    virtual Table& TableNamed(const std::string& qualifiedName) = 0;
    // Owner of a stored procedure; raises ItemNotFound when it is missing.
    virtual std::string ProcedureOwner(const std::string& name) = 0;
    // Asks the server anew for tables and triggers. After a failure the next use asks again.
    virtual void Refresh() = 0;
};

class Server {
  public:
    virtual ~Server() = default;
    virtual void SetLoginSecure(bool integrated) = 0;
    virtual void SetOption(bool value) = 0; // one option of the library; nothing depends on its effect
    virtual void Connect(const std::string& server, const std::string& user = {},
                         const std::string& password = {}) = 0;
    virtual void DisConnect() = 0;
    virtual std::string Name() const = 0;
    virtual std::size_t DatabaseCount() = 0;
    virtual Database& DatabaseAt(std::size_t index) = 0;
    virtual Database& DatabaseNamed(const std::string& name) = 0;
    virtual quillon::JobServer& Jobs() = 0;
};

class Library {
  public:
    virtual ~Library() = default;
    virtual std::shared_ptr<Server> NewServer() = 0;
    // Names of the servers that answer on the network within a bounded time.
    virtual std::vector<std::string> ListAvailableSQLServers() = 0;
};

} // namespace catalogue
} // namespace quillon
