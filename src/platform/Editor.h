// The text editor control: text with a language, a caret, a modified mark and commands.
//
// Used by: the template editor (four of them), script editor, DDL viewer, results screen, removal log, job
// properties. The control holds text, caret, selection and options; editing commands (undo, find, upper case
// ...) are carried by the view that shows it and do nothing without one. Lines and columns count from 0,
// positions in characters.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Control.h"
#include "platform/Screen.h"

namespace quillon {

enum class EditorCommand {
    Undo,
    Redo,
    Cut,
    Copy,
    Paste,
    Delete,
    SelectAll,
    Find,
    FindNext,
    FindPrev,
    Replace,
    ShowWhitespace,
    UpperCase,
    LowerCase,
    CodeList, // opens the member list
    CodeTip,  // opens the hint
};

// A language as the editor colours it: registered once under its name.
struct EditorLanguage {
    std::string Name;
    bool CaseSensitive = false;
    std::string SingleLineComment;
    std::string MultiLineCommentStart;
    std::string MultiLineCommentEnd;
    std::string StringDelimiters; // each character is one
    char Escape = '\\';
    char Terminator = 0;
    std::vector<std::string> Keywords;
    std::vector<std::string> Operators;
    std::vector<std::string> TagElementNames;
    std::vector<std::string> ScopeTags;
};

// The view's side of an editor: what only a widget can do.
class EditorView {
  public:
    virtual ~EditorView() = default;
    virtual void Execute(EditorCommand command) = 0;
    virtual bool Can(EditorCommand command) const = 0;
};

struct EditorPosition {
    int Line = 0;
    int Column = 0;
    bool operator==(const EditorPosition&) const = default;
};

class Editor : public Control {
  public:
    using Control::Control;

    const std::string& Text() const noexcept { return m_text; }
    // Replaces the text from code: caret to the start, not modified. Fires OnChange.
    void SetText(std::string text);
    // A person's typing: the view hands the new text over. Marks as modified and fires OnChange.
    void Type(std::string text);
    bool Modified() const noexcept { return m_modified; }
    void SetModified(bool modified) { Assign(m_modified, modified); }
    bool ReadOnly() const noexcept { return m_readOnly; }
    void SetReadOnly(bool readOnly) { Assign(m_readOnly, readOnly); }

    // At least 1: an empty text has one line.
    int LineCount() const;
    std::string LineText(int line) const;

    EditorPosition SelectionStart() const noexcept { return m_start; }
    EditorPosition SelectionEnd() const noexcept { return m_end; } // the caret
    void Select(EditorPosition start, EditorPosition end);
    int CaretLine() const noexcept { return m_end.Line; }
    std::string SelectedText() const;
    // Puts text in place of the selection, as typed.
    void ReplaceSelection(const std::string& text);

    // The marked line, -1 for none.
    int HighlightedLine() const noexcept { return m_highlighted; }
    void SetHighlightedLine(int line) { Assign(m_highlighted, line); }
    void GoToLine(int line);

    const std::string& Language() const noexcept { return m_language; }
    // Raises Unspecified (0x80004005) for a language that is not registered.
    void SetLanguage(const std::string& name);
    bool ColorSyntax() const noexcept { return m_colorSyntax; }
    void SetColorSyntax(bool on) { Assign(m_colorSyntax, on); }
    void SetColor(int slot, std::uint32_t colour);
    void SetFontStyle(int slot, int style);
    const std::vector<std::pair<int, std::uint32_t>>& Colors() const noexcept { return m_colors; }
    bool LineNumbers() const noexcept { return m_lineNumbers; }
    void SetLineNumbers(bool on) { Assign(m_lineNumbers, on); }
    bool LeftMargin() const noexcept { return m_leftMargin; }
    void SetLeftMargin(bool on) { Assign(m_leftMargin, on); }
    bool NormalizeCase() const noexcept { return m_normalizeCase; }
    void SetNormalizeCase(bool on) { Assign(m_normalizeCase, on); }

    // Files go through the platform; failures as there. `clearModified` tells whether the text then counts as
    // saved.
    void OpenFile(const std::string& path);
    void SaveFile(const std::string& path, bool clearModified);

    void Execute(EditorCommand command);
    bool Can(EditorCommand command) const;
    EditorView* View = nullptr;

    // --- the registry of languages, one for the process ---
    static void RegisterLanguage(EditorLanguage language);
    static const EditorLanguage* FindLanguage(const std::string& name); // none if unknown

    std::function<void()> OnChange;
    std::function<void()> OnSelectionChange;
    std::function<void()> OnRightClick;
    std::function<void(Key, int shift)> OnKeyDown;
    std::function<void(int keyCode, int shift)> OnKeyPress;

  private:
    void Store(std::string text, bool modified);
    std::size_t OffsetOf(EditorPosition position) const;

    std::string m_text;
    std::string m_language;
    std::vector<std::pair<int, std::uint32_t>> m_colors;
    std::vector<std::pair<int, int>> m_fontStyles;
    EditorPosition m_start;
    EditorPosition m_end;
    int m_highlighted = -1;
    bool m_modified = false;
    bool m_readOnly = false;
    bool m_colorSyntax = false;
    bool m_lineNumbers = false;
    bool m_leftMargin = false;
    bool m_normalizeCase = false;
};

} // namespace quillon
