#include "practice/session/Cursor.h"

#include "practice/statements/Executor.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

const char* DirectionName(tsql::FetchDirection direction) {
    static constexpr const char* names[] = {"next", "prior", "first", "last", "absolute", "relative"};
    return names[static_cast<int>(direction)];
}

} // namespace

Cursor::Cursor(std::string name, std::shared_ptr<const tsql::Batch> tree,
               std::shared_ptr<const Module> module, const tsql::CursorDefinition& definition)
    : m_name(std::move(name))
    , m_tree(std::move(tree))
    , m_module(std::move(module))
    , m_definition(definition) {}

bool Cursor::Scrolls() const {
    if (m_definition.fastForward || m_definition.forwardOnly)
        return false;
    return m_definition.scroll || m_definition.isStatic || m_definition.keyset || m_definition.dynamic ||
           m_definition.insensitive;
}

void Cursor::Open(Executor& executor) {
    if (m_open)
        throw SqlError(16905);
    const bool updatable = !m_definition.readOnly && !m_definition.fastForward && !m_definition.insensitive;
    const std::unique_ptr<QueryReader> reader = executor.Open(*m_definition.select, updatable);
    m_rows.clear();
    m_columns = reader->Columns();
    for (KeptRow row; reader->Next(row.values); row = {}) {
        if (updatable)
            row.position = reader->Position();
        m_rows.push_back(std::move(row));
    }
    m_position = 0;
    m_open = true;
}

void Cursor::Close() {
    if (!m_open)
        throw SqlError(16917);
    m_open = false;
    m_rows.clear();
}

std::int64_t Cursor::Destination(tsql::FetchDirection direction, std::int64_t count) const {
    const std::int64_t rows = RowCount();
    switch (direction) {
    case tsql::FetchDirection::Next: return m_position + 1;
    case tsql::FetchDirection::Prior: return m_position - 1;
    case tsql::FetchDirection::First: return 1;
    case tsql::FetchDirection::Last: return rows;
    case tsql::FetchDirection::Absolute: return count >= 0 ? count : rows + 1 + count;
    case tsql::FetchDirection::Relative: return m_position + count;
    }
    return 0;
}

bool Cursor::Fetch(tsql::FetchDirection direction, std::int64_t count) {
    if (!m_open)
        throw SqlError(16917);
    if (direction != tsql::FetchDirection::Next && !Scrolls())
        throw SqlError(16911, {"fetch", DirectionName(direction)});
    m_position = std::clamp<std::int64_t>(Destination(direction, count), 0, RowCount() + 1);
    return m_position >= 1 && m_position <= RowCount();
}

CursorRow Cursor::Position() const {
    if (!m_open)
        throw SqlError(16917);
    if (m_position < 1 || m_position > RowCount())
        throw SqlError(16931);
    const auto& position = m_rows[static_cast<std::size_t>(m_position - 1)].position;
    if (!position)
        throw SqlError(16929);
    return *position;
}

} // namespace quillon::practice
