' A large dictionary keeps everything, through growth and removal.
Set d = CreateObject("Scripting.Dictionary")
For i = 1 To 20000
  d("k" & i) = i
Next
Say d.Count '= 20000
Say d("k1") + d("k20000") '= 20001
For i = 1 To 20000 Step 2
  d.Remove "k" & i
Next
Say d.Count '= 10000
Say d.Exists("k1") '= False
Say d("k2") '= 2
Say UBound(d.Items) '= 9999
