// The template editor's current text control as scripts see it, under the name CodeBox.
#pragma once

#include "platform/Object.h"

namespace quillon {

class Editor;

// Members: Text (get, set; the default), SelText (get, set), LineCount, GetLine(line from 0), CurrentLine,
// Modified (get, set), ReadOnly, Language. The editor outlives the object.
ObjectRef MakeCodeBox(Editor& editor);

} // namespace quillon
