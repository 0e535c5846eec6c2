// Any text: it is parsed into statements that lie inside of it, one after the other, or it is refused with an
// error whose line it has. The first byte chooses SET QUOTED_IDENTIFIER.
#include "practice/tsql/Parser.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace quillon::practice;

void Require(bool holds) {
    if (!holds)
        std::abort();
}

void CheckError(const SqlError& error, int lines) {
    Require(error.number > 0 && !error.text.empty());
    Require(error.line >= 1 && error.line <= lines);
}

void CheckBatch(const tsql::Batch& batch, int lines) {
    std::size_t end = 0;
    for (const tsql::StatementPtr& statement : batch.statements) {
        Require(statement->text.begin >= end && statement->text.end > statement->text.begin);
        Require(statement->text.end <= batch.source.size());
        Require(statement->position.line >= 1 && statement->position.line <= lines);
        end = statement->text.end;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    tsql::ParseOptions options;
    options.quotedIdentifiers = (data[0] & 1) != 0;
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    const auto ends = std::count_if(text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; });
    const int lines = static_cast<int>(ends) + 1;
    try {
        CheckBatch(*tsql::ParseBatch(text, options), lines);
    } catch (const tsql::SyntaxErrors& errors) {
        CheckError(errors, lines);
        for (const SqlError& other : errors.Others())
            CheckError(other, lines);
    }
    tsql::ParseObjectName(text);
    tsql::ParseTypeText(text);
    return 0;
}
