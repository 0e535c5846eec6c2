' Execute gives one match, or all with Global.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Set r = CreateObject("VBScript.RegExp")
r.Pattern = "(\w)(\d)?"
Say r.Execute("a1 b").Count '= 1
r.Global = True
Set m = r.Execute("a1 b")
Say m.Count '= 2
Say m(0).Value '= a1
Say m.Item(1).Value '= b
Say m(0) & "" '= a1
Say m(1).FirstIndex '= 3
Say m(0).FirstIndex '= 0
Say m(0).Length '= 2
Say m(0).SubMatches.Count '= 2
Say m(0).SubMatches(0) '= a
Say m(0).SubMatches(1) '= 1
Say IsEmpty(m(1).SubMatches(1)) '= True
Say TypeName(m) '= IMatchCollection2
Say TypeName(m(0)) '= IMatch2
Say TypeName(m(0).SubMatches) '= ISubMatches
Say r.Execute("!").Count '= 0
Say ErrorOf("m(2)") '= 5
Say ErrorOf("m(0).SubMatches(2)") '= 5
