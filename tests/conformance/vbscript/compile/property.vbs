Property Get x '! 1048
