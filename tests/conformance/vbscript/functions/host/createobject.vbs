' CreateObject knows two objects; everything else cannot be created.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say TypeName(CreateObject("VBScript.RegExp")) '= IRegExp2
Say TypeName(CreateObject("vbscript.regexp")) '= IRegExp2
Say TypeName(CreateObject("Scripting.Dictionary")) '= Dictionary
Say ErrorOf("CreateObject(""Scripting.FileSystemObject"")") '= 429
Say ErrorOf("CreateObject(""WScript.Shell"")") '= 429
Say ErrorOf("CreateObject(""ADODB.Connection"")") '= 429
Say ErrorOf("CreateObject("""")") '= 429
Say ErrorOf("GetObject(""x"")") '= 429
Say ErrorOf("GetObject(, ""Excel.Application"")") '= 429
