.Name = 1 '! 505
