#include "practice/values/Messages.h"

// Messages 500 to 7999: what is wrong with values, constraints, objects and transactions.

namespace quillon::practice {

namespace {

constexpr MessageRow rows[] = {
    {500, 16,
     "Trying to pass a table-valued parameter with %1 column(s) where the corresponding user-defined table "
     "type "
     "requires %2 column(s)."},
    {506, 16, "The invalid escape character \"%1\" was specified in a %2 predicate."},
    {507, 16, "Invalid argument for SET ROWCOUNT. Must be a non-null non-negative integer."},
    {509, 11, "User name '%1' not found."},
    {511, 16, "Cannot create a row of size %1 which is greater than the allowable maximum row size of %2."},
    {512, 16,
     "Subquery returned more than 1 value. This is not permitted when the subquery follows =, !=, <, <= , >, "
     ">= or when the subquery is used as an expression."},
    {513, 16,
     "A column insert or update conflicts with a rule imposed by a previous CREATE RULE statement. The "
     "statement was terminated. The conflict occurred in database '%1', table '%2', column '%3'."},
    {515, 16,
     "Cannot insert the value NULL into column '%1', table '%2'; column does not allow nulls. %3 fails."},
    {517, 16, "Adding a value to a '%1' column caused an overflow."},
    {518, 16, "Cannot convert data type %1 to %2."},
    {523, 16,
     "A trigger returned a resultset and/or was running with SET NOCOUNT OFF while another outstanding "
     "result set was active."},
    {524, 16,
     "A trigger returned a resultset and the server option 'disallow results from triggers' is true."},
    {529, 16, "Explicit conversion from data type %1 to %2 is not allowed."},
    {530, 16,
     "The statement terminated. The maximum recursion %1 has been exhausted before statement completion."},
    {535, 16,
     "The %1 function resulted in an overflow. The number of dateparts separating two date/time instances is "
     "too large. Try to use %1 with a less precise datepart."},
    {536, 16, "Invalid length parameter passed to the %1 function."},
    {537, 16, "Invalid length parameter passed to the LEFT or SUBSTRING function."},
    {542, 16, "An invalid datetime value was encountered. Value exceeds year 9999."},
    {544, 16,
     "Cannot insert explicit value for identity column in table '%1' when IDENTITY_INSERT is set to OFF."},
    {545, 16,
     "Explicit value must be specified for identity column in table '%1' either when IDENTITY_INSERT is set "
     "to ON or when a replication user is inserting into a NOT FOR REPLICATION identity column."},
    {547, 16,
     "The %1 statement conflicted with the %2 constraint \"%3\". The conflict occurred in database \"%4\", "
     "table \"%5\"%6."},
    {549, 16, "The collation '%1' of receiving variable is not equal to the collation '%2' of column '%3'."},
    {550, 16,
     "The attempted insert or update failed because the target view either specifies WITH CHECK OPTION or "
     "spans a view that specifies WITH CHECK OPTION and one or more rows resulting from the operation did "
     "not qualify under the CHECK OPTION constraint."},
    {556, 16, "INSERT EXEC failed because the stored procedure altered the schema of the target table."},
    {557, 16, "Only functions and some extended stored procedures can be executed from within a function."},
    {565, 18,
     "A stack overflow occurred in the server while compiling the query. Please simplify the query."},
    {570, 16, "INSTEAD OF triggers do not support direct recursion. The trigger execution failed."},
    {574, 16, "%1 statement cannot be used inside a user transaction."},
    {628, 16, "Cannot issue SAVE TRANSACTION when there is no active transaction."},
    {701, 17, "There is insufficient system memory in resource pool '%1' to run this query."},
    {911, 16, "Database '%1' does not exist. Make sure that the name is entered correctly."},
    {913, 22, "Could not find database ID %1. The database either does not exist or is offline."},
    {916, 14,
     "The server principal \"%1\" is not able to access the database \"%2\" under the current security "
     "context."},
    {923, 14,
     "Database '%1' is in restricted mode. Only the database owner and members of the dbcreator and sysadmin "
     "roles can access it."},
    {924, 14, "Database '%1' is already open and can only have one user at a time."},
    {942, 14, "Database '%1' cannot be opened because it is offline."},
    {1001, 15, "Line %1: Length or precision specification %2 is invalid."},
    {1002, 15, "Line %1: Specified scale %2 is invalid."},
    {1003, 15, "Line %1: %2 clause allowed only for %3."},
    {1005, 15, "Line %1: Invalid procedure number (%2). Must be between 1 and 32767."},
    {1006, 15, "CREATE TRIGGER contains no statements."},
    {1007, 15, "The %1 '%2' is out of the range for numeric representation (maximum precision 38)."},
    {1008, 16,
     "The SELECT item identified by the ORDER BY number %1 contains a variable as part of the expression "
     "identifying a column position. Variables are only allowed when ordering by an expression referencing a "
     "column name."},
    {1010, 15, "Invalid escape character '%1'."},
    {1011, 16, "The correlation name '%1' is specified multiple times in a FROM clause."},
    {1012, 16, "The correlation name '%1' has the same exposed name as table '%2'."},
    {1013, 16,
     "The objects \"%1\" and \"%2\" in the FROM clause have the same exposed names. Use correlation names to "
     "distinguish them."},
    {1014, 15, "A TOP or FETCH clause contains an invalid value."},
    {1015, 15,
     "An aggregate cannot appear in an ON clause unless it is in a subquery contained in a HAVING clause or "
     "select list, and the column being aggregated is an outer reference."},
    {1018, 15,
     "Incorrect syntax near '%1'. If this is intended as a part of a table hint, A WITH keyword and "
     "parenthesis are now required. See SQL Server Books Online for proper syntax."},
    {1019, 15, "Invalid column list after object name in GRANT/REVOKE statement."},
    {1023, 15, "Invalid parameter %1 specified for %2."},
    {1031, 15, "Percent values must be between 0 and 100."},
    {1032, 16, "Cannot use the column prefix '%1'. This must match the object in the UPDATE clause '%2'."},
    {1033, 15,
     "The ORDER BY clause is invalid in views, inline functions, derived tables, subqueries, and common "
     "table expressions, unless TOP, OFFSET or FOR XML is also specified."},
    {1034, 15, "Syntax error: Duplicate specification of the action \"%1\" in the trigger declaration."},
    {1035, 15, "Incorrect syntax near '%1', expected '%2'."},
    {1038, 15,
     "An object or column name is missing or empty. For SELECT INTO statements, verify each column has a "
     "name. For other statements, look for empty alias names. Aliases defined as \"\" or [] are not allowed. "
     "Change the alias to a valid name."},
    {1039, 15, "Option '%1' is specified more than once."},
    {1042, 15, "Conflicting %1 optimizer hints specified."},
    {1046, 15, "Subqueries are not allowed in this context. Only scalar expressions are allowed."},
    {1047, 15, "Conflicting locking hints specified."},
    {1048, 15, "Conflicting cursor options %1 and %2."},
    {1050, 15, "This syntax is only allowed for parameterized queries."},
    {1051, 15,
     "Cursor parameters in a stored procedure must be declared with OUTPUT and VARYING options, and they "
     "must be specified in the order CURSOR VARYING OUTPUT."},
    {1052, 15, "Conflicting %1 options \"%2\" and \"%3\"."},
    {1054, 15, "Syntax '%1' is not allowed in schema-bound objects."},
    {1056, 15,
     "The number of elements in the select list exceeds the maximum allowed number of %1 elements."},
    {1059, 15, "Cannot set or reset the '%1' option within a procedure or function."},
    {1060, 15,
     "The number of rows provided for a TOP or FETCH clauses row count parameter must be an integer."},
    {1062, 16, "The TOP N WITH TIES clause is not allowed without a corresponding ORDER BY clause."},
    {1065, 15,
     "The NOLOCK and READUNCOMMITTED lock hints are not allowed for target tables of INSERT, UPDATE, DELETE "
     "or MERGE statements."},
    {1069, 15, "Index hints are only allowed in a FROM or OPTION clause."},
    {1077, 16, "INSERT into an identity column not allowed on table variables."},
    {1080, 15, "The integer value %1 is out of range."},
    {1084, 15, "'%1' is an invalid event type."},
    {1087, 15, "Must declare the table variable \"%1\"."},
    {1088, 16, "Cannot find the object \"%1\" because it does not exist or you do not have permissions."},
    {1098, 15, "The specified event type(s) is/are not valid on the specified target object."},
    {1205, 13,
     "Transaction (Process ID %1) was deadlocked on %2 resources with another process and has been chosen as "
     "the deadlock victim. Rerun the transaction."},
    {1222, 16, "Lock request time out period exceeded."},
    {1223, 16,
     "Cannot release the application lock (Database Principal: '%1', Resource: '%2') because it is not "
     "currently held."},
    {1505, 16,
     "The CREATE UNIQUE INDEX statement terminated because a duplicate key was found for the object name "
     "'%1' and the index name '%2'. The duplicate key value is %3."},
    {1701, 16,
     "Creating or altering table '%1' failed because the minimum row size would be %2, including %3 bytes of "
     "internal overhead. This exceeds the maximum allowable table row size of %4 bytes."},
    {1702, 16, "CREATE TABLE failed because column '%1' in table '%2' exceeds the maximum of %3 columns."},
    {1711, 16,
     "Cannot define PRIMARY KEY constraint on column '%1' in table '%2'. The computed column has to be "
     "persisted and not nullable."},
    {1715, 16,
     "Foreign key '%1' creation failed. Only NO ACTION referential update action is allowed for referencing "
     "computed column '%2'."},
    {1750, 16, "Could not create constraint or index. See previous errors."},
    {1752, 16, "Column '%1' in table '%2' is invalid for creating a default constraint."},
    {1753, 16,
     "Column '%1.%2' is not the same length or scale as referencing column '%3.%4' in foreign key '%5'. "
     "Columns participating in a foreign key relationship must be defined with the same length and scale."},
    {1754, 16, "Defaults cannot be created on columns with an IDENTITY attribute. Table '%1', column '%2'."},
    {1755, 16, "Defaults cannot be created on columns of data type timestamp. Table '%1', column '%2'."},
    {1757, 16, "Column '%1.%2' is not of same collation as referencing column '%3.%4' in foreign key '%5'."},
    {1759, 16,
     "Computed column '%1' in table '%2' is not allowed to be used in another computed-column definition."},
    {1760, 16, "Constraints of type %1 cannot be created on columns of type %2."},
    {1763, 16, "Cross-database foreign key references are not supported. Foreign key '%1'."},
    {1764, 16, "Computed Column '%1' in table '%2' is invalid for use in '%3' because it is not persisted."},
    {1766, 16, "Foreign key references to temporary tables are not supported. Foreign key '%1'."},
    {1767, 16, "Foreign key '%1' references invalid table '%2'."},
    {1768, 16, "Foreign key '%1' references object '%2' which is not a user table."},
    {1769, 16, "Foreign key '%1' references invalid column '%2' in referencing table '%3'."},
    {1770, 16, "Foreign key '%1' references invalid column '%2' in referenced table '%3'."},
    {1773, 16,
     "Foreign key '%1' has implicit reference to object '%2' which does not have a primary key defined on "
     "it."},
    {1774, 16,
     "The number of columns in the referencing column list for foreign key '%1' does not match those of the "
     "primary key in the referenced table '%2'."},
    {1776, 16,
     "There are no primary or candidate keys in the referenced table '%1' that match the referencing column "
     "list in the foreign key '%2'."},
    {1778, 16, "Column '%1.%2' is not the same data type as referencing column '%3.%4' in foreign key '%5'."},
    {1779, 16, "Table '%1' already has a primary key defined on it."},
    {1781, 16, "Column already has a DEFAULT bound to it."},
    {1785, 16,
     "Introducing FOREIGN KEY constraint '%1' on table '%2' may cause cycles or multiple cascade paths. "
     "Specify ON DELETE NO ACTION or ON UPDATE NO ACTION, or modify other FOREIGN KEY constraints."},
    {1788, 16,
     "Cascading foreign key '%1' cannot be created where the referencing column '%2.%3' is an identity "
     "column."},
    {1801, 16, "Database '%1' already exists. Choose a different database name."},
    {1802, 16, "CREATE DATABASE failed. Some file names listed could not be created. Check related errors."},
    {1902, 16,
     "Cannot create more than one clustered index on %1 '%2'. Drop the existing clustered index '%3' before "
     "creating another."},
    {1909, 16, "Cannot use duplicate column names in %1. Column name '%2' listed more than once."},
    {1911, 16, "Column name '%1' does not exist in the target table or view."},
    {1913, 16,
     "The operation failed because an index or statistics with name '%1' already exists on %2 '%3'."},
    {1919, 16, "Column '%1' in table '%2' is of a type that is invalid for use as a key column in an index."},
    {1934, 16,
     "%1 failed because the following SET options have incorrect settings: '%2'. Verify that SET options are "
     "correct for use with indexed views and/or indexes on computed columns and/or filtered indexes and/or "
     "query notifications and/or XML data type methods and/or spatial index operations."},
    {1945, 10,
     "Warning! The maximum key length for a %1 index is %2 bytes. The index '%3' has maximum length of %4 "
     "bytes. For some combination of large values, the insert/update operation will fail."},
    {2007, 10,
     "The module '%1' depends on the missing object '%2'. The module will still be created; however, it "
     "cannot run successfully until the object exists."},
    {2010, 16, "Cannot perform alter on '%1' because it is an incompatible object type."},
    {2103, 15,
     "Cannot %1 trigger '%2' because its schema is different from the schema of the target table or view."},
    {2108, 15, "Cannot %1 %2 on '%3' as the target is not in the current database."},
    {2110, 15, "Cannot alter trigger '%1' on '%2' because this trigger does not belong to this object."},
    {2111, 16,
     "Cannot %1 trigger '%2' on %3 '%4' because an INSTEAD OF %5 trigger already exists on this object."},
    {2113, 16,
     "Cannot %1 INSTEAD OF DELETE or INSTEAD OF UPDATE TRIGGER '%2' on table '%3'. This is because the table "
     "has a FOREIGN KEY with cascading DELETE or UPDATE."},
    {2114, 16, "Column '%1' cannot be used in an IF UPDATE clause because it is a computed column."},
    {2528, 10,
     "DBCC execution completed. If DBCC printed error messages, contact your system administrator."},
    {2557, 14, "User '%1' does not have permission to run DBCC %2 for object '%3'."},
    {2571, 14, "User '%1' does not have permission to run DBCC %2."},
    {2601, 14,
     "Cannot insert duplicate key row in object '%1' with unique index '%2'. The duplicate key value is %3."},
    {2627, 14,
     "Violation of %1 constraint '%2'. Cannot insert duplicate key in object '%3'. The duplicate key value "
     "is %4."},
    {2628, 16, "String or binary data would be truncated in table '%1', column '%2'. Truncated value: '%3'."},
    {2702, 16, "Database '%1' does not exist."},
    {2705, 16,
     "Column names in each table must be unique. Column name '%1' in table '%2' is specified more than "
     "once."},
    {2706, 16, "Table '%1' does not exist."},
    {2714, 16, "There is already an object named '%1' in the database."},
    {2715, 16, "Column, parameter, or variable #%1: Cannot find data type %2."},
    {2716, 16, "Column, parameter, or variable #%1: Cannot specify a column width on data type %2."},
    {2717, 15, "The size (%1) given to the %2 '%3' exceeds the maximum allowed (%4)."},
    {2727, 11, "Cannot find index '%1'."},
    {2732, 16, "Error number %1 is invalid. The number must be from %2 through %3 and it cannot be 50000."},
    {2738, 16,
     "A table can only have one timestamp column. Because table '%1' already has one, the column '%2' cannot "
     "be added."},
    {2739, 16, "The text, ntext, and image data types are invalid for local variables."},
    {2740, 16,
     "SET LANGUAGE failed because '%1' is not an official language name or a language alias on this SQL "
     "Server."},
    {2741, 16, "SET DATEFORMAT date order '%1' is invalid."},
    {2742, 16, "SET DATEFIRST %1 is out of range."},
    {2743, 16, "%1 command requires %2 parameter."},
    {2744, 16,
     "Multiple identity columns specified for table '%1'. Only one identity column per table is allowed."},
    {2745, 16,
     "Process ID %1 has raised user error %2, severity %3. SQL Server is terminating this process."},
    {2747, 16, "Too many substitution parameters for RAISERROR. Cannot exceed %1 substitution parameters."},
    {2748, 16, "Cannot specify %1 data type (parameter %2) as a substitution parameter."},
    {2749, 16,
     "Identity column '%1' must be of data type int, bigint, smallint, tinyint, or decimal or numeric with a "
     "scale of 0, unencrypted, and constrained to be nonnullable."},
    {2750, 16,
     "Column or parameter #%1: Specified column precision %2 is greater than the maximum precision of %3."},
    {2751, 16,
     "Column or parameter #%1: Specified column scale %2 is greater than the specified precision of %3."},
    {2752, 16, "Identity column '%1' contains invalid SEED."},
    {2753, 16, "Identity column '%1' contains invalid INCREMENT."},
    {2754, 16,
     "Error severity levels greater than %1 can only be specified by members of the sysadmin role, using the "
     "WITH LOG option."},
    {2756, 16, "Invalid value %1 for state. Valid range is from %2 to %3."},
    {2757, 16,
     "RAISERROR failed due to invalid parameter substitution(s) for error %1, severity %2, state %3."},
    {2758, 16, "RAISERROR could not locate entry for error %1 in sysmessages."},
    {2759, 16, "CREATE SCHEMA failed due to previous errors."},
    {2760, 16,
     "The specified schema name \"%1\" either does not exist or you do not have permission to use it."},
    {2761, 16, "The ROWGUIDCOL property can only be specified on the uniqueidentifier data type."},
    {2772, 16, "Cannot access temporary tables from within a function."},
    {2786, 16,
     "The data type of substitution parameter %1 does not match the expected type of the format "
     "specification."},
    {2787, 16, "Invalid format specification: '%1'."},
    {2809, 18, "The request for %1 '%2' failed because '%2' is a %3 object."},
    {2812, 16, "Could not find stored procedure '%1'."},
    {3604, 10, "Duplicate key was ignored."},
    {3606, 10, "Arithmetic overflow occurred."},
    {3607, 10, "Division by zero occurred."},
    {3609, 16, "The transaction ended in the trigger. The batch has been aborted."},
    {3616, 16,
     "An error was raised during trigger execution. The batch has been aborted and the user transaction, if "
     "any, has been rolled back."},
    {3621, 10, "The statement has been terminated."},
    {3622, 10, "Warning: An invalid floating point operation occurred."},
    {3623, 16, "An invalid floating point operation occurred."},
    {3701, 11, "Cannot %1 the %2 '%3', because it does not exist or you do not have permission."},
    {3702, 16, "Cannot drop database \"%1\" because it is currently in use."},
    {3704, 16, "User does not have permission to perform this operation on %1 '%2'."},
    {3705, 16, "Cannot use DROP %1 with '%2' because '%2' is a %3. Use %4."},
    {3708, 16, "Cannot %1 the %2 '%3' because it is a system %2."},
    {3716, 16, "The %1 '%2' cannot be dropped because it is bound to one or more %3."},
    {3718, 11,
     "Could not drop index '%1' because the table or clustered index entry cannot be found in the sysindexes "
     "system table."},
    {3723, 16,
     "An explicit DROP INDEX is not allowed on index '%1'. It is being used for %2 constraint enforcement."},
    {3724, 16, "Cannot %1 the %2 '%3' because it is being used for replication."},
    {3725, 16, "The constraint '%1' is being referenced by table '%2', foreign key constraint '%3'."},
    {3726, 16, "Could not drop object '%1' because it is referenced by a FOREIGN KEY constraint."},
    {3727, 16, "Could not drop constraint. See previous errors."},
    {3728, 16, "'%1' is not a constraint."},
    {3729, 16, "Cannot %1 '%2' because it is being referenced by object '%3'."},
    {3732, 16,
     "Cannot drop type '%1' because it is being referenced by object '%2'. There may be other objects that "
     "reference this type."},
    {3733, 16, "Constraint '%1' does not belong to table '%2'."},
    {3902, 16, "The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION."},
    {3903, 16, "The ROLLBACK TRANSACTION request has no corresponding BEGIN TRANSACTION."},
    {3906, 16, "Failed to update database \"%1\" because the database is read-only."},
    {3914, 16,
     "The data type \"%1\" is invalid for transaction names or savepoint names. Allowed data types are char, "
     "varchar, nchar, varchar(max), nvarchar, and nvarchar(max)."},
    {3915, 16, "Cannot use the ROLLBACK statement within an INSERT-EXEC statement."},
    {3916, 16,
     "Cannot use the COMMIT statement within an INSERT-EXEC statement unless BEGIN TRANSACTION is used "
     "first."},
    {3918, 16, "The statement or function must be executed in the context of a user transaction."},
    {3930, 16,
     "The current transaction cannot be committed and cannot support operations that write to the log file. "
     "Roll back the transaction."},
    {3931, 16,
     "The current transaction cannot be committed and cannot be rolled back to a savepoint. Roll back the "
     "entire transaction."},
    {3988, 16, "New transaction is not allowed because there are other threads running in the session."},
    {3998, 16,
     "Uncommittable transaction is detected at the end of the batch. The transaction is rolled back."},
    {4004, 16,
     "Unicode data in a Unicode-only collation or ntext data cannot be sent to clients using DB-Library "
     "(such as ISQL) or ODBC version 3.7 or earlier."},
    {4060, 11, "Cannot open database \"%1\" requested by the login. The login failed."},
    {4063, 11,
     "Cannot open database \"%1\" that was requested by the login. Using the user default database \"%2\" "
     "instead."},
    {4064, 11, "Cannot open user default database. Login failed."},
    {4103, 15, "%1: Temporary views are not allowed."},
    {4104, 16, "The multi-part identifier \"%1\" could not be bound."},
    {4108, 15, "Windowed functions can only appear in the SELECT or ORDER BY clauses."},
    {4109, 15, "Windowed functions cannot be used in the context of another windowed function or aggregate."},
    {4112, 15, "The function '%1' must have an OVER clause with ORDER BY."},
    {4113, 15,
     "The function '%1' is not a valid windowing function, and cannot be used with the OVER clause."},
    {4114, 15, "The function '%1' takes exactly %2 argument(s)."},
    {4115, 15,
     "The reference to column \"%1\" is not allowed in an argument to a %2 clause. Only references to "
     "columns at an outer scope or standalone expressions and subqueries are allowed here."},
    {4116, 15, "The function 'ntile' takes only a positive int or bigint expression as its input."},
    {4120, 16, "A user-defined function name cannot be prefixed with a database name in this context."},
    {4121, 16,
     "Cannot find either column \"%1\" or the user-defined function or aggregate \"%2\", or the name is "
     "ambiguous."},
    {4127, 16,
     "At least one of the arguments to COALESCE must be an expression that is not the NULL constant."},
    {4145, 15,
     "An expression of non-boolean type specified in a context where a condition is expected, near '%1'."},
    {4151, 16,
     "The type of the first argument to NULLIF cannot be the NULL constant because the type of the first "
     "argument has to be known."},
    {4403, 16,
     "Cannot update the view or function '%1' because it contains aggregates, or a DISTINCT or GROUP BY "
     "clause, or PIVOT or UNPIVOT operator."},
    {4405, 16,
     "View or function '%1' is not updatable because the modification affects multiple base tables."},
    {4406, 16,
     "Update or insert of view or function '%1' failed because it contains a derived or constant field."},
    {4413, 16, "Could not use view or function '%1' because of binding errors."},
    {4416, 16,
     "UNION ALL view '%1' is not updatable because the definition contains a disallowed construct."},
    {4421, 16,
     "Derived table '%1' is not updatable because a column of the derived table is derived or constant."},
    {4429, 16,
     "View or function '%1' contains a self-reference. Views or functions cannot reference themselves "
     "directly or indirectly."},
    {4501, 16, "View or function '%1' has more columns defined than column names given."},
    {4502, 16, "View or function '%1' has more column names specified than columns defined."},
    {4506, 16,
     "Column names in each view or function must be unique. Column name '%1' in view or function '%2' is "
     "specified more than once."},
    {4508, 16,
     "Views or functions are not allowed on temporary tables. Table names that begin with '#' denote "
     "temporary tables."},
    {4511, 16, "Create View or Function failed because no column name was specified for column %1."},
    {4604, 16, "There is no such user or group '%1' or you do not have permission."},
    {4606, 16, "Granted or revoked privilege %1 is not compatible with object."},
    {4610, 16, "You can only grant or revoke permissions on objects in the current database."},
    {4611, 16, "To revoke or deny grantable privileges, specify the CASCADE option."},
    {4613, 16, "Grantor does not have GRANT permission."},
    {4617, 16, "Cannot grant, deny or revoke permissions to or from special roles."},
    {4624, 16,
     "Cannot grant, deny, or revoke permissions to sa, dbo, entity owner, information_schema, sys, or "
     "yourself."},
    {4701, 16, "Cannot find the object \"%1\" because it does not exist or you do not have permissions."},
    {4708, 16, "Could not truncate object '%1' because it is not a table."},
    {4709, 16, "You are not allowed to truncate the system table '%1'."},
    {4712, 16, "Cannot truncate table '%1' because it is being referenced by a FOREIGN KEY constraint."},
    {4901, 16,
     "ALTER TABLE only allows columns to be added that can contain nulls, or have a DEFAULT definition "
     "specified, or the column being added is an identity or timestamp column, or alternatively if none of "
     "the previous conditions are satisfied the table must be empty to allow addition of this column. Column "
     "'%1' cannot be added to non-empty table '%2' because it does not satisfy these conditions."},
    {4902, 16, "Cannot find the object \"%1\" because it does not exist or you do not have permissions."},
    {4909, 16, "Cannot alter '%1' because it is not a table."},
    {4916, 16, "Could not enable or disable the constraint. See previous errors."},
    {4917, 16, "Constraint '%1' does not exist."},
    {4920, 16, "ALTER TABLE failed because trigger '%1' on table '%2' does not exist."},
    {4921, 16, "ALTER TABLE failed because trigger '%1' does not belong to table '%2'."},
    {4922, 16, "%1 %2 failed because one or more objects access this column."},
    {4923, 16,
     "ALTER TABLE DROP COLUMN failed because '%1' is the only data column in table '%2'. A table must have "
     "at least one data column."},
    {4924, 16, "%1 failed because column '%2' does not exist in table '%3'."},
    {4925, 16,
     "ALTER TABLE ALTER COLUMN ADD ROWGUIDCOL failed because a column already exists in table '%1' with "
     "ROWGUIDCOL property."},
    {4927, 16, "Cannot alter column '%1' to be data type %2."},
    {4928, 16, "Cannot alter column '%1' because it is '%2'."},
    {4936, 16,
     "Computed column '%1' in table '%2' cannot be persisted because the column is non-deterministic."},
    {5001, 16, "User must be in the master database."},
    {5011, 14,
     "User does not have permission to alter database '%1', the database does not exist, or the database is "
     "not in a state that allows access checks."},
    {5058, 16, "Option '%1' cannot be set in database '%2'."},
    {5069, 16, "ALTER DATABASE statement failed."},
    {5072, 16, "ALTER DATABASE failed. The default collation of database '%1' cannot be set to %2."},
    {5074, 16, "The %1 '%2' is dependent on %3 '%4'."},
    {5075, 16,
     "The %1 '%2' is dependent on %3. The database collation cannot be changed if a schema-bound object "
     "depends "
     "on it. Remove the dependencies on the database collation and then retry the operation."},
    {5308, 16,
     "Windowed functions and NEXT VALUE FOR functions do not support integer indices as ORDER BY clause "
     "expressions."},
    {5309, 16,
     "Windowed functions, aggregates and NEXT VALUE FOR functions do not support constants as ORDER BY "
     "clause "
     "expressions."},
    {5313, 16, "Synonym '%1' refers to an invalid object."},
    {5324, 15,
     "In a MERGE statement, a '%1' clause with a search condition cannot appear after a '%2' clause with no "
     "search condition."},
    {5701, 10, "Changed database context to '%1'."},
    {5703, 10, "Changed language setting to %1."},
    {6101, 16, "Process ID %1 is not a valid process ID. Choose a number between 1 and %2."},
    {6102, 14, "User does not have permission to use the KILL statement."},
    {6104, 16, "Cannot use KILL to kill your own process."},
    {6106, 16, "Process ID %1 is not an active process ID."},
    {6107, 14, "Only user processes can be killed."},
    {6115, 16, "KILL command cannot be used inside user transactions."},
    {6401, 16, "Cannot roll back %1. No transaction or savepoint of that name was found."},
    {6809, 16,
     "Unnamed tables cannot be used as XML identifiers as well as unnamed columns cannot be used for "
     "attribute names. Name unnamed columns/tables using AS in the SELECT statement."},
    {6810, 16,
     "Column name '%1' is repeated. The same attribute cannot be generated more than once on the same XML "
     "tag."},
    {6829, 16,
     "FOR XML EXPLICIT and RAW modes currently do not support addressing binary data as URLs in column '%1'. "
     "Remove the column, or use the BINARY BASE64 mode, or create the URL directly using the "
     "'dbobject/TABLE[@PK1=\"V1\"]/@COLUMN' syntax."},
    {6849, 16,
     "FOR XML PATH error in column '%1' - '//' and leading and trailing '/' are not allowed in simple path "
     "expressions."},
    {6850, 16,
     "%1 name '%2' contains an invalid XML identifier as required by FOR XML; '%3'(%4) is the first "
     "character "
     "at fault."},
    {6851, 16, "Column '%1' has invalid data type for attribute-centric XML serialization in FOR XML PATH."},
    {6852, 16,
     "Attribute-centric column '%1' must not come after a non-attribute-centric sibling in XML hierarchy in "
     "FOR XML PATH."},
    {6856, 16,
     "FOR XML row XML tag name contains an invalid XML identifier; '%1'(%2) is the first character at "
     "fault."},
    {6857, 16,
     "FOR XML root XML tag name contains an invalid XML identifier; '%1'(%2) is the first character at "
     "fault."},
    {6861, 16, "Empty root tag name can't be specified with FOR XML."},
    {6864, 16,
     "Row tag omission (empty row tag name) cannot be used with attribute-centric FOR XML serialization."},
    {7119, 16, "Attempting to grow LOB beyond maximum allowed size of %1 bytes."},
    {7202, 11,
     "Could not find server '%1' in sys.servers. Verify that the correct server name was specified. If "
     "necessary, execute the stored procedure sp_addlinkedserver to add the server to sys.servers."},
    {7999, 16, "Could not find any index named '%1' for table '%2'."},
};

} // namespace

std::span<const MessageRow> DataMessages() {
    return rows;
}

} // namespace quillon::practice
