Class Column
  Public Name
  Public DataType
  Public Property Get Declaration
    Declaration = "[" & Name & "] " & DataType
  End Property
End Class
Class Table
  Public Name
  Private m_columns
  Private m_count
  Private Sub Class_Initialize
    m_count = 0
    ReDim m_columns(29)
  End Sub
  Public Sub Add(c)
    Set m_columns(m_count) = c
    m_count = m_count + 1
  End Sub
  Public Property Get Count
    Count = m_count
  End Property
  Public Property Get Column(i)
    Set Column = m_columns(i)
  End Property
End Class
Class Generator
  Private m_text
  Public Sub Line(t)
    m_text = m_text & t & vbCrLf
  End Sub
  Public Function Trigger(t)
    Dim i, c
    m_text = ""
    Line "CREATE TRIGGER [tr_" & t.Name & "] ON [" & t.Name & "] FOR UPDATE AS"
    For i = 0 To t.Count - 1
      Set c = t.Column(i)
      If c.DataType <> "ntext" Then
        Line "  DECLARE @" & LCase(c.Name) & " " & c.DataType
        Line "  IF UPDATE(" & c.Declaration & ")"
        Line "    INSERT INTO audit SELECT '" & Replace(c.Name, "'", "''") & "', d." & c.Name & ", i." & c.Name
      End If
    Next
    Line "GO"
    Trigger = m_text
  End Function
End Class
Dim tables(199), t, c, i, j, g, total, round
For i = 0 To 199
  Set t = New Table
  t.Name = "Table" & i
  For j = 0 To 29
    Set c = New Column
    c.Name = "Column" & j
    If j Mod 3 = 0 Then c.DataType = "int" Else c.DataType = "varchar(50)"
    t.Add c
  Next
  Set tables(i) = t
Next
Set g = New Generator
For round = 1 To 10
  total = 0
  For Each t In tables
    total = total + Len(g.Trigger(t))
  Next
Next
WScript.Echo total
