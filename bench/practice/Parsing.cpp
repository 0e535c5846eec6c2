// A long script must not make its author wait.
#include "bench/practice/Measures.h"
#include "practice/tsql/Parser.h"

namespace quillon::practice::bench {

std::vector<Measure> MeasureParsing() {
    constexpr std::size_t size = 1024 * 1024;
    std::string text;
    for (int number = 0; text.size() < size; ++number) {
        const std::string id = std::to_string(number);
        text +=
            "IF EXISTS (SELECT * FROM sysobjects WHERE id = OBJECT_ID('dbo.[table " + id +
            "]'))\nBEGIN\n    UPDATE [table " + id + "] SET a = CASE WHEN b > " + id +
            " THEN c + 1 ELSE LEFT(d, 10) END, e = NULL -- why\n    FROM [table " + id +
            "] t INNER JOIN other o ON o.id = t.id AND o.kind IN (1, 2, 3)\n    WHERE t.f LIKE N'%x%'\nEND\n";
    }
    const double start = SecondsNow();
    auto batch = tsql::ParseBatch(std::move(text));
    const double seconds = SecondsNow() - start;
    return {{"parsing a batch of 1 MB", seconds, "s", 1, false}};
}

} // namespace quillon::practice::bench
