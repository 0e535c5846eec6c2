#include "platform/Editor.h"

#include <algorithm>
#include <map>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Files.h"
#include "platform/Platform.h"

namespace quillon {
namespace {

std::map<std::string, EditorLanguage>& Languages() {
    static std::map<std::string, EditorLanguage> languages;
    return languages;
}

// Length in bytes of the UTF-8 character that begins with this byte.
std::size_t CharacterLength(char lead) {
    const auto byte = static_cast<unsigned char>(lead);
    return byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

// Offset of the start of a line, or the end of the text when there are fewer.
std::size_t LineStart(const std::string& text, int line) {
    std::size_t at = 0;
    for (; line > 0; --line) {
        at = text.find('\n', at);
        if (at == std::string::npos)
            return text.size();
        ++at;
    }
    return at;
}

std::size_t LineEnd(const std::string& text, std::size_t start) {
    auto end = text.find('\n', start);
    if (end == std::string::npos)
        return text.size();
    return end > start && text[end - 1] == '\r' ? end - 1 : end;
}

} // namespace

void Editor::Store(std::string text, bool modified) {
    m_text = std::move(text);
    m_modified = modified;
    Changed();
    Fire(OnChange);
}

void Editor::SetText(std::string text) {
    m_start = m_end = {};
    m_highlighted = -1;
    Store(std::move(text), false);
}

void Editor::Type(std::string text) {
    if (!m_readOnly)
        Store(std::move(text), true);
}

int Editor::LineCount() const {
    return 1 + static_cast<int>(std::ranges::count(m_text, '\n'));
}

std::string Editor::LineText(int line) const {
    const auto start = LineStart(m_text, line);
    return m_text.substr(start, LineEnd(m_text, start) - start);
}

std::size_t Editor::OffsetOf(EditorPosition position) const {
    auto at = LineStart(m_text, position.Line);
    const auto end = LineEnd(m_text, at);
    for (int column = 0; column < position.Column && at < end; ++column)
        at += CharacterLength(m_text[at]);
    return std::min(at, end);
}

void Editor::Select(EditorPosition start, EditorPosition end) {
    if (start == m_start && end == m_end)
        return;
    m_start = start;
    m_end = end;
    Changed(ControlChange::Selection);
    Fire(OnSelectionChange);
}

std::string Editor::SelectedText() const {
    const auto [from, to] = std::minmax({OffsetOf(m_start), OffsetOf(m_end)});
    return m_text.substr(from, to - from);
}

void Editor::ReplaceSelection(const std::string& text) {
    const auto [from, to] = std::minmax({OffsetOf(m_start), OffsetOf(m_end)});
    std::string changed = m_text;
    changed.replace(from, to - from, text);
    Type(std::move(changed));
}

void Editor::GoToLine(int line) {
    Select({line, 0}, {line, 0});
}

void Editor::SetLanguage(const std::string& name) {
    if (FindLanguage(name) == nullptr)
        throw Failure(numbers::Unspecified);
    Assign(m_language, name);
}

void Editor::SetColor(int slot, std::uint32_t colour) {
    std::erase_if(m_colors, [slot](const auto& entry) { return entry.first == slot; });
    m_colors.emplace_back(slot, colour);
    Changed();
}

void Editor::SetFontStyle(int slot, int style) {
    std::erase_if(m_fontStyles, [slot](const auto& entry) { return entry.first == slot; });
    m_fontStyles.emplace_back(slot, style);
    Changed();
}

void Editor::OpenFile(const std::string& path) {
    SetText(ThePlatform().files().ReadAll(path));
}

void Editor::SaveFile(const std::string& path, bool clearModified) {
    ThePlatform().files().Replace(path, m_text);
    if (clearModified)
        SetModified(false);
}

void Editor::Execute(EditorCommand command) {
    if (View != nullptr)
        View->Execute(command);
}

bool Editor::Can(EditorCommand command) const {
    return View != nullptr && View->Can(command);
}

void Editor::RegisterLanguage(EditorLanguage language) {
    auto name = language.Name;
    Languages().insert_or_assign(std::move(name), std::move(language));
}

const EditorLanguage* Editor::FindLanguage(const std::string& name) {
    const auto found = Languages().find(name);
    return found == Languages().end() ? nullptr : &found->second;
}

} // namespace quillon
