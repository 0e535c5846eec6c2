' UCase and LCase, beyond ASCII too.
Say UCase("abC1ä") '= ABC1Ä
Say LCase("ABc1Ä") '= abc1ä
Say UCase(True) '= TRUE
Say UCase("") '= ""
Say IsNull(UCase(Null)) '= True
Say IsNull(LCase(Null)) '= True
Say LCase(ChrW(937)) = ChrW(969) '= True
