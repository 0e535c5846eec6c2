Say -3 ^ 2, 2 ^ 3 ^ 2, 2 ^ -1 '= 9 64 0.5
Say 2 + 3 * 4, (2 + 3) * 4, 10 - 4 - 3 '= 14 20 3
Say 7 \ 2 * 3, 7 Mod 4 \ 2, 2 * 7 Mod 4 '= 1 1 2
Say 1 + 2 & 3 + 4 '= 37
Say 1 & 2 = "12", Not 1 = 2 '= True True
Say Not True Or True, True Or False And False '= True True
Say True Xor True Or True '= False
Say 1 = 1 = True, 3 > 2 > 1 '= True False
Say Not 5, Not -1 '= -6 0
Say 5 And 3, 5 Or 3, 5 Xor 3, 5 Eqv 3, 5 Imp 3 '= 1 7 6 -7 -5
Say 10 / 4 \ 1, -7 \ 2, -7 Mod 3, 7 Mod -3 '= 2 -3 -1 1
Say 1 => 1, 1 =< 2, 1 >< 2 '= True True True
