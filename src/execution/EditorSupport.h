// What the screens that show a text in an editor have in common: the language, the status bar, the way they
// close.
#pragma once

#include <string>

#include "platform/Bars.h"
#include "platform/Editor.h"

namespace quillon {

// Languages are registered at start; a screen that comes before that registers them itself.
void SetEditorLanguage(Editor& editor, const char* language);

// Panels of the status bars of these screens.
enum EditorPanel : std::size_t { LinesPanel = 1, LinePanel = 2 };
// "Lines: 12  " in the first panel, `caption` in front of the number.
void ShowLineCount(StatusBar& bar, const Editor& editor, const std::string& caption);
// The number of lines and the line of the caret, from 1.
void ShowCaret(StatusBar& bar, const Editor& editor);

// The main screen has the focus: it is closing, and takes the others down with it.
bool IsMainActive();

} // namespace quillon
