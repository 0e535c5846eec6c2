Class A
    Sub S
        Exit Property '! 1039
    End Sub
End Class
