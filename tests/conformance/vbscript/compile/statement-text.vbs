x = 1
"text" '! 1024
