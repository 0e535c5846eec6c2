#include "practice/statements/define/CascadePaths.h"

namespace quillon::practice {

namespace {

using Action = ReferenceAction ForeignKey::*;

class Paths {
  public:
    Paths(const Catalogue& catalogue, const Table& table, Action action)
        : m_catalogue(catalogue)
        , m_table(table)
        , m_action(action) {}

    bool Meet() const {
        for (const ObjectId start : DownFrom(m_table.id))
            if (MeetAbove(start))
                return true;
        return false;
    }

  private:
    // The tables that a table hangs on, one for each cascading key.
    std::vector<ObjectId> Above(ObjectId id) const {
        std::vector<ObjectId> parents;
        const auto known = id == m_table.id ? nullptr : m_catalogue.FindTable(id);
        const Table* table = id == m_table.id ? &m_table : known.get();
        for (const ForeignKey& key : table != nullptr ? table->foreignKeys : std::vector<ForeignKey>())
            if (key.*m_action != ReferenceAction::NoAction)
                parents.push_back(key.referenced);
        return parents;
    }

    // The table and all that hang on it.
    std::set<ObjectId> DownFrom(ObjectId id) const {
        std::set<ObjectId> found{id};
        std::vector<ObjectId> open{id};
        while (!open.empty()) {
            const auto table = m_catalogue.FindTable(open.back());
            open.pop_back();
            for (const ObjectId child : table ? table->referencedBy : decltype(table->referencedBy)()) {
                const std::vector<ObjectId> parents = Above(child);
                if (table && std::find(parents.begin(), parents.end(), table->id) != parents.end() &&
                    found.insert(child).second)
                    open.push_back(child);
            }
        }
        return found;
    }

    bool MeetAbove(ObjectId start) const {
        std::set<ObjectId> seen{start};
        std::vector<ObjectId> open{start};
        while (!open.empty()) {
            const ObjectId id = open.back();
            open.pop_back();
            for (const ObjectId parent : Above(id)) {
                if (!seen.insert(parent).second)
                    return true;
                open.push_back(parent);
            }
        }
        return false;
    }

    const Catalogue& m_catalogue;
    const Table& m_table;
    Action m_action;
};

} // namespace

bool CascadesMeet(const Catalogue& catalogue, const Table& table) {
    return Paths(catalogue, table, &ForeignKey::onDelete).Meet() ||
           Paths(catalogue, table, &ForeignKey::onUpdate).Meet();
}

} // namespace quillon::practice
