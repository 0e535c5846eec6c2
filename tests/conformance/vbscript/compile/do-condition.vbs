Do unless x '! 1028
