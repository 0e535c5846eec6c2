// What a server answers to a batch, item by item, and what a script expects of it.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillon::conformance {

struct Answer {
    enum class Kind { Row, Columns, Count, Message, Error };
    Kind kind = Kind::Row;
    std::string text; // values or names joined by |, the count, or the text of the message
    int number = 0;   // messages and errors
    std::optional<int> line;
};

// As a script writes it: "row 1|a", "columns x|y", "count 2", "message 0: text", "error 208 line 3: text".
std::string Written(const Answer& answer);
// The reverse. Throws std::runtime_error when it is none of these.
Answer ReadExpected(const std::string& text);
// Whether the answer is what is expected: a line or text that the script leaves out may be anything, and a *
// in a text stands for any characters.
bool Fits(const Answer& expected, const Answer& actual);

} // namespace quillon::conformance
