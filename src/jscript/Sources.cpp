#include "jscript/Sources.h"

#include <algorithm>

namespace quillon::jscript {
namespace {

constexpr std::string_view CodePrefix = "code";

// Where the next line begins.
std::size_t NextLine(std::string_view text, std::size_t from) {
    const std::size_t end = std::min(text.find_first_of("\r\n", from), text.size());
    return end == text.size() ? end : end + (text.substr(end).starts_with("\r\n") ? 2 : 1);
}

} // namespace

std::string_view LineIn(std::string_view text, std::int32_t line) {
    std::size_t start = 0;
    for (; line > 1 && start < text.size(); --line)
        start = NextLine(text, start);
    text.remove_prefix(start);
    return text.substr(0, text.find_first_of("\r\n"));
}

Place PlaceCounter::At(std::size_t offset) {
    for (; m_at < offset && m_at < m_text.size(); ++m_at) {
        const char c = m_text[m_at];
        if (c == '\n' || (c == '\r' && !m_text.substr(m_at + 1).starts_with('\n')))
            m_place = {m_place.line + 1, 0};
        else if ((static_cast<unsigned char>(c) & 0xC0) != 0x80)
            ++m_place.column;
    }
    return m_place;
}

std::string Sources::AddCode(std::string_view text) {
    m_code.push_back({std::string(CodePrefix) + std::to_string(m_code.size()), std::string(text), {}});
    return m_code.back().name;
}

std::string Sources::SetExpression(std::string_view text) {
    m_expression = {"expression" + std::to_string(m_expressions++), std::string(text), {}};
    return m_expression.name;
}

void Sources::SetLines(std::string_view name, std::vector<LineStart> lines) {
    if (Source* const source = Find(name))
        source->lines = std::move(lines);
}

Sources::Source* Sources::Find(std::string_view name) {
    if (!name.empty() && name == m_expression.name)
        return &m_expression;
    if (!name.starts_with(CodePrefix))
        return nullptr;
    std::size_t index = 0;
    for (const char c : name.substr(CodePrefix.size()))
        index = index * 10 + static_cast<std::size_t>(c - '0');
    return index < m_code.size() && m_code[index].name == name ? &m_code[index] : nullptr;
}

Place Sources::PlaceOf(std::string_view name, std::int32_t line) const {
    const Source* const source = Find(name);
    if (source == nullptr || line < 1)
        return {};
    if (static_cast<std::size_t>(line) <= source->lines.size())
        return source->lines[static_cast<std::size_t>(line) - 1].place;
    return {line, 0};
}

std::string_view Sources::StatementAt(std::string_view name, std::int32_t line) const {
    const Source* const source = Find(name);
    const auto index = static_cast<std::size_t>(line) - 1;
    if (source == nullptr || index >= source->lines.size())
        return {};
    const std::size_t start = source->lines[index].offset;
    const std::size_t end =
        index + 1 < source->lines.size() ? source->lines[index + 1].offset : source->text.size();
    return std::string_view(source->text).substr(start, end - start);
}

std::string Sources::LineOf(std::string_view name, std::int32_t line) const {
    const Source* const source = Find(name);
    return source == nullptr || line < 1 ? std::string() : std::string(LineIn(source->text, line));
}

} // namespace quillon::jscript
