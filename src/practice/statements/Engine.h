// Engine: what the parts of one session's executor share: the way into the store, the session itself, the
// functions registered with SQLite, the parsed texts of modules and constraints.
#pragma once

#include "practice/statements/ExecutionContext.h"
#include "practice/statements/FunctionNodes.h"
#include "practice/statements/LateralTables.h"
#include "practice/statements/PlanShapes.h"
#include "practice/statements/SystemViews.h"
#include "practice/statements/Warnings.h"
#include "practice/statements/change/RowSets.h"
#include "practice/storage/Sqlite.h"
#include "practice/storage/StoreSession.h"
#include "practice/tsql/Parser.h"

namespace quillon::practice {

class TableWriter;

class Engine {
  public:
    Engine(StoreSession& storeSession, ExecutionContext& executionContext, const SystemViews* views);
    ~Engine();

    StoreSession& store;
    ExecutionContext& context;
    const SystemViews* systemViews;
    Warnings warnings;
    FunctionNodes functions;
    LateralTables laterals;
    RowSets rowSets;
    PlanShapes shapes;

    // Whether the statement that runs (or failed last) had come as far as touching rows.
    bool begun = false;

    sqlite3* Connection() const { return store.Connection(); }
    // One step of a statement that may call our functions: what they throw comes out as itself.
    bool Step(Prepared& statement);

    std::shared_ptr<const tsql::Batch> ModuleTree(const Module& module);
    std::shared_ptr<const tsql::ParsedExpression> StoredExpression(const std::string& text);
    // The writer of a table in its present version, with its statements prepared. Who keeps it across other
    // statements must share it: a trigger may alter the table.
    std::shared_ptr<TableWriter> SharedWriter(const std::shared_ptr<const Table>& table);
    TableWriter& Writer(const std::shared_ptr<const Table>& table) { return *SharedWriter(table); }

  private:
    struct CachedTree {
        std::uint64_t version = 0;
        std::shared_ptr<const tsql::Batch> tree;
    };
    std::unordered_map<ObjectId, CachedTree> m_trees;
    std::unordered_map<std::string, std::shared_ptr<const tsql::ParsedExpression>> m_expressions;
    std::unordered_map<ObjectId, std::shared_ptr<TableWriter>> m_writers;
};

} // namespace quillon::practice
