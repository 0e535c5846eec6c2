#include "desktop/bind/EditorWidget.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

#include "desktop/Boxes.h"
#include "desktop/Theme.h"
#include "desktop/bind/Act.h"
#include "desktop/bind/Binding.h"
#include "desktop/bind/Keys.h"
#include "desktop/bind/LanguageLexer.h"
#include "desktop/bind/Text.h"

namespace quillon::desktop {
namespace {

// Names of our own: the library has a NumberMargin too, which is a kind of margin and no place.
constexpr int linesPlace = 0, foldsPlace = 1, leftPlace = 2;
constexpr int errorMarker = 8;

} // namespace

EditorWidget::EditorWidget(Editor& editor)
    : m_editor(editor) {
    setUtf8(true);
    setWrapMode(WrapNone);
    setTabWidth(4);
    setScrollWidth(1);
    setScrollWidthTracking(true);
    setMarginWidth(foldsPlace, 0);
    markerDefine(Background, errorMarker);
    m_binding = new Binding(*this, editor, [this](ControlChange change) { Follow(change); });
    editor.View = this;
    connect(this, &QsciScintilla::textChanged, this, [this] { TakeText(); });
    connect(this, &QsciScintilla::cursorPositionChanged, this, [this] { TakeSelection(); });
    connect(this, &QsciScintilla::selectionChanged, this, [this] { TakeSelection(); });
    connect(this, &QsciScintilla::linesChanged, this, [this] { ShowMargins(); });
}

EditorWidget::~EditorWidget() {
    if (m_editor.View == this)
        m_editor.View = nullptr;
}

void EditorWidget::Follow(ControlChange change) {
    if (m_taking)
        return;
    ShowText();
    if (change == ControlChange::State) {
        setReadOnly(m_editor.ReadOnly());
        ShowLanguage();
        ShowMargins();
        ShowMark();
    }
    if (change == ControlChange::Selection)
        ShowSelection();
}

void EditorWidget::ShowText() {
    const QString shown = Text(m_editor.Text());
    if (text() == shown)
        return;
    const bool isReadOnly = QsciScintilla::isReadOnly();
    setReadOnly(false);
    setText(shown);
    setReadOnly(isReadOnly);
}

void EditorWidget::ShowLanguage() {
    const std::string wanted = m_editor.ColorSyntax() ? m_editor.Language() : std::string();
    if (m_language == wanted)
        return;
    m_language = wanted;
    setLexer(nullptr);
    m_lexer.reset();
    const Theme& theme = Theme::Current();
    if (const EditorLanguage* language = Editor::FindLanguage(wanted)) {
        m_lexer = std::make_unique<LanguageLexer>(*language);
        setLexer(m_lexer.get());
    } else {
        setFont(Theme::EditorFont());
        setColor(theme.text);
        setPaper(theme.base);
    }
    setCaretForegroundColor(theme.text);
    setCaretLineVisible(true);
    setCaretLineBackgroundColor(theme.line);
    setSelectionBackgroundColor(theme.accent);
    setSelectionForegroundColor(theme.onAccent);
    setMarginsForegroundColor(theme.faint);
    setMarginsBackgroundColor(theme.window);
    setMarkerBackgroundColor(theme.mark, errorMarker);
    if (m_lexer)
        m_lexer->ApplyColours();
}

void EditorWidget::ShowMargins() {
    setMarginLineNumbers(linesPlace, m_editor.LineNumbers());
    if (m_editor.LineNumbers())
        setMarginWidth(linesPlace, QString(" %1").arg(lines() * 10));
    else
        setMarginWidth(linesPlace, 0);
    setMarginWidth(leftPlace, m_editor.LeftMargin() ? fontMetrics().averageCharWidth() * 2 : 0);
}

void EditorWidget::ShowMark() {
    markerDeleteAll(errorMarker);
    if (m_editor.HighlightedLine() < 0)
        return;
    markerAdd(m_editor.HighlightedLine(), errorMarker);
    ensureLineVisible(m_editor.HighlightedLine());
}

void EditorWidget::ShowSelection() {
    const auto start = m_editor.SelectionStart();
    const auto end = m_editor.SelectionEnd();
    setSelection(start.Line, start.Column, end.Line, end.Column);
    ensureCursorVisible();
}

void EditorWidget::TakeText() {
    if (m_binding->IsWriting() || isReadOnly())
        return;
    m_taking = true;
    Act([this] { m_editor.Type(Text(text())); });
    m_taking = false;
}

void EditorWidget::TakeSelection() {
    if (m_binding->IsWriting() || m_taking)
        return;
    EditorPosition start;
    EditorPosition end;
    getCursorPosition(&end.Line, &end.Column);
    start = end;
    if (hasSelectedText())
        getSelection(&start.Line, &start.Column, &end.Line, &end.Column);
    m_taking = true;
    Act([&] { m_editor.Select(start, end); });
    m_taking = false;
}

bool EditorWidget::Can(EditorCommand command) const {
    switch (command) {
    case EditorCommand::Undo: return isUndoAvailable();
    case EditorCommand::Redo: return isRedoAvailable();
    case EditorCommand::Cut:
    case EditorCommand::Delete: return hasSelectedText() && !isReadOnly();
    case EditorCommand::Copy: return hasSelectedText();
    case EditorCommand::Paste:
    case EditorCommand::Replace:
    case EditorCommand::UpperCase:
    case EditorCommand::LowerCase: return !isReadOnly();
    default: return true;
    }
}

void EditorWidget::ChangeCase(QString (*change)(const QString&)) {
    if (hasSelectedText())
        replaceSelectedText(change(selectedText()));
}

bool EditorWidget::AskWhatToFind(const QString& title) {
    const auto sought =
        ShowTextQuestion(this, "Text to find:", title, hasSelectedText() ? selectedText() : m_sought);
    if (!sought || sought->isEmpty())
        return false;
    m_sought = *sought;
    return true;
}

void EditorWidget::ReplaceAll() {
    if (!AskWhatToFind("Replace"))
        return;
    const auto replacement = ShowTextQuestion(this, "Put in every place of it:", "Replace", "");
    if (!replacement)
        return;
    beginUndoAction();
    for (bool found = findFirst(m_sought, false, false, false, false, true, 0, 0); found; found = findNext())
        replace(*replacement);
    endUndoAction();
}

void EditorWidget::Find(bool again, bool backward) {
    if (!again || m_sought.isEmpty()) {
        if (!AskWhatToFind("Find"))
            return;
    }
    int line = -1;
    int column = -1;
    if (backward && hasSelectedText()) {
        int endLine = 0;
        int endColumn = 0;
        getSelection(&line, &column, &endLine, &endColumn);
    }
    findFirst(m_sought, false, false, false, true, !backward, line, column);
}

void EditorWidget::Execute(EditorCommand command) {
    switch (command) {
    case EditorCommand::Undo: undo(); break;
    case EditorCommand::Redo: redo(); break;
    case EditorCommand::Cut: cut(); break;
    case EditorCommand::Copy: copy(); break;
    case EditorCommand::Paste: paste(); break;
    case EditorCommand::Delete: removeSelectedText(); break;
    case EditorCommand::SelectAll: selectAll(); break;
    case EditorCommand::Find: Find(false, false); break;
    case EditorCommand::FindNext: Find(true, false); break;
    case EditorCommand::FindPrev: Find(true, true); break;
    case EditorCommand::Replace: ReplaceAll(); break;
    case EditorCommand::ShowWhitespace:
        setWhitespaceVisibility(whitespaceVisibility() == WsInvisible ? WsVisible : WsInvisible);
        break;
    case EditorCommand::UpperCase: ChangeCase([](const QString& text) { return text.toUpper(); }); break;
    case EditorCommand::LowerCase: ChangeCase([](const QString& text) { return text.toLower(); }); break;
    default: break;
    }
}

void EditorWidget::keyPressEvent(QKeyEvent* event) {
    if (const auto key = KeyOf(*event); key && m_editor.OnKeyDown)
        Act([&] { m_editor.OnKeyDown(*key, ShiftOf(*event)); });
    // Tab leaves a text that cannot be typed in, so that the keyboard is not caught there.
    if (isReadOnly() && (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab)) {
        focusNextPrevChild(event->key() == Qt::Key_Tab);
        return;
    }
    QsciScintilla::keyPressEvent(event);
}

void EditorWidget::contextMenuEvent(QContextMenuEvent* event) {
    if (m_editor.OnRightClick)
        Act(m_editor.OnRightClick);
    else
        QsciScintilla::contextMenuEvent(event);
}

void EditorWidget::changeEvent(QEvent* event) {
    QsciScintilla::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_binding != nullptr) {
        m_language.reset(); // takes the colours anew
        ShowLanguage();
    }
}

} // namespace quillon::desktop
