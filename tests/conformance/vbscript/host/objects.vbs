Say Host.Name, host.NAME, Host & "!" '= quillon quillon quillon!
Host.Name = "new"
Say Host.Name '= new
Say Host.Items(1), Host.Items.Item(2), Host.Items.Count '= alpha beta 3
Say Host.Items("3") '= gamma
Say Host.Add(1, 2) '= 3
Dim n
n = 4
Host.Twice n
Say n '= 8
Host.Twice (n)
Say n '= 8
Say Host.Self Is Host, TypeName(Host), IsObject(Host.Self.Self) '= True Host True
Dim keep
Set keep = Host.Items
Say keep(1), keep.Count '= alpha 3
On Error Resume Next
n = Host.Nosuch
Say Err.Number, Err.Description '= 438 Object doesn't support this property or method
Err.Clear
n = Host.Items(9)
Say Err.Number '= 9
Err.Clear
n = Host.Add(1)
Say Err.Number '= 450
Err.Clear
n = Host.Items + 1
Say Err.Number '= 450
On Error GoTo 0
Host.ReadOnly = 3 '! 451 Object not a collection: 'ReadOnly'
