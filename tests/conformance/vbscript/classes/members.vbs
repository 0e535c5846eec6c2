Class Person
  Public Name
  Private m_age
  Public Tags(2)
  Public Sub Grow(years)
    m_age = m_age + years
  End Sub
  Public Function Describe()
    Describe = Name & " is " & m_age
  End Function
  Public Property Get Age
    Age = m_age
  End Property
  Public Property Let Age(value)
    m_age = value
  End Property
  Sub Twice
    Grow 1
    Me.Grow 1
    Age = Age + 10
  End Sub
End Class
Dim p, q
Set p = New Person
Set q = New Person
p.Name = "Ann"
p.Age = 30
p.Grow 5
q.Age = 1
Say p.Describe, p.Age, q.Age '= Ann is 35 35 1
Say p.Describe() '= Ann is 35
p.Twice
Say p.Age '= 47
p.Tags(1) = "t"
Say p.Tags(1), UBound(p.Tags) '= t 2
Say TypeName(p), IsObject(p) '= Person True
Set q = p
Say q Is p, q Is Nothing '= True False
On Error Resume Next
Say p.m_age
Say Err.Number '= 438
Err.Clear
p.m_age = 3
Say Err.Number '= 438
Err.Clear
p.Nosuch
Say Err.Number '= 438
Err.Clear
p.Grow
Say Err.Number '= 450
Err.Clear
p.Describe = 4
Say Err.Number '= 438
On Error GoTo 0
p.Missing = 1 '! 438 Object doesn't support this property or method: 'Missing'
