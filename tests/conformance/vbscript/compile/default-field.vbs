Class A
    Public Default Field '! 1056
End Class
