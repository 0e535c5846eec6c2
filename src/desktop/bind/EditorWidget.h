// The editor control as a widget: Scintilla with a lexer made from the language that the control names.
#pragma once

#include <Qsci/qsciscintilla.h>

#include <memory>
#include <optional>
#include <string>

#include "platform/Editor.h"

namespace quillon::desktop {

class Binding;
class LanguageLexer;

class EditorWidget : public QsciScintilla, public EditorView {
  public:
    explicit EditorWidget(Editor& editor);
    ~EditorWidget() override;

    // --- EditorView ---
    void Execute(EditorCommand command) override;
    bool Can(EditorCommand command) const override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void Follow(ControlChange change);
    void ShowText();
    void ShowLanguage();
    void ShowMargins();
    void ShowMark();
    void ShowSelection();
    void TakeText();
    void TakeSelection();
    void ChangeCase(QString (*change)(const QString&));
    // False when there is nothing to look for.
    bool AskWhatToFind(const QString& title);
    void ReplaceAll();
    void Find(bool again, bool backward);

    Editor& m_editor;
    Binding* m_binding = nullptr;
    std::unique_ptr<LanguageLexer> m_lexer;
    std::optional<std::string> m_language; // as shown; none before the first time
    QString m_sought;
    bool m_taking = false; // the control is written from the widget
};

} // namespace quillon::desktop
