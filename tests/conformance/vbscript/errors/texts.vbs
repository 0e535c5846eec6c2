' Every number has its text, also those that only objects of the host can meet: the language itself has no named
' arguments (446, 448), loads no libraries (48, 453) and makes only objects that are safe (502 to 504).
Dim Said
Sub Raise(number)
    On Error Resume Next
    Err.Raise number
    Said = Err.Description
    Err.Clear
End Sub
Raise 5 : Say Said          '= Invalid procedure call or argument
Raise 6 : Say Said          '= Overflow
Raise 7 : Say Said          '= Out of memory
Raise 9 : Say Said          '= Subscript out of range
Raise 10 : Say Said         '= This array is fixed or temporarily locked
Raise 11 : Say Said         '= Division by zero
Raise 13 : Say Said         '= Type mismatch
Raise 14 : Say Said         '= Out of string space
Raise 17 : Say Said         '= Can't perform requested operation
Raise 28 : Say Said         '= Out of stack space
Raise 35 : Say Said         '= Sub or Function not defined
Raise 48 : Say Said         '= Error in loading DLL
Raise 51 : Say Said         '= Internal error
Raise 53 : Say Said         '= File not found
Raise 57 : Say Said         '= Device I/O error
Raise 58 : Say Said         '= File already exists
Raise 67 : Say Said         '= Too many files
Raise 70 : Say Said         '= Permission denied
Raise 75 : Say Said         '= Path/File access error
Raise 76 : Say Said         '= Path not found
Raise 91 : Say Said         '= Object variable not set
Raise 92 : Say Said         '= For loop not initialized
Raise 94 : Say Said         '= Invalid use of Null
Raise 322 : Say Said        '= Can't create necessary temporary file
Raise 424 : Say Said        '= Object required
Raise 429 : Say Said        '= ActiveX component can't create object
Raise 430 : Say Said        '= Class doesn't support Automation
Raise 432 : Say Said        '= File name or class name not found during Automation operation
Raise 438 : Say Said        '= Object doesn't support this property or method
Raise 440 : Say Said        '= Automation error
Raise 445 : Say Said        '= Object doesn't support this action
Raise 446 : Say Said        '= Object doesn't support named arguments
Raise 447 : Say Said        '= Object doesn't support current locale setting
Raise 448 : Say Said        '= Named argument not found
Raise 449 : Say Said        '= Argument not optional
Raise 450 : Say Said        '= Wrong number of arguments or invalid property assignment
Raise 451 : Say Said        '= Object not a collection
Raise 453 : Say Said        '= Specified DLL function not found
Raise 457 : Say Said        '= This key is already associated with an element of this collection
Raise 458 : Say Said        '= Variable uses an Automation type not supported in VBScript
Raise 462 : Say Said        '= The remote server machine does not exist or is unavailable
Raise 500 : Say Said        '= Variable is undefined
Raise 501 : Say Said        '= Illegal assignment
Raise 502 : Say Said        '= Object not safe for scripting
Raise 503 : Say Said        '= Object not safe for initializing
Raise 504 : Say Said        '= Object not safe for creating
Raise 505 : Say Said        '= Invalid or unqualified reference
Raise 506 : Say Said        '= Class not defined
Raise 507 : Say Said        '= An exception occurred
Raise 5016 : Say Said       '= Regular Expression object expected
Raise 5017 : Say Said       '= Syntax error in regular expression
Raise 5018 : Say Said       '= Unexpected quantifier
Raise 5019 : Say Said       '= Expected ']' in regular expression
Raise 5020 : Say Said       '= Expected ')' in regular expression
Raise 5021 : Say Said       '= Invalid range in character set
Raise 32811 : Say Said      '= Element not found
Raise &H8002000F : Say Said '= Argument not optional
Raise &H80020004 : Say Said '= Named argument not found
Raise &H80020007 : Say Said '= Object doesn't support named arguments
Host.Fail &H8002000F        '! 449 the host refused
