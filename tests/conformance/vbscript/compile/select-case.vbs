Select Host '! 1021
