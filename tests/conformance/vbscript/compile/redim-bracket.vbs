ReDim a '! 1005
