Class A
    Property Get P
    End Function '! 1050
End Class
