' Replace fills in the dollar forms.
Set r = New RegExp
r.Pattern = "(\w+) (\w+)"
Say r.Replace("one two, three four", "$2 $1") '= two one, three four
r.Global = True
Say r.Replace("one two, three four", "$2 $1") '= two one, four three
Say r.Replace("one two", "[$&]") '= [one two]
Say r.Replace("one two", "$$1") '= $1
Say r.Replace("one two", "$3$0") '= $3$0
Say r.Replace("one two", "$") '= $
Say r.Replace("(one two)", "$`|$'") '= ((|))
Say r.Replace("one two", "$01") '= one
Say r.Replace("one two", "$12") '= one2
r.Pattern = "x*"
Say r.Replace("axb", "-") '= -a--b-
r.Pattern = "nowhere"
Say r.Replace("abc", "x") '= abc
