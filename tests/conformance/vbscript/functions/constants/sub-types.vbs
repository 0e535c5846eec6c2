' VarType constants.
Say vbEmpty & "," & vbNull & "," & vbInteger & "," & vbLong & "," & vbSingle & "," & vbDouble '= 0,1,2,3,4,5
Say vbCurrency & "," & vbDate & "," & vbString & "," & vbObject & "," & vbError & "," & vbBoolean '= 6,7,8,9,10,11
Say vbVariant & "," & vbDataObject & "," & vbDecimal & "," & vbByte & "," & vbArray '= 12,13,14,17,8192
Say VarType(Array()) = vbArray + vbVariant '= True
Say TypeName(vbSunday), TypeName(vbArray), TypeName(vbOKOnly), TypeName(vbTrue) '= Integer Integer Integer Integer
Say TypeName(vbBlack), TypeName(vbMsgBoxHelpButton), TypeName(vbObjectError) '= Long Long Long
