#include "template/LanguageWords.h"
#include "template/WordList.h"

namespace quillon::words {

std::vector<std::string> VBScript() {
    return WordList(R"(
Initialize Terminate As New Long Integer Single Double Variant Object Date Boolean Byte Currency String Call Class
Const Dim Do Loop Erase Execute ExecuteGlobal Exit Explicit For Each In Next To Step Function GoTo If Then Else ElseIf
End Is Let Get Set Me Mod Not And Or Xor Eqv Imp On Error Resume Option Preserve Private Property Public Default
Randomize ReDim Rem Select Case Stop Sub Until Wend While With ByRef ByVal True False Empty Null Nothing

Abs Array Asc AscB AscW Atn CBool CByte CCur CDate CDbl Chr ChrB ChrW CInt CLng Cos CreateObject CSng CStr DateAdd
DateDiff DatePart DateSerial DateValue Day Escape Eval Exp Filter Fix FormatCurrency FormatDateTime FormatNumber
FormatPercent GetLocale GetObject GetRef Hex Hour InputBox InStr InStrB InStrRev Int IsArray IsDate IsEmpty IsNull
IsNumeric IsObject Join LBound LCase Left LeftB Len LenB LoadPicture Log LTrim Mid MidB Minute Month MonthName MsgBox
Now Oct Replace RGB Right RightB Rnd Round RTrim ScriptEngine ScriptEngineBuildVersion ScriptEngineMajorVersion
ScriptEngineMinorVersion Second SetLocale Sgn Sin Space Split Sqr StrComp StrReverse Tan Time Timer TimeSerial
TimeValue Trim TypeName UBound UCase Unescape VarType Weekday WeekdayName Year

Err Clear Description HelpContext HelpFile Number Raise Source RegExp Global IgnoreCase Pattern Test Match Matches
SubMatches FirstIndex Dictionary CompareMode Item Items Exists RemoveAll

vbBlack vbRed vbGreen vbYellow vbBlue vbMagenta vbCyan vbWhite vbBinaryCompare vbTextCompare vbSunday vbMonday
vbTuesday vbWednesday vbThursday vbFriday vbSaturday vbUseSystem vbUseSystemDayOfWeek vbFirstJan1 vbFirstFourDays
vbFirstFullWeek vbGeneralDate vbLongDate vbShortDate vbLongTime vbShortTime vbObjectError vbOKOnly vbOKCancel
vbAbortRetryIgnore vbYesNoCancel vbYesNo vbRetryCancel vbCritical vbQuestion vbExclamation vbInformation
vbDefaultButton1 vbDefaultButton2 vbDefaultButton3 vbDefaultButton4 vbApplicationModal vbSystemModal vbOK vbCancel
vbAbort vbRetry vbIgnore vbYes vbNo vbCr vbCrLf vbFormFeed vbLf vbNewLine vbNullChar vbNullString vbTab vbVerticalTab
vbUseDefault vbTrue vbFalse vbEmpty vbNull vbInteger vbLong vbSingle vbDouble vbCurrency vbDate vbString vbObject
vbError vbBoolean vbVariant vbDataObject vbDecimal vbByte vbArray

adSchemaAsserts adSchemaCatalogs adSchemaCharacterSets adSchemaCheckConstraints adSchemaCollations
adSchemaColumnPrivileges adSchemaColumns adSchemaColumnsDomainUsage adSchemaConstraintColumnUsage
adSchemaConstraintTableUsage adSchemaCubes adSchemaDBInfoKeywords adSchemaDBInfoLiterals adSchemaDimensions
adSchemaForeignKeys adSchemaHierarchies adSchemaIndexes adSchemaKeyColumnUsage adSchemaLevels adSchemaMeasures
adSchemaMembers adSchemaPrimaryKeys adSchemaProcedureColumns adSchemaProcedureParameters adSchemaProcedures
adSchemaProperties adSchemaProviderSpecific adSchemaProviderTypes adSchemaReferentialConstraints adSchemaSchemata
adSchemaSQLLanguages adSchemaStatistics adSchemaTableConstraints adSchemaTablePrivileges adSchemaTables
adSchemaTranslations adSchemaTrustees adSchemaUsagePrivileges adSchemaViewColumnUsage adSchemaViews
adSchemaViewTableUsage
adOpenForwardOnly adOpenKeyset adOpenDynamic adOpenStatic adLockReadOnly adLockPessimistic adLockOptimistic
adLockBatchOptimistic adUseClient adUseServer adCmdText adCmdTable adCmdStoredProc adCmdUnknown adCmdFile
adCmdTableDirect adExecuteNoRecords adParamInput adParamOutput adParamInputOutput adParamReturnValue adStateClosed
adStateOpen adStateConnecting adStateExecuting adStateFetching adModeRead adModeReadWrite adModeWrite adModeUnknown
adBigInt adBinary adBoolean adBSTR adChar adCurrency adDate adDBDate adDBTime adDBTimeStamp adDecimal adDouble
adEmpty adError adGUID adInteger adLongVarBinary adLongVarChar adLongVarWChar adNumeric adSingle adSmallInt adTinyInt
adUnsignedBigInt adUnsignedInt adUnsignedSmallInt adUnsignedTinyInt adUserDefined adVarBinary adVarChar adVariant
adVarWChar adWChar
)");
}

} // namespace quillon::words
