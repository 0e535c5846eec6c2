#include "practice/statements/Engine.h"

#include "practice/statements/change/TableWriter.h"
#include "practice/values/Growth.h"

#include <sqlite3.h>

namespace quillon::practice {

Engine::Engine(StoreSession& storeSession, ExecutionContext& executionContext, const SystemViews* views)
    : store(storeSession)
    , context(executionContext)
    , systemViews(views)
    , warnings(executionContext)
    , functions(storeSession.Connection(), warnings)
    , laterals(storeSession.Connection(), functions)
    , rowSets(storeSession) {}

Engine::~Engine() = default;

bool Engine::Step(Prepared& statement) {
    try {
        return statement.Step();
    } catch (const StoreFailure& failure) {
        functions.TakeFailure();
        if (failure.code == SQLITE_TOOBIG)
            RefuseGrowth();
        throw;
    } catch (const Interrupted&) {
        functions.TakeFailure();
        throw;
    }
}

std::shared_ptr<const tsql::Batch> Engine::ModuleTree(const Module& module) {
    CachedTree& cached = m_trees[module.id];
    if (!cached.tree || cached.version != module.version) {
        tsql::ParseOptions options;
        options.quotedIdentifiers = module.quotedIdentifier;
        cached.tree = tsql::ParseBatch(module.text, options);
        cached.version = module.version;
    }
    return cached.tree;
}

std::shared_ptr<const tsql::ParsedExpression> Engine::StoredExpression(const std::string& text) {
    std::shared_ptr<const tsql::ParsedExpression>& parsed = m_expressions[text];
    if (!parsed)
        parsed = tsql::ParseStoredExpression(text);
    return parsed;
}

std::shared_ptr<TableWriter> Engine::SharedWriter(const std::shared_ptr<const Table>& table) {
    std::shared_ptr<TableWriter>& writer = m_writers[table->id];
    if (!writer || writer->Definition().version != table->version)
        writer = std::make_shared<TableWriter>(*this, table);
    return writer;
}

} // namespace quillon::practice
