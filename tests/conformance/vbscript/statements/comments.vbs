' a comment
Rem another
Dim x ' behind a statement
x = 1 : Rem behind a colon
x = "it's" & _
  " continued" & _
  "!"
Say x '= it's continued!
If x = x _
  And True Then x = "far"
Say x '= far
:: Say "colons" :: '= colons
