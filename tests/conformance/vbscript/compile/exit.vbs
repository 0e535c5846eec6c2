Exit For '! 1039
