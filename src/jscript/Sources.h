// The texts that scripts came from, by the names under which the engine knows them, and where the lines that
// it was given lie in them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::jscript {

// A place in a text: line from 1, column from 0 in characters.
struct Place {
    std::int32_t line = 0, column = 0;
    bool operator==(const Place&) const = default;
};

// The text of a line without its end; empty behind the last.
std::string_view LineIn(std::string_view text, std::int32_t line);

// Counts lines on the way through a text.
class PlaceCounter {
  public:
    explicit PlaceCounter(std::string_view text)
        : m_text(text) {}
    // The place of a byte. Offsets must not go down from call to call.
    Place At(std::size_t offset);

  private:
    std::string_view m_text;
    std::size_t m_at = 0;
    Place m_place{1, 0};
};

// Where a line that the engine was given begins: the first byte of it, and the place of its first word.
struct LineStart {
    std::size_t offset;
    Place place;
    bool operator==(const LineStart&) const = default;
};

class Sources {
  public:
    // Keeps the text of a module, or of an expression until the next one; gives it a name.
    std::string AddCode(std::string_view text);
    std::string SetExpression(std::string_view text);
    // Where each line that the engine gets begins in the text as it was written; without this, the engine's
    // lines are the text's.
    void SetLines(std::string_view name, std::vector<LineStart> lines);

    bool Knows(std::string_view name) const { return Find(name) != nullptr; }
    // The place in the text as it was written of a line of the engine's; {0, 0} if unknown.
    Place PlaceOf(std::string_view name, std::int32_t line) const;
    std::string LineOf(std::string_view name, std::int32_t line) const;
    // What the engine's line holds of the text as it was written.
    std::string_view StatementAt(std::string_view name, std::int32_t line) const;

  private:
    struct Source {
        std::string name, text;
        std::vector<LineStart> lines;
    };
    Source* Find(std::string_view name);
    const Source* Find(std::string_view name) const { return const_cast<Sources*>(this)->Find(name); }

    std::vector<Source> m_code;
    Source m_expression;
    std::size_t m_expressions = 0;
};

} // namespace quillon::jscript
