// The words of VBScript that a change may put in.
#include "support/WordMutator.h"

namespace {

// clang-format off
constexpr std::string_view language[] = {
    "Dim", "ReDim", "Preserve", "Erase", "Const", "Set", "Let", "Call", "If", "Then", "Else",
    "ElseIf", "End If", "Select Case", "Case", "Case Else", "End Select", "For", "To", "Step",
    "Next", "For Each", "In", "Do", "Loop", "While", "Wend", "Until", "Exit For", "Exit Do",
    "Exit Sub", "Exit Function", "With", "End With", "Sub", "End Sub", "Function", "End Function",
    "Class", "End Class", "Property Get", "Property Let", "Property Set", "End Property", "Public",
    "Private", "Default", "ByVal", "ByRef", "New", "Nothing", "Null", "Empty", "True", "Me", "Is",
    "Not", "And", "Or", "Xor", "Eqv", "Imp", "Mod", "On Error", "Resume Next", "GoTo 0",
    "Err.Raise", "Err", "Execute", "ExecuteGlobal", "Eval", "GetRef", "RegExp", "CreateObject",
    "Array", "Split", "Join", "Filter", "Replace", "Mid", "Left", "String", "Space", "CDate",
    "CInt", "CDbl", "CCur", "DateAdd", "DateDiff", "FormatNumber", "UBound", "Class_Initialize",
    "Class_Terminate", "Option Explicit", "Rem", "main", "result", "a", "b", "c", "x", "(", ")",
    ",", ".", ":", "=", "<>", "+", "-", "*", "/", "^", "&", "_", "0", "1", "-1", "2", "32767",
    "1e308", "&HFFFF", "#1/1/2000#", "\"\"", "\"a\"", "\n",
};
// clang-format on

} // namespace

const std::span<const std::string_view> quillon::fuzz::words{language};
