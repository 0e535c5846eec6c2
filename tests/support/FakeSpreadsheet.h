// Workbooks in memory, which fail where the plan says so.
//
//     FakeSpreadsheets spreadsheets{plan};
//     ... what exports a report ...
//     EXPECT_EQ(spreadsheets.Books[0].Cells.at({1, 1}), Value("Table"));
//
// Operations "Spreadsheet.member", and "Spreadsheets.NewWorkbook".
#pragma once

#include <deque>
#include <map>
#include <utility>

#include "platform/Spreadsheet.h"
#include "support/FaultPlan.h"

namespace quillon::tests {

// What became of a workbook; outlives it.
struct FakeWorkbook {
    std::map<std::pair<std::int32_t, std::int32_t>, Value> Cells; // by row and column
    bool IsFitted = false;
    bool IsShown = false;
};

class FakeSpreadsheets : public SpreadsheetLibrary {
  public:
    explicit FakeSpreadsheets(FaultPlan& plan)
        : m_plan(plan) {}

    std::deque<FakeWorkbook> Books; // in the order of their making

    std::unique_ptr<Spreadsheet> NewWorkbook() override {
        m_plan.Ask("Spreadsheets.NewWorkbook");
        return std::make_unique<Sheet>(Books.emplace_back(), m_plan);
    }

  private:
    class Sheet : public Spreadsheet {
      public:
        Sheet(FakeWorkbook& book, FaultPlan& plan)
            : m_book(book)
            , m_plan(plan) {}

        void SetCell(std::int32_t row, std::int32_t column, const Value& value) override {
            m_plan.Ask("Spreadsheet.SetCell");
            m_book.Cells[{row, column}] = value;
        }
        void AutoFitColumns() override {
            m_plan.Ask("Spreadsheet.AutoFitColumns");
            m_book.IsFitted = true;
        }
        void Show() override {
            m_plan.Ask("Spreadsheet.Show");
            m_book.IsShown = true;
        }

      private:
        FakeWorkbook& m_book;
        FaultPlan& m_plan;
    };

    FaultPlan& m_plan;
};

} // namespace quillon::tests
