// While the text of a view or function is expanded, names mean what they mean at its home, and the common
// tables of the statement around it are not seen.
#pragma once

#include "practice/statements/translate/Translator.h"

namespace quillon::practice {

template <class CommonTables, class Recursions>
class SurroundingsGuard {
  public:
    SurroundingsGuard(Surroundings& here, const Surroundings& inside, CommonTables& tables,
                      Recursions& recursions)
        : m_here(here)
        , m_tables(tables)
        , m_recursions(recursions) {
        m_savedHere = std::exchange(here, inside);
        m_savedTables = std::exchange(tables, {});
        m_savedRecursions = std::exchange(recursions, {});
    }
    ~SurroundingsGuard() {
        m_here = m_savedHere;
        m_tables = std::move(m_savedTables);
        m_recursions = std::move(m_savedRecursions);
    }
    SurroundingsGuard(const SurroundingsGuard&) = delete;
    SurroundingsGuard& operator=(const SurroundingsGuard&) = delete;

  private:
    Surroundings& m_here;
    CommonTables& m_tables;
    Recursions& m_recursions;
    Surroundings m_savedHere;
    CommonTables m_savedTables;
    Recursions m_savedRecursions;
};

} // namespace quillon::practice
