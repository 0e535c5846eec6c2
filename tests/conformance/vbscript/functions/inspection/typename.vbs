' TypeName of every sub-type.
Say TypeName(Empty) '= Empty
Say TypeName(Null) '= Null
Say TypeName(True) '= Boolean
Say TypeName(CByte(1)) '= Byte
Say TypeName(1) '= Integer
Say TypeName(32768) '= Long
Say TypeName(CSng(1)) '= Single
Say TypeName(1.5) '= Double
Say TypeName(CCur(1)) '= Currency
Say TypeName(#1/1/2000#) '= Date
Say TypeName("") '= String
Say TypeName(Nothing) '= Nothing
Say TypeName(Array()) '= Variant()
Say TypeName(New RegExp) '= IRegExp2
Say TypeName(CreateObject("Scripting.Dictionary")) '= Dictionary
Say TypeName(Err) '= Object
