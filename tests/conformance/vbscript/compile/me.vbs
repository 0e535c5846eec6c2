x = Me.y '! 1037
