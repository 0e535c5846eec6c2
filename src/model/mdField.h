// One column of a table, and whether it is to be audited.
#pragma once

#include "model/mdColumn.h"

namespace quillon {

class mdField : public mdColumn {
  public:
    mdField() = default;
    explicit mdField(ColumnProperties column)
        : mdColumn(std::move(column)) {}

    bool IsInPrimaryKey() const noexcept { return m_isInPrimaryKey; }
    bool IsChecked() const noexcept { return m_isChecked; }
    bool IsKey() const noexcept { return m_isKey; }

    void SetIsInPrimaryKey(bool value) { m_isInPrimaryKey = value; }
    // Selects the column for audit. Large objects cannot be read in a trigger, so a column of type text,
    // ntext or image stays unselected whatever is asked; the type must have been set before.
    void SetIsChecked(bool value);
    // The loader leaves this alone; who wants key membership reads IsInPrimaryKey.
    void SetIsKey(bool value) { m_isKey = value; }

  private:
    bool m_isInPrimaryKey = false;
    bool m_isChecked = false;
    bool m_isKey = false;
};

} // namespace quillon
