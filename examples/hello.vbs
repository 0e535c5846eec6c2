' quillon-console script examples/hello.vbs
Function ReturnThis()
    Dim names, name, text
    names = Split("insert update delete")
    For Each name In names
        text = text & "FOR " & UCase(name) & vbCrLf
    Next
    ReturnThis = text & "written on a " & WeekdayName(Weekday(#2/28/2024#))
End Function
