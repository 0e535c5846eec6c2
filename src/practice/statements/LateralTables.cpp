#include "practice/statements/LateralTables.h"

#include "practice/statements/FunctionNodes.h"

#include <sqlite3.h>

#include <optional>

namespace quillon::practice {

namespace {

constexpr std::size_t PassedAtMost = 16;
constexpr std::size_t BundleSize = 100; // a function of SQLite takes 127
constexpr const char* BundleType = "arguments";

// Arguments of a table that has too many of them, on their way through one.
struct Bundle {
    std::vector<sqlite3_value*> values;
    Bundle() = default;
    Bundle(const Bundle&) = delete;
    Bundle& operator=(const Bundle&) = delete;
    ~Bundle() {
        for (sqlite3_value* value : values)
            sqlite3_value_free(value);
    }
};

void MakeBundle(sqlite3_context* context, int count, sqlite3_value** values) {
    auto bundle = std::make_unique<Bundle>();
    for (int i = 0; i < count; ++i)
        bundle->values.push_back(sqlite3_value_dup(values[i]));
    sqlite3_result_pointer(context, bundle.release(), BundleType,
                           [](void* data) { delete static_cast<Bundle*>(data); });
}

std::size_t PassedArguments(std::size_t arguments) {
    return arguments <= PassedAtMost ? arguments : (arguments + BundleSize - 1) / BundleSize;
}

// As many as the node has, out of their bundles.
std::vector<sqlite3_value*> Unbundled(std::span<sqlite3_value* const> passed) {
    std::vector<sqlite3_value*> values;
    for (sqlite3_value* value : passed)
        if (const auto* bundle = static_cast<Bundle*>(sqlite3_value_pointer(value, BundleType)))
            values.insert(values.end(), bundle->values.begin(), bundle->values.end());
        else
            values.push_back(value);
    return values;
}

struct Held {
    LateralNode node;
    FunctionNodes* failures;
};

struct LateralTable : sqlite3_vtab {
    Held* held = nullptr;
};

struct LateralCursor : sqlite3_vtab_cursor {
    Held* held = nullptr;
    std::optional<Prepared> rows;
    bool atEnd = true;
    sqlite3_int64 number = 0;

    void End() {
        if (rows) {
            Prepared back = std::move(*rows);
            rows.reset();
            back.Reset();
            held->node.release(std::move(back));
        }
        atEnd = true;
    }
};

// What `body` throws ends the statement and is thrown again by our own code.
template <class Body>
int Guarded(Held& held, Body body) {
    try {
        body();
        return SQLITE_OK;
    } catch (const StoreFailure& failure) {
        // A failure of one of our functions lies ready already; any other is told by its text.
        try {
            held.failures->TakeFailure();
            throw;
        } catch (...) {
            held.failures->KeepFailure();
        }
        return failure.code == SQLITE_OK ? SQLITE_ERROR : failure.code;
    } catch (...) {
        held.failures->KeepFailure();
        return SQLITE_ERROR;
    }
}

int Connect(sqlite3* connection, void* data, int, const char* const*, sqlite3_vtab** made, char**) {
    auto* held = static_cast<Held*>(data);
    std::string columns;
    for (std::size_t i = 1; i <= held->node.columns; ++i)
        columns += (i > 1 ? ", o" : "o") + std::to_string(i);
    for (std::size_t i = 1; i <= PassedArguments(held->node.arguments); ++i)
        columns += ", a" + std::to_string(i) + " HIDDEN";
    const int code = sqlite3_declare_vtab(connection, ("CREATE TABLE x(" + columns + ")").c_str());
    if (code != SQLITE_OK)
        return code;
    auto table = std::make_unique<LateralTable>();
    table->held = held;
    *made = table.release();
    return SQLITE_OK;
}

int Disconnect(sqlite3_vtab* table) {
    delete static_cast<LateralTable*>(table);
    return SQLITE_OK;
}

// Every argument must be known before the scan begins.
int BestIndex(sqlite3_vtab* table, sqlite3_index_info* info) {
    const LateralNode& node = static_cast<LateralTable*>(table)->held->node;
    const std::size_t arguments = PassedArguments(node.arguments);
    std::vector<bool> known(arguments, false);
    for (int i = 0; i < info->nConstraint; ++i) {
        const auto& constraint = info->aConstraint[i];
        const auto argument = static_cast<std::size_t>(constraint.iColumn) - node.columns;
        if (constraint.iColumn < static_cast<int>(node.columns) || argument >= arguments ||
            constraint.op != SQLITE_INDEX_CONSTRAINT_EQ)
            continue;
        if (!constraint.usable)
            return SQLITE_CONSTRAINT;
        if (known[argument])
            continue;
        known[argument] = true;
        info->aConstraintUsage[i].argvIndex = static_cast<int>(argument) + 1;
        info->aConstraintUsage[i].omit = 1;
    }
    if (std::find(known.begin(), known.end(), false) != known.end())
        return SQLITE_CONSTRAINT;
    info->estimatedCost = 10;
    info->estimatedRows = 10;
    return SQLITE_OK;
}

int Open(sqlite3_vtab* table, sqlite3_vtab_cursor** made) {
    auto cursor = std::make_unique<LateralCursor>();
    cursor->held = static_cast<LateralTable*>(table)->held;
    *made = cursor.release();
    return SQLITE_OK;
}

int Close(sqlite3_vtab_cursor* base) {
    auto* cursor = static_cast<LateralCursor*>(base);
    cursor->End();
    delete cursor;
    return SQLITE_OK;
}

int Next(sqlite3_vtab_cursor* base) {
    auto& cursor = *static_cast<LateralCursor*>(base);
    return Guarded(*cursor.held, [&] {
        cursor.atEnd = !cursor.rows->Step();
        ++cursor.number;
    });
}

int Filter(sqlite3_vtab_cursor* base, int, const char*, int count, sqlite3_value** values) {
    auto& cursor = *static_cast<LateralCursor*>(base);
    cursor.End();
    const int code = Guarded(*cursor.held, [&] {
        cursor.rows = cursor.held->node.rows(Unbundled({values, static_cast<std::size_t>(count)}));
    });
    return code == SQLITE_OK ? Next(base) : code;
}

int AtEnd(sqlite3_vtab_cursor* base) {
    return static_cast<LateralCursor*>(base)->atEnd ? 1 : 0;
}

int ColumnOf(sqlite3_vtab_cursor* base, sqlite3_context* context, int column) {
    auto& cursor = *static_cast<LateralCursor*>(base);
    if (column < static_cast<int>(cursor.held->node.columns))
        sqlite3_result_value(context, cursor.rows->Value(column));
    return SQLITE_OK;
}

int RowNumber(sqlite3_vtab_cursor* base, sqlite3_int64* number) {
    *number = static_cast<LateralCursor*>(base)->number;
    return SQLITE_OK;
}

sqlite3_module MakeModule() {
    sqlite3_module module{};
    module.xConnect = Connect;
    module.xBestIndex = BestIndex;
    module.xDisconnect = Disconnect;
    module.xOpen = Open;
    module.xClose = Close;
    module.xFilter = Filter;
    module.xNext = Next;
    module.xEof = AtEnd;
    module.xColumn = ColumnOf;
    module.xRowid = RowNumber;
    return module;
}

} // namespace

LateralTables::LateralTables(sqlite3* connection, FunctionNodes& failures)
    : m_connection(connection)
    , m_failures(failures) {
    if (sqlite3_create_function_v2(connection, "bundle", -1, SQLITE_UTF8, nullptr, MakeBundle, nullptr,
                                   nullptr, nullptr) != SQLITE_OK)
        ThrowStoreFailure(connection);
}

std::string LateralTables::CallOf(const std::string& name, const std::vector<std::string>& arguments) {
    const bool isBundled = arguments.size() > PassedAtMost;
    std::string list;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const bool begins = isBundled && i % BundleSize == 0;
        const bool ends = isBundled && (i % BundleSize == BundleSize - 1 || i + 1 == arguments.size());
        list +=
            (i == 0 ? "" : ", ") + std::string(begins ? "bundle(" : "") + arguments[i] + (ends ? ")" : "");
    }
    return name + "(" + list + ")";
}

std::string LateralTables::Name(const std::string& key, const std::function<LateralNode()>& make) {
    if (const auto found = m_names.find(key); found != m_names.end())
        return found->second;
    static const sqlite3_module module = MakeModule();
    const std::string name = "v" + std::to_string(m_names.size());
    auto held = std::make_unique<Held>(Held{make(), &m_failures});
    // SQLite owns it from here on, even when it fails.
    if (sqlite3_create_module_v2(m_connection, name.c_str(), &module, held.release(),
                                 [](void* data) { delete static_cast<Held*>(data); }) != SQLITE_OK)
        ThrowStoreFailure(m_connection);
    m_names.emplace(key, name);
    return name;
}

} // namespace quillon::practice
