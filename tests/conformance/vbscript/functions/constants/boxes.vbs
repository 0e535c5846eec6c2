' Constants of message boxes.
Say vbOKOnly & vbOKCancel & vbAbortRetryIgnore & vbYesNoCancel & vbYesNo & vbRetryCancel '= 012345
Say vbCritical & "," & vbQuestion & "," & vbExclamation & "," & vbInformation '= 16,32,48,64
Say vbDefaultButton1 & "," & vbDefaultButton2 & "," & vbDefaultButton3 & "," & vbDefaultButton4 '= 0,256,512,768
Say vbApplicationModal & "," & vbSystemModal '= 0,4096
Say vbMsgBoxHelpButton & "," & vbMsgBoxSetForeground '= 16384,65536
Say vbMsgBoxRight & "," & vbMsgBoxRtlReading '= 524288,1048576
Say vbOK & vbCancel & vbAbort & vbRetry & vbIgnore & vbYes & vbNo '= 1234567
