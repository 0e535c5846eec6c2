For Each x Of y '! 1046
