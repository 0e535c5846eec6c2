x = = 2 '! 1023
y = "never closed
