// The reserved words: they cannot name anything without brackets or quotes, and messages call them keywords.
// Every other word of the grammar (OUTPUT, THROW, TRY ...) is an ordinary identifier that the parser
// compares.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon::practice::tsql {

// clang-format off
#define QUILLON_TSQL_KEYWORDS(X) \
    X(Add, "ADD") X(All, "ALL") X(Alter, "ALTER") X(And, "AND") X(Any, "ANY") X(As, "AS") X(Asc, "ASC") \
    X(Authorization, "AUTHORIZATION") X(Backup, "BACKUP") X(Begin, "BEGIN") X(Between, "BETWEEN") \
    X(Break, "BREAK") X(Browse, "BROWSE") X(Bulk, "BULK") X(By, "BY") X(Cascade, "CASCADE") X(Case, "CASE") \
    X(Check, "CHECK") X(Checkpoint, "CHECKPOINT") X(Close, "CLOSE") X(Clustered, "CLUSTERED") \
    X(Coalesce, "COALESCE") X(Collate, "COLLATE") X(Column, "COLUMN") X(Commit, "COMMIT") \
    X(Compute, "COMPUTE") X(Constraint, "CONSTRAINT") X(Contains, "CONTAINS") \
    X(ContainsTable, "CONTAINSTABLE") X(Continue, "CONTINUE") X(Convert, "CONVERT") X(Create, "CREATE") \
    X(Cross, "CROSS") X(Current, "CURRENT") X(CurrentDate, "CURRENT_DATE") X(CurrentTime, "CURRENT_TIME") \
    X(CurrentTimestamp, "CURRENT_TIMESTAMP") X(CurrentUser, "CURRENT_USER") X(Cursor, "CURSOR") \
    X(Database, "DATABASE") X(Dbcc, "DBCC") X(Deallocate, "DEALLOCATE") X(Declare, "DECLARE") \
    X(Default, "DEFAULT") X(Delete, "DELETE") X(Deny, "DENY") X(Desc, "DESC") X(Disk, "DISK") \
    X(Distinct, "DISTINCT") X(Distributed, "DISTRIBUTED") X(Double, "DOUBLE") X(Drop, "DROP") \
    X(Dump, "DUMP") X(Else, "ELSE") X(End, "END") X(Errlvl, "ERRLVL") X(Escape, "ESCAPE") \
    X(Except, "EXCEPT") X(Exec, "EXEC") X(Execute, "EXECUTE") X(Exists, "EXISTS") X(Exit, "EXIT") \
    X(External, "EXTERNAL") X(Fetch, "FETCH") X(File, "FILE") X(FillFactor, "FILLFACTOR") X(For, "FOR") \
    X(Foreign, "FOREIGN") X(FreeText, "FREETEXT") X(FreeTextTable, "FREETEXTTABLE") X(From, "FROM") \
    X(Full, "FULL") X(Function, "FUNCTION") X(Goto, "GOTO") X(Grant, "GRANT") X(Group, "GROUP") \
    X(Having, "HAVING") X(HoldLock, "HOLDLOCK") X(Identity, "IDENTITY") \
    X(IdentityInsert, "IDENTITY_INSERT") X(IdentityCol, "IDENTITYCOL") X(If, "IF") X(In, "IN") \
    X(Index, "INDEX") X(Inner, "INNER") X(Insert, "INSERT") X(Intersect, "INTERSECT") X(Into, "INTO") \
    X(Is, "IS") X(Join, "JOIN") X(Key, "KEY") X(Kill, "KILL") X(Left, "LEFT") X(Like, "LIKE") \
    X(LineNo, "LINENO") X(Load, "LOAD") X(Merge, "MERGE") X(National, "NATIONAL") X(NoCheck, "NOCHECK") \
    X(NonClustered, "NONCLUSTERED") X(Not, "NOT") X(Null, "NULL") X(NullIf, "NULLIF") X(Of, "OF") \
    X(Off, "OFF") X(Offsets, "OFFSETS") X(On, "ON") X(Open, "OPEN") X(OpenDataSource, "OPENDATASOURCE") \
    X(OpenQuery, "OPENQUERY") X(OpenRowset, "OPENROWSET") X(OpenXml, "OPENXML") X(Option, "OPTION") \
    X(Or, "OR") X(Order, "ORDER") X(Outer, "OUTER") X(Over, "OVER") X(Percent, "PERCENT") \
    X(Pivot, "PIVOT") X(Plan, "PLAN") X(Primary, "PRIMARY") X(Print, "PRINT") \
    X(Proc, "PROC") X(Procedure, "PROCEDURE") X(Public, "PUBLIC") X(RaisError, "RAISERROR") \
    X(Read, "READ") X(ReadText, "READTEXT") X(Reconfigure, "RECONFIGURE") X(References, "REFERENCES") \
    X(Replication, "REPLICATION") X(Restore, "RESTORE") X(Restrict, "RESTRICT") X(Return, "RETURN") \
    X(Revert, "REVERT") X(Revoke, "REVOKE") X(Right, "RIGHT") X(Rollback, "ROLLBACK") \
    X(RowCount, "ROWCOUNT") X(RowGuidCol, "ROWGUIDCOL") X(Rule, "RULE") X(Save, "SAVE") \
    X(Schema, "SCHEMA") X(SecurityAudit, "SECURITYAUDIT") X(Select, "SELECT") \
    X(SessionUser, "SESSION_USER") X(Set, "SET") X(SetUser, "SETUSER") X(Shutdown, "SHUTDOWN") \
    X(Some, "SOME") X(Statistics, "STATISTICS") X(SystemUser, "SYSTEM_USER") X(Table, "TABLE") \
    X(TableSample, "TABLESAMPLE") X(TextSize, "TEXTSIZE") X(Then, "THEN") X(To, "TO") X(Top, "TOP") \
    X(Tran, "TRAN") X(Transaction, "TRANSACTION") X(Trigger, "TRIGGER") X(Truncate, "TRUNCATE") \
    X(TryConvert, "TRY_CONVERT") X(TsEqual, "TSEQUAL") X(Union, "UNION") X(Unique, "UNIQUE") \
    X(Unpivot, "UNPIVOT") X(Update, "UPDATE") X(UpdateText, "UPDATETEXT") X(Use, "USE") X(User, "USER") \
    X(Values, "VALUES") X(Varying, "VARYING") X(View, "VIEW") X(WaitFor, "WAITFOR") X(When, "WHEN") \
    X(Where, "WHERE") X(While, "WHILE") X(With, "WITH") X(WriteText, "WRITETEXT")
// clang-format on

enum class Keyword : std::uint8_t {
    None,
#define QUILLON_KEYWORD(name, text) name,
    QUILLON_TSQL_KEYWORDS(QUILLON_KEYWORD)
#undef QUILLON_KEYWORD
};

/// The reserved word that `word` is, in any case; None for every other word.
Keyword FindKeyword(std::string_view word);

/// Whether two words are the same but for the case of their letters A to Z.
bool SameWord(std::string_view left, std::string_view right);

/// `word` with its letters a to z in upper case.
std::string UpperWord(std::string_view word);

} // namespace quillon::practice::tsql
