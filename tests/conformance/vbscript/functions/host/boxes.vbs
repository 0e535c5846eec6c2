' MsgBox and InputBox go to the front end; what is left out takes its default.
Dim answer
answer = MsgBox("Go on?", vbYesNo + vbQuestion, "Question") '= Go on?/36/Question
Say answer, TypeName(answer) '= 6 Integer
MsgBox "plain" '= plain/0/VBScript
MsgBox 12.5, , "T" '= 12.5/0/T
answer = InputBox("Name?") '= Name?/VBScript/
Say answer, TypeName(answer) '= typed String
answer = InputBox("Name?", "Title", "default") '= Name?/Title/default
answer = InputBox("Name?", , "default") '= Name?/VBScript/default
MsgBox Null '! 94
