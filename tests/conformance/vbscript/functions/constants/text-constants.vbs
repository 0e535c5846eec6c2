' Text constants.
Say vbCr = Chr(13) '= True
Say vbLf = Chr(10) '= True
Say vbCrLf = Chr(13) & Chr(10) '= True
Say vbNewLine = vbCrLf '= True
Say vbTab = Chr(9) '= True
Say vbVerticalTab = Chr(11) '= True
Say vbFormFeed = Chr(12) '= True
Say vbBack = Chr(8) '= True
Say vbNullChar = Chr(0) '= True
Say vbNullString = "" '= True
Say TypeName(vbCrLf) '= String
