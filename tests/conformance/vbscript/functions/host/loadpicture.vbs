' Pictures come from files, which scripts cannot reach.
LoadPicture "a.bmp" '! 481 Invalid picture
