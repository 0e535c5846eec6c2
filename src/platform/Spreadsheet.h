// A spreadsheet that a report is exported to.
//
// Used by: reporting/ (Export2Excel). Implemented by: adapters/spreadsheet, which writes a file and lets the
// front end open it. Failures: 429 when no spreadsheet can be had, 75 when the file cannot be written.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/Value.h"

namespace quillon {

class Spreadsheet {
  public:
    virtual ~Spreadsheet() = default;
    virtual void SetCell(std::int32_t row, std::int32_t column, const Value& value) = 0; // both from 1
    virtual void AutoFitColumns() = 0;
    // Ends the work and shows the workbook to the user.
    virtual void Show() = 0;
};

class SpreadsheetLibrary {
  public:
    virtual ~SpreadsheetLibrary() = default;
    virtual std::unique_ptr<Spreadsheet> NewWorkbook() = 0;
};

} // namespace quillon
