Say Null & "a", "a" & Null, TypeName(Null & Null) '= a a Null
Say TypeName(Null + 1), TypeName(1 - Null), TypeName(-Null), TypeName(Null ^ 2) '= Null Null Null Null
Say TypeName(True And Null), False And Null, Null And False, 0 And Null '= Null False False 0
Say True Or Null, Null Or True, TypeName(False Or Null) '= True True Null
Say TypeName(Null Xor True), TypeName(Null Eqv True), TypeName(Not Null) '= Null Null Null
Say False Imp Null, Null Imp True, TypeName(True Imp Null), TypeName(Null Imp False) '= True True Null Null
