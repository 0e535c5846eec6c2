#pragma once

// The whole syntax tree, and the batch that owns one.

#include "practice/tsql/TreeControl.h"
#include "practice/tsql/TreeSecurity.h"

namespace quillon::practice::tsql {

/// A parsed batch: its text and its statements. Spans and positions of the nodes point into `source`.
struct Batch {
    std::string source;
    StatementList statements;

    std::string_view Text(Span span) const {
        return std::string_view(source).substr(span.begin, span.end - span.begin);
    }
};

} // namespace quillon::practice::tsql
