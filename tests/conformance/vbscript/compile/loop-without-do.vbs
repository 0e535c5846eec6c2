Loop '! 1038
