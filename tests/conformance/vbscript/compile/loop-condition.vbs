Do
Loop Foo '! 1028
