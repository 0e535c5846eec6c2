// The rows of a bulk load ([MS-TDS] 2.2.6.1): column metadata and rows as a server sends them, here from the
// client.
#pragma once

#include "practice/tds/WireType.h"
#include "practice/values/Datum.h"

#include <string_view>
#include <vector>

namespace quillon::practice::tds {

// Throws ProtocolError for what is malformed. The body must outlive it.
class BulkRows {
  public:
    BulkRows(std::string_view body, std::uint32_t tdsVersion);
    // One value a column; false behind the last row.
    bool Next(std::vector<Datum>& row);

  private:
    void ReadRow(std::string_view nulls, std::vector<Datum>& row);

    ByteReader m_reader;
    std::vector<WireType> m_columns;
};

} // namespace quillon::practice::tds
