' Colour constants.
Say Hex(vbBlack) '= 0
Say Hex(vbRed) '= FF
Say Hex(vbGreen) '= FF00
Say Hex(vbYellow) '= FFFF
Say Hex(vbBlue) '= FF0000
Say Hex(vbMagenta) '= FF00FF
Say Hex(vbCyan) '= FFFF00
Say Hex(vbWhite) '= FFFFFF
