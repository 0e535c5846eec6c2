// A printed report: a title, headings, and a row of text boxes for each record.
//
// Used by: reporting/ (rptStandard, rptAggregate). Shown and printed by the front end, which does the paging.
#pragma once

#include <string>
#include <vector>

namespace quillon {

struct PrintedReport {
    struct Column {
        std::string Caption;   // heading label
        std::string DataField; // field of the data source
        bool Visible = true;
    };
    std::string Title;
    std::vector<Column> Columns;
    std::vector<std::vector<std::string>> Rows; // texts by column, visible ones only
};

} // namespace quillon
