// Cursor: the rows of a SELECT, read one at a time. All kinds are snapshots taken when the cursor is opened:
// they scroll and fetch as documented for static cursors, and remember where each row lies, so that WHERE
// CURRENT OF works.
#pragma once

#include "practice/session/ResultSink.h"
#include "practice/statements/ExecutionContext.h"
#include "practice/tsql/Tree.h"

namespace quillon::practice {

class Executor;
class QueryReader;

class Cursor {
  public:
    /// `tree` owns `definition` and is kept alive with the cursor; `name` is for messages; `module` is the
    /// one that declares it, if any.
    Cursor(std::string name, std::shared_ptr<const tsql::Batch> tree, std::shared_ptr<const Module> module,
           const tsql::CursorDefinition& definition);

    const std::string& Name() const { return m_name; }
    bool IsOpen() const { return m_open; }
    std::int64_t RowCount() const { return static_cast<std::int64_t>(m_rows.size()); }
    const std::vector<ResultColumn>& Columns() const { return m_columns; }
    bool Scrolls() const;
    const tsql::SelectStatement& Query() const { return *m_definition.select; }
    const Module* DeclaredBy() const { return m_module.get(); }

    /// Reads all rows. Throws SqlError 16905 when open already.
    void Open(Executor& executor);
    /// Throws SqlError 16917 when not open.
    void Close();

    /// Moves and tells whether a row is there; `count` is for Absolute and Relative. Throws SqlError 16917,
    /// 16911.
    bool Fetch(tsql::FetchDirection direction, std::int64_t count);
    /// The row under the cursor after a Fetch that found one.
    const std::vector<Datum>& Row() const { return m_rows[static_cast<std::size_t>(m_position - 1)].values; }
    /// For WHERE CURRENT OF. Throws SqlError 16931 without a row, 16929 when the query cannot be updated
    /// through.
    CursorRow Position() const;

  private:
    struct KeptRow {
        std::vector<Datum> values;
        std::optional<CursorRow> position;
    };

    std::int64_t Destination(tsql::FetchDirection direction, std::int64_t count) const;

    std::string m_name;
    std::shared_ptr<const tsql::Batch> m_tree;
    std::shared_ptr<const Module> m_module;
    const tsql::CursorDefinition& m_definition;
    bool m_open = false;
    std::vector<ResultColumn> m_columns;
    std::vector<KeptRow> m_rows;
    std::int64_t m_position = 0; // 1-based; 0 before the first row, one more than there are after the last
};

} // namespace quillon::practice
