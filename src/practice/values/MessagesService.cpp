#include "practice/values/Messages.h"

// Messages 8000 and up: later checks of statements, the procedures of the system, cursors, logins.

namespace quillon::practice {

namespace {

constexpr MessageRow rows[] = {
    {8003, 16,
     "The incoming request has too many parameters. The server supports a maximum of %1 parameters. Reduce "
     "the number of parameters and resend the request."},
    {8101, 16,
     "An explicit value for the identity column in table '%1' can only be specified when a column list is "
     "used and IDENTITY_INSERT is ON."},
    {8102, 16, "Cannot update identity column '%1'."},
    {8105, 16, "'%1' is not a user table. Cannot perform SET operation."},
    {8106, 16, "Table '%1' does not have the identity property. Cannot perform SET operation."},
    {8107, 16, "IDENTITY_INSERT is already ON for table '%1'. Cannot perform SET operation for table '%2'."},
    {8108, 16,
     "Cannot add identity column, using the SELECT INTO statement, to table '%1', which already has column "
     "'%2' that inherits the identity property."},
    {8110, 16, "Cannot add multiple PRIMARY KEY constraints to table '%1'."},
    {8111, 16, "Cannot define PRIMARY KEY constraint on nullable column in table '%1'."},
    {8112, 16, "Cannot add more than one clustered index for constraints on table '%1'."},
    {8114, 16, "Error converting data type %1 to %2."},
    {8115, 16, "Arithmetic overflow error converting %1 to data type %2."},
    {8116, 16, "Argument data type %1 is invalid for argument %2 of %3 function."},
    {8117, 16, "Operand data type %1 is invalid for %2 operator."},
    {8118, 16,
     "Column '%1.%2' is invalid in the select list because it is not contained in an aggregate function and "
     "there is no GROUP BY clause."},
    {8119, 16,
     "Column '%1.%2' is invalid in the HAVING clause because it is not contained in an aggregate function "
     "and there is no GROUP BY clause."},
    {8120, 16,
     "Column '%1.%2' is invalid in the select list because it is not contained in either an aggregate "
     "function or the GROUP BY clause."},
    {8121, 16,
     "Column '%1.%2' is invalid in the HAVING clause because it is not contained in either an aggregate "
     "function or the GROUP BY clause."},
    {8124, 16,
     "Multiple columns are specified in an aggregated expression containing an outer reference. If an "
     "expression being aggregated contains an outer reference, then that outer reference must be the only "
     "column referenced in the expression."},
    {8126, 16,
     "Column \"%1.%2\" is invalid in the ORDER BY clause because it is not contained in an aggregate "
     "function and there is no GROUP BY clause."},
    {8127, 16,
     "Column \"%1.%2\" is invalid in the ORDER BY clause because it is not contained in either an aggregate "
     "function or the GROUP BY clause."},
    {8133, 16,
     "At least one of the result expressions in a CASE specification must be an expression other than the "
     "NULL constant."},
    {8134, 16, "Divide by zero error encountered."},
    {8135, 16, "Table level constraint does not specify column list, table '%1'."},
    {8136, 16, "Duplicate columns specified in %1 constraint key list, table '%2'."},
    {8138, 16, "More than 16 columns specified in foreign key column list, table '%1'."},
    {8139, 16,
     "Number of referencing columns in foreign key differs from number of referenced columns, table '%1'."},
    {8140, 16, "More than one key specified in column level %1 constraint, table '%2'."},
    {8141, 16, "Column %1 constraint for column '%2' references another column, table '%3'."},
    {8143, 16, "Parameter '%1' was supplied multiple times."},
    {8144, 16, "Procedure or function %1 has too many arguments specified."},
    {8145, 16, "%1 is not a parameter for procedure %2."},
    {8146, 16, "Procedure %1 has no parameters and arguments were supplied."},
    {8147, 16, "Could not create IDENTITY attribute on nullable column '%1', table '%2'."},
    {8148, 16, "More than one column %1 constraint specified for column '%2', table '%3'."},
    {8150, 16, "Multiple NULL constraints were specified for column '%1', table '%2'."},
    {8151, 16,
     "Both a PRIMARY KEY and UNIQUE constraint have been defined for column '%1', table '%2'. Only one is "
     "allowed."},
    {8152, 16, "String or binary data would be truncated."},
    {8153, 10, "Warning: Null value is eliminated by an aggregate or other SET operation."},
    {8154, 15, "The table '%1' is ambiguous."},
    {8155, 16, "No column name was specified for column %1 of '%2'."},
    {8156, 16, "The column '%1' was specified multiple times for '%2'."},
    {8158, 16, "'%1' has more columns than were specified in the column list."},
    {8159, 16, "'%1' has fewer columns than were specified in the column list."},
    {8160, 15, "A GROUPING or GROUPING_ID function can only be specified when there is a GROUP BY clause."},
    {8161, 15,
     "Argument %1 of the %2 function does not match any of the expressions in the GROUP BY clause."},
    {8162, 16,
     "The formal parameter \"%1\" was not declared as an OUTPUT parameter, but the actual parameter passed "
     "in requested output."},
    {8164, 16, "An INSERT EXEC statement cannot be nested."},
    {8166, 16, "Constraint name '%1' not permitted. Constraint names cannot begin with a number sign (#)."},
    {8167, 16,
     "The type of column \"%1\" conflicts with the type of other columns specified in the UNPIVOT list."},
    {8168, 16,
     "Cannot create, drop, enable, or disable more than one constraint, column, index, or trigger named '%1' "
     "in this context. Duplicate names are not allowed."},
    {8169, 16, "Conversion failed when converting from a character string to uniqueidentifier."},
    {8170, 16, "Insufficient result space to convert uniqueidentifier value to char."},
    {8178, 16, "The parameterized query '%1' expects the parameter '%2', which was not supplied."},
    {8179, 16, "Could not find prepared statement with handle %1."},
    {8180, 16, "Statement(s) could not be prepared."},
    {8183, 16,
     "Only UNIQUE or PRIMARY KEY constraints can be created on computed columns, while CHECK, FOREIGN KEY, "
     "and NOT NULL constraints require that computed columns be persisted."},
    {8196, 16, "Duplicate column specified as ROWGUIDCOL."},
    {8197, 16, "The object '%1' does not exist or is invalid for this operation."},
    {8199, 16,
     "In EXECUTE <procname>, procname can only be a literal or variable of type char, varchar, nchar, or "
     "nvarchar."},
    {8623, 16,
     "The query processor ran out of internal resources and could not produce a query plan. This is a rare "
     "event and only expected for extremely complex queries or queries that reference a very large number of "
     "tables or partitions. Please simplify the query. If you believe you have received this message in "
     "error, contact Customer Support Services for more information."},
    {8672, 16,
     "The MERGE statement attempted to UPDATE or DELETE the same row more than once. This happens when a "
     "target row matches more than one source row. A MERGE statement cannot UPDATE/DELETE the same row of "
     "the target table multiple times. Refine the ON clause to ensure a target row matches at most one "
     "source row, or use the GROUP BY clause to group the source rows."},
    {9803, 16, "Invalid data for type \"%1\"."},
    {9806, 16, "The datepart %1 is not supported by date function %2."},
    {9807, 16,
     "The input character string does not follow style %1, either change the input character string or use a "
     "different style."},
    {9809, 16, "The style %1 is not supported for conversions from %2 to %3."},
    {9810, 16, "The datepart %1 is not supported by date function %2 for data type %3."},
    {9812, 16, "The timezone provided to builtin function %1 is invalid."},
    {9818, 16, "The culture parameter '%1' provided in the function call is not supported."},
    {9819, 16, "Error converting string value '%1' into data type %2 using culture '%3'."},
    {9828, 16,
     "The second and third arguments of the %1 built-in function must contain an equal number of "
     "characters."},
    {9829, 16,
     "STRING_AGG aggregation result exceeded the limit of 8000 bytes. Use LOB types to avoid result "
     "truncation."},
    {10700, 16, "The table-valued parameter \"%1\" is READONLY and cannot be modified."},
    {10703, 15, "Too many grouping sets. The maximum number is %1."},
    {10704, 15,
     "To rethrow an error, a THROW statement must be used inside a CATCH block. Insert the THROW statement "
     "inside a CATCH block, or add error parameters to the THROW statement."},
    {10709, 16, "The number of columns for each row in a table value constructor must be the same."},
    {10710, 15, "An action of type '%1' is not allowed in the '%2' clause of a MERGE statement."},
    {10713, 15, "A MERGE statement must be terminated by a semi-colon (;)."},
    {10714, 15, "An action of type '%1' cannot appear more than once in a '%2' clause of a MERGE statement."},
    {10738, 15,
     "The number of row value expressions in the INSERT statement exceeds the maximum allowed number of 1000 "
     "row values."},
    {10741, 15, "A TOP can not be used in the same query or sub-query as a OFFSET."},
    {10742, 15, "The offset specified in a OFFSET clause may not be negative."},
    {10743, 15, "The number of rows provided for a OFFSET clause must be an integer."},
    {10744, 15, "The number of rows provided for a FETCH clause must be greater then zero."},
    {10753, 15, "The function '%1' must have an OVER clause."},
    {10760, 16,
     "Scale argument is not valid. Valid expressions for data type %1 scale argument are integer constants "
     "and "
     "integer constant expressions."},
    {10761, 16, "Invalid data type %1 in function %2."},
    {11537, 16,
     "EXECUTE statement failed because its WITH RESULT SETS clause specified %1 column(s) for result set "
     "number %2, but the statement sent %3 column(s) at run time."},
    {13609, 16, "JSON text is not properly formatted. Unexpected character '%1' is found at position %2."},
    {14262, 16, "The specified %1 ('%2') does not exist."},
    {15001, 16, "Object '%1' does not exist or is not a valid object for this operation."},
    {15002, 16, "The procedure '%1' cannot be executed within a transaction."},
    {15003, 16, "Only members of the %1 role can execute this stored procedure."},
    {15004, 16, "Name cannot be NULL."},
    {15006, 16, "'%1' is not a valid name because it contains invalid characters."},
    {15007, 16, "'%1' is not a valid login or you do not have permission."},
    {15008, 16, "User '%1' does not exist in the current database."},
    {15009, 16, "The object '%1' does not exist in database '%2' or is invalid for this operation."},
    {15010, 16,
     "The database '%1' does not exist. Supply a valid database name. To see available databases, use "
     "sys.databases."},
    {15014, 16, "The role '%1' does not exist in the current database."},
    {15015, 16, "The server '%1' does not exist. Use sp_helpserver to show available servers."},
    {15016, 16, "The default '%1' does not exist."},
    {15017, 16, "The rule '%1' does not exist."},
    {15022, 16, "The specified user name is already aliased."},
    {15023, 16, "User, group, or role '%1' already exists in the current database."},
    {15025, 16, "The server principal '%1' already exists."},
    {15032, 16, "The database '%1' already exists. Specify a unique database name."},
    {15033, 16, "'%1' is not a valid official language name."},
    {15036, 16, "The data type '%1' does not exist or you do not have permission."},
    {15040, 16, "User-defined error messages must have an ID greater than 50000."},
    {15041, 16, "User-defined error messages must have a severity level between 1 and 25."},
    {15042, 10, "The @with_log parameter is ignored for messages that are not us_english version."},
    {15043, 16, "You must specify 'REPLACE' to overwrite an existing message."},
    {15049, 11, "Cannot unbind from '%1'. Use ALTER TABLE DROP CONSTRAINT."},
    {15063, 16, "The login already has an account under a different user name."},
    {15070, 10, "Object '%1' was successfully marked for recompilation."},
    {15071, 16,
     "Usage: sp_addmessage <msgnum>,<severity>,<msgtext> [,<language> [,FALSE | TRUE [,REPLACE]]]"},
    {15081, 16, "Membership of the public role cannot be changed."},
    {15085, 16, "Usage: sp_addtype name, 'data type' [,'NULL' | 'NOT NULL']"},
    {15100, 16, "Usage: sp_bindefault defaultname, objectname [, 'futureonly']"},
    {15101, 16,
     "Cannot bind a default to a computed column, a sparse column, or to a column of the following data "
     "types: "
     "timestamp, varchar(max), nvarchar(max), varbinary(max), xml, or CLR type."},
    {15102, 16, "Cannot bind a default to an identity column."},
    {15103, 16, "Cannot bind a default to a column created with or altered to have a default value."},
    {15104, 16, "You do not own a table named '%1' that has a column named '%2'."},
    {15106, 16, "Usage: sp_bindrule rulename, objectname [, 'futureonly']"},
    {15107, 16,
     "Cannot bind a rule to a computed column, a sparse column, or to a column of the following data types: "
     "text, ntext, image, timestamp, varchar(max), nvarchar(max), varbinary(max), xml, or user-defined data "
     "type."},
    {15108, 16,
     "sp_addtype cannot be used to define user-defined data types for varchar(max), nvarchar(max) or "
     "varbinary(max) data types. Use CREATE TYPE for this purpose."},
    {15110, 16, "The proposed new database owner is already a user or aliased in the database."},
    {15116, 16,
     "Password validation failed. The password does not meet the operating system policy requirements "
     "because "
     "it is too short."},
    {15118, 16,
     "Password validation failed. The password does not meet the requirements of the password filter DLL."},
    {15123, 16, "The configuration option '%1' does not exist, or it may be an advanced option."},
    {15125, 16, "Trigger '%1' is not a trigger for '%2'."},
    {15126, 16, "Trigger '%1' was not found."},
    {15130, 16, "There already exists a '%1' trigger for '%2'."},
    {15133, 16, "INSTEAD OF trigger '%1' cannot be associated with an order."},
    {15135, 16,
     "Object is invalid. Extended properties are not permitted on '%1', or the object does not exist."},
    {15136, 16,
     "The database principal is set as the execution context of one or more procedures, functions, or event "
     "notifications and cannot be dropped."},
    {15138, 16, "The database principal owns a %1 in the database, and cannot be dropped."},
    {15144, 16, "The role has members. It must be empty before it can be dropped."},
    {15148, 16, "The data type or table column '%1' does not exist or you do not have permission."},
    {15150, 16, "Cannot %1 the %2 '%3'."},
    {15151, 16, "Cannot %1 the %2 '%3', because it does not exist or you do not have permission."},
    {15165, 16, "Could not find object '%1' or you do not have permission."},
    {15166, 10,
     "Warning: User types created via sp_addtype are contained in dbo schema. The @owner parameter if "
     "specified is ignored."},
    {15174, 16,
     "Login '%1' owns one or more database(s). Change the owner of the database(s) before dropping the "
     "login."},
    {15175, 16,
     "Login '%1' is aliased or mapped to a user in one or more database(s). Drop the user or alias before "
     "dropping the login."},
    {15176, 16, "The only valid @parameter value is 'WITH_LOG'."},
    {15177, 16, "Usage: sp_dropmessage <msg number> [,<language> | 'ALL']"},
    {15178, 16, "Cannot drop a message with an ID less than 50,000."},
    {15179, 16, "The message number %1 or specified language version does not exist."},
    {15180, 16, "Cannot drop. The data type is being used."},
    {15197, 16, "There is no text for object '%1'."},
    {15198, 16, "The name supplied (%1) is not a user, role, or aliased login."},
    {15217, 16, "Property cannot be updated or deleted. Property '%1' does not exist for '%2'."},
    {15218, 16, "Object '%1' is not a table."},
    {15223, 11, "Error: The input parameter '%1' is not allowed to be null."},
    {15225, 11,
     "No item by the name of '%1' could be found in the current database '%2', given that @itemtype was "
     "input as '%3'."},
    {15226, 16, "Cannot create alias types from an XML datatype."},
    {15233, 16, "Property cannot be added. Property '%1' already exists for '%2'."},
    {15236, 16, "Column '%1' has no default."},
    {15237, 16, "User data type '%1' has no default."},
    {15238, 16, "Column '%1' has no rule."},
    {15239, 16, "User data type '%1' has no rule."},
    {15247, 16, "User does not have permission to perform this action."},
    {15248, 11, "Either the parameter @objname is ambiguous or the claimed @objtype (%1) is wrong."},
    {15249, 11, "Error: Explicit @objtype '%1' is unrecognized."},
    {15250, 16,
     "The database name component of the object qualifier must be the name of the current database."},
    {15251, 16, "Invalid '%1' specified. It must be %2."},
    {15252, 11, "The primary or foreign key table name must be given."},
    {15271, 16, "Invalid @with_log parameter value. Valid values are 'true' or 'false'."},
    {15277, 16, "The only valid @parameter_value values are 'true' or 'false'."},
    {15279, 16, "You must add the us_english version of this message before you can add the '%1' version."},
    {15280, 16,
     "All localized versions of this message must be dropped before the us_english version can be dropped."},
    {15284, 16,
     "The database principal has granted or denied permissions to objects in the database and cannot be "
     "dropped."},
    {15304, 16,
     "The severity level of the '%1' version of this message must be the same as the severity level (%2) of "
     "the us_english version."},
    {15325, 16, "The current database does not contain a file named '%1'."},
    {15330, 11, "There are no matching rows on which to report."},
    {15335, 11,
     "Error: The new name '%1' is already in use as a %2 name and would cause a duplicate that is not "
     "permitted."},
    {15336, 16, "Object '%1' cannot be renamed because the object participates in enforced dependencies."},
    {15398, 11, "Only objects in the master database owned by dbo can have the startup setting changed."},
    {15399, 11,
     "Could not change startup option because this option is restricted to objects that have no parameters."},
    {15405, 16, "Cannot use the special principal '%1'."},
    {15406, 16,
     "Cannot execute as the server principal because the principal \"%1\" does not exist, this type of "
     "principal cannot be impersonated, or you do not have permission."},
    {15410, 11, "User or role '%1' does not exist in this database."},
    {15413, 11, "Cannot make a role a member of itself."},
    {15434, 16, "Could not drop login '%1' as the user is currently logged in."},
    {15457, 10, "Configuration option '%1' changed from %2 to %3. Run the RECONFIGURE statement to install."},
    {15459, 10, "In the current database, the specified object references the following:"},
    {15460, 10, "In the current database, the specified object is referenced by the following:"},
    {15461, 10, "Object does not reference any object, and no objects reference it."},
    {15470, 10,
     "No foreign keys reference table '%1', or you do not have permissions on referencing tables."},
    {15471, 10, "The text for object '%1' is encrypted."},
    {15472, 10, "The object '%1' does not have any indexes, or you do not have permissions."},
    {15477, 10, "Caution: Changing any part of an object name could break scripts and stored procedures."},
    {15511, 10, "Default bound to column."},
    {15512, 10, "Default bound to data type."},
    {15513, 10, "The new default has been bound to columns(s) of the specified user data type."},
    {15514, 10, "Rule bound to table column."},
    {15515, 10, "Rule bound to data type."},
    {15516, 10, "The new rule has been bound to column(s) of the specified user data type."},
    {15517, 16,
     "Cannot execute as the database principal because the principal \"%1\" does not exist, this type of "
     "principal cannot be impersonated, or you do not have permission."},
    {15519, 10, "Default unbound from table column."},
    {15520, 10, "Default unbound from data type."},
    {15521, 10, "Columns of the specified user data type had their defaults unbound."},
    {15522, 10, "Rule unbound from table column."},
    {15523, 10, "Rule unbound from data type."},
    {15524, 10, "Columns of the specified user data type had their rules unbound."},
    {15600, 15, "An invalid parameter or option was specified for procedure '%1'."},
    {15625, 10, "Option '%1' not recognized for '%2' parameter."},
    {15626, 10, "You attempted to acquire a transactional application lock without an active transaction."},
    {15664, 16,
     "Cannot set key '%1' in the session context. The key has been set as read_only for this session."},
    {15665, 16,
     "The value was not set for key '%1' because the total size of keys and values in the session context "
     "would exceed the 1 MB limit."},
    {15666, 16, "Cannot set or read a key in the session context because the key is null."},
    {16902, 16, "%1: The value of the parameter %2 is invalid."},
    {16903, 16, "The \"%1\" procedure was called with an incorrect number of parameters."},
    {16905, 16, "The cursor is already open."},
    {16907, 16, "%1 is not allowed in cursor statements."},
    {16911, 16, "%1: The fetch type %2 cannot be used with forward only cursors."},
    {16915, 16, "A cursor with the name '%1' already exists."},
    {16916, 16, "A cursor with the name '%1' does not exist."},
    {16917, 16, "Cursor is not open."},
    {16922, 16, "Cursor Fetch: Implicit conversion from data type %1 to %2 is not allowed."},
    {16924, 16,
     "Cursorfetch: The number of variables declared in the INTO list must match that of selected columns."},
    {16925, 16, "The fetch type %1 cannot be used with dynamic cursors."},
    {16929, 16, "The cursor is READ ONLY."},
    {16930, 16, "The requested row is not in the fetch buffer."},
    {16931, 16, "There are no rows in the current fetch buffer."},
    {16932, 16,
     "The cursor has a FOR UPDATE list and the requested column to be updated is not in this list."},
    {16933, 16,
     "The cursor does not include the table being modified or the table is not updatable through the "
     "cursor."},
    {16948, 16,
     "The variable '%1' is not a cursor variable, but it is used in a place where a cursor variable is "
     "expected."},
    {16949, 16,
     "The variable '%1' is a cursor variable, but it is used in a place where a cursor variable is not "
     "valid."},
    {16950, 10, "The variable '%1' does not currently have a cursor allocated to it."},
    {16957, 16, "FOR UPDATE cannot be specified on a READ ONLY cursor."},
    {17892, 20, "Logon failed for login '%1' due to trigger execution."},
    {18054, 16,
     "Error %1, severity %2, state %3 was raised, but no message with that error number was found in "
     "sys.messages. If error is larger than 50000, make sure the user-defined message is added using "
     "sp_addmessage."},
    {18452, 14,
     "Login failed. The login is from an untrusted domain and cannot be used with Integrated "
     "authentication."},
    {18456, 14, "Login failed for user '%1'."},
    {18470, 14, "Login failed for user '%1'. Reason: The account is disabled."},
    {18487, 14, "Login failed for user '%1'. Reason: The password of the account has expired."},
    {35100, 16,
     "Error number %1 in the THROW statement is outside the valid range. Specify an error number in the "
     "valid range of 50000 to 2147483647."},
    {49999, 16, "Feature '%1' is not supported by the practice server."},
};

} // namespace

std::span<const MessageRow> ServiceMessages() {
    return rows;
}

} // namespace quillon::practice
