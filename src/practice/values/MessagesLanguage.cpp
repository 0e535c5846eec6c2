#include "practice/values/Messages.h"

// Messages 21 to 499: what is wrong with the text of a statement or with the names and types in it.

namespace quillon::practice {

namespace {

constexpr MessageRow rows[] = {
    {21, 20,
     "Warning: Fatal error %1 occurred. Note the error and time, and contact your system administrator."},
    {102, 15, "Incorrect syntax near '%1'."},
    {103, 15, "The %1 that starts with '%2' is too long. Maximum length is %3."},
    {104, 15,
     "ORDER BY items must appear in the select list if the statement contains a UNION, INTERSECT or EXCEPT "
     "operator."},
    {105, 15, "Unclosed quotation mark after the character string '%1'."},
    {106, 15, "Too many table names in the query. The maximum allowable is %1."},
    {107, 15, "The column prefix '%1' does not match with a table name or alias name used in the query."},
    {108, 15, "The ORDER BY position number %1 is out of range of the number of items in the select list."},
    {109, 15,
     "There are more columns in the INSERT statement than values specified in the VALUES clause. The number "
     "of values in the VALUES clause must match the number of columns specified in the INSERT statement."},
    {110, 15,
     "There are fewer columns in the INSERT statement than values specified in the VALUES clause. The number "
     "of values in the VALUES clause must match the number of columns specified in the INSERT statement."},
    {111, 15, "'%1' must be the first statement in a query batch."},
    {112, 15, "Variables are not allowed in the %1 statement."},
    {113, 15, "Missing end comment mark '*/'."},
    {116, 16,
     "Only one expression can be specified in the select list when the subquery is not introduced with "
     "EXISTS."},
    {117, 15, "The %1 name '%2' contains more than the maximum number of prefixes. The maximum is %3."},
    {119, 15,
     "Must pass parameter number %1 and subsequent parameters as '@name = value'. After the form '@name = "
     "value' has been used, all subsequent parameters must be passed in the form '@name = value'."},
    {120, 15,
     "The select list for the INSERT statement contains fewer items than the insert list. The number of "
     "SELECT values must match the number of INSERT columns."},
    {121, 15,
     "The select list for the INSERT statement contains more items than the insert list. The number of "
     "SELECT values must match the number of INSERT columns."},
    {124, 15, "CREATE PROCEDURE contains no statements."},
    {125, 15, "Case expressions may only be nested to level %1."},
    {127, 15, "A TOP N or FETCH rowcount value may not be negative."},
    {128, 15,
     "The name \"%1\" is not permitted in this context. Valid expressions are constants, constant "
     "expressions, and (in some contexts) variables. Column names are not permitted."},
    {130, 16, "Cannot perform an aggregate function on an expression containing an aggregate or a subquery."},
    {131, 15, "The size (%1) given to the %2 '%3' exceeds the maximum allowed for any data type (%4)."},
    {132, 15,
     "The label '%1' has already been declared. Label names must be unique within a query batch or stored "
     "procedure."},
    {133, 15, "A GOTO statement references the label '%1' but the label has not been declared."},
    {134, 15,
     "The variable name '%1' has already been declared. Variable names must be unique within a query batch "
     "or stored procedure."},
    {135, 15, "Cannot use a BREAK statement outside the scope of a WHILE statement."},
    {136, 15, "Cannot use a CONTINUE statement outside the scope of a WHILE statement."},
    {137, 15, "Must declare the scalar variable \"%1\"."},
    {139, 15, "Cannot assign a default value to a local variable."},
    {140, 15, "Can only use IF UPDATE within a CREATE TRIGGER statement."},
    {141, 15,
     "A SELECT statement that assigns a value to a variable must not be combined with data-retrieval "
     "operations."},
    {142, 15, "Incorrect syntax for definition of the '%1' constraint."},
    {144, 15,
     "Cannot use an aggregate or a subquery in an expression used for the group by list of a GROUP BY "
     "clause."},
    {145, 15, "ORDER BY items must appear in the select list if SELECT DISTINCT is specified."},
    {147, 15,
     "An aggregate may not appear in the WHERE clause unless it is in a subquery contained in a HAVING "
     "clause or a select list, and the column being aggregated is an outer reference."},
    {148, 15, "Incorrect time syntax in time string '%1' used with WAITFOR."},
    {149, 15, "Time value '%1' used with WAITFOR is not a legal value. Check date/time syntax."},
    {151, 15, "'%1' is an invalid money value."},
    {153, 15, "Invalid usage of the option %1 in the %2 statement."},
    {154, 15, "%1 is not allowed in %2."},
    {155, 15, "'%1' is not a recognized %2 option."},
    {156, 15, "Incorrect syntax near the keyword '%1'."},
    {157, 15, "An aggregate may not appear in the set list of an UPDATE statement."},
    {158, 15, "An aggregate may not appear in the OUTPUT clause."},
    {159, 15, "Must specify the table name and index name for the DROP INDEX statement."},
    {164, 15, "Each GROUP BY expression must contain at least one column that is not an outer reference."},
    {165, 16, "Privilege %1 may not be granted or revoked."},
    {166, 15, "'%1' does not allow specifying the database name as a prefix to the object name."},
    {167, 16, "Cannot create %1 on a temporary object."},
    {168, 15, "The floating point value '%1' is out of the range of computer representation (%2 bytes)."},
    {169, 15,
     "A column has been specified more than once in the order by list. Columns in the order by list must be "
     "unique."},
    {173, 15, "The definition for column '%1' must include a data type."},
    {174, 15, "The %1 function requires %2 argument(s)."},
    {175, 15, "An aggregate may not appear in a computed column expression or check constraint."},
    {177, 15, "The IDENTITY function can only be used when the SELECT statement has an INTO clause."},
    {178, 15, "A RETURN statement with a return value cannot be used in this context."},
    {179, 15, "Cannot use the OUTPUT option when passing a constant to a stored procedure."},
    {180, 15, "There are too many parameters in this %1 statement. The maximum number is %2."},
    {181, 15, "Cannot use the OUTPUT option in a DECLARE, CREATE AGGREGATE or CREATE FUNCTION statement."},
    {183, 15, "The scale (%1) for column '%2' must be within the range %3 to %4."},
    {187, 15, "Invalid use of a function in the select list."},
    {189, 15, "The %1 function requires %2 to %3 arguments."},
    {191, 15,
     "Some part of your SQL statement is nested too deeply. Rewrite the query or break it up into smaller "
     "queries."},
    {192, 15, "The scale must be less than or equal to the precision."},
    {193, 15,
     "The object or column name starting with '%1' is too long. The maximum length is %2 characters."},
    {194, 15, "A SELECT INTO statement cannot contain a SELECT statement that assigns values to a variable."},
    {195, 15, "'%1' is not a recognized %2."},
    {196, 15,
     "SELECT INTO must be the first query in a statement containing a UNION, INTERSECT or EXCEPT operator."},
    {197, 15, "EXECUTE cannot be used as a source when inserting into a table variable."},
    {199, 15, "An INSERT statement cannot contain a SELECT statement that assigns values to a variable."},
    {201, 16, "Procedure or function '%1' expects parameter '%2', which was not supplied."},
    {203, 16, "The name '%1' is not a valid identifier."},
    {205, 16,
     "All queries combined using a UNION, INTERSECT or EXCEPT operator must have an equal number of "
     "expressions in their target lists."},
    {206, 16, "Operand type clash: %1 is incompatible with %2"},
    {207, 16, "Invalid column name '%1'."},
    {208, 16, "Invalid object name '%1'."},
    {209, 16, "Ambiguous column name '%1'."},
    {210, 16, "Conversion failed when converting datetime from binary/varbinary string."},
    {212, 16, "Expression result length exceeds the maximum. %1 max, %2 found."},
    {213, 16, "Column name or number of supplied values does not match table definition."},
    {214, 16, "Procedure expects parameter '%1' of type '%2'."},
    {215, 16,
     "Parameters supplied for object '%1' which is not a function. If the parameters are intended as a table "
     "hint, a WITH keyword is required."},
    {216, 16, "Parameters were not supplied for the function '%1'."},
    {217, 16, "Maximum stored procedure, function, trigger, or view nesting level exceeded (limit %1)."},
    {218, 16,
     "Could not find the type '%1'. Either it does not exist or you do not have the necessary permission."},
    {219, 16, "The type '%1' already exists, or you do not have permission to create it."},
    {220, 16, "Arithmetic overflow error for data type %1, value = %2."},
    {226, 16, "%1 statement not allowed within multi-statement transaction."},
    {229, 14, "The %1 permission was denied on the object '%2', database '%3', schema '%4'."},
    {230, 14,
     "The %1 permission was denied on the column '%2' of the object '%3', database '%4', schema '%5'."},
    {232, 16, "Arithmetic overflow error for type %1, value = %2."},
    {233, 16, "The column '%1' in table '%2' cannot be null."},
    {234, 16, "There is insufficient result space to convert a money value to %1."},
    {235, 16, "Cannot convert a char value to money. The char value has incorrect syntax."},
    {236, 16, "The conversion from char data type to money resulted in a money overflow error."},
    {237, 16, "There is insufficient result space to convert a money value to %1."},
    {238, 16, "There is insufficient result space to convert the %1 value (= %2) to the money data type."},
    {239, 16, "Duplicate common table expression name '%1' was specified."},
    {240, 16,
     "Types don't match between the anchor and the recursive part in column \"%1\" of recursive query "
     "\"%2\"."},
    {241, 16, "Conversion failed when converting date and/or time from character string."},
    {242, 16, "The conversion of a %1 data type to a %2 data type resulted in an out-of-range value."},
    {243, 16, "Type %1 is not a defined system type."},
    {244, 16, "The conversion of the %1 value '%2' overflowed an %3 column. Use a larger integer column."},
    {245, 16, "Conversion failed when converting the %1 value '%2' to data type %3."},
    {246, 16, "No anchor member was specified for recursive query \"%1\"."},
    {248, 16, "The conversion of the %1 value '%2' overflowed an int column."},
    {249, 16, "The type \"%1\" is not comparable. It cannot be used in the %2 clause."},
    {252, 16, "Recursive common table expression '%1' does not contain a top-level UNION ALL operator."},
    {253, 16, "Recursive member of a common table expression '%1' has multiple recursive references."},
    {256, 16,
     "The data type %1 is invalid for the %2 function. Allowed types are: char/varchar, nchar/nvarchar, and "
     "binary/varbinary."},
    {257, 16,
     "Implicit conversion from data type %1 to %2 is not allowed. Use the CONVERT function to run this "
     "query."},
    {259, 16, "Ad hoc updates to system catalogs are not allowed."},
    {260, 16,
     "Disallowed implicit conversion from data type %1 to data type %2, table '%3', column '%4'. Use the "
     "CONVERT function to run this query."},
    {261, 16, "'%1' is not a recognized function."},
    {262, 14, "%1 permission denied in database '%2'."},
    {263, 16, "Must specify table to select from."},
    {264, 16,
     "The column name '%1' is specified more than once in the SET clause or column list of an INSERT. A "
     "column cannot be assigned more than one value in the same clause. Modify the clause to make sure that "
     "a column is updated only once. If this statement updates or inserts columns into a view, column "
     "aliasing can conceal the duplication in your code."},
    {266, 16,
     "Transaction count after EXECUTE indicates a mismatching number of BEGIN and COMMIT statements. "
     "Previous count = %1, current count = %2."},
    {267, 16, "Object '%1' cannot be found."},
    {270, 16, "Object '%1' cannot be modified."},
    {271, 16,
     "The column \"%1\" cannot be modified because it is either a computed column or is the result of a "
     "UNION operator."},
    {272, 16, "Cannot update a timestamp column."},
    {273, 16,
     "Cannot insert an explicit value into a timestamp column. Use INSERT with a column list to exclude the "
     "timestamp column, or insert a DEFAULT into the timestamp column."},
    {278, 16, "The text, ntext, and image data types cannot be used in a GROUP BY clause."},
    {279, 16, "The text, ntext, and image data types are invalid in this subquery or aggregate expression."},
    {281, 16, "%1 is not a valid style number when converting from %2 to a character string."},
    {282, 10,
     "The '%1' procedure attempted to return a status of NULL, which is not allowed. A status of 0 will be "
     "returned instead."},
    {286, 16, "The logical tables INSERTED and DELETED cannot be updated."},
    {287, 16, "The %1 statement is not allowed within a trigger."},
    {289, 16, "Cannot construct data type %1, some of the arguments have values which are not valid."},
    {291, 16, "CAST or CONVERT: invalid attributes specified for type '%1'"},
    {292, 16, "There is insufficient result space to convert a smallmoney value to %1."},
    {293, 16, "Cannot convert char value to smallmoney. The char value has incorrect syntax."},
    {294, 16,
     "The conversion from char data type to smallmoney data type resulted in a smallmoney overflow error."},
    {295, 16, "Conversion failed when converting character string to smalldatetime data type."},
    {297, 16, "The user does not have permission to perform this action."},
    {302, 16,
     "The newsequentialid() built-in function can only be used in a DEFAULT expression for a column of type "
     "'uniqueidentifier' in a CREATE TABLE or ALTER TABLE statement. It cannot be combined with other "
     "operators to form a complex scalar expression."},
    {305, 16, "The xml data type cannot be compared or sorted, except when using the IS NULL operator."},
    {306, 16,
     "The text, ntext, and image data types cannot be compared or sorted, except when using IS NULL or LIKE "
     "operator."},
    {308, 16, "Index '%1' on table '%2' (specified in the FROM clause) does not exist."},
    {310, 15, "The value %1 specified for the MAXRECURSION option exceeds the allowed maximum of %2."},
    {311, 16, "Cannot use text, ntext, or image columns in the 'inserted' and 'deleted' tables."},
    {313, 16, "An insufficient number of arguments were supplied for the procedure or function %1."},
    {319, 15,
     "Incorrect syntax near the keyword 'with'. If this statement is a common table expression, an "
     "xmlnamespaces clause or a change tracking context clause, the previous statement must be terminated "
     "with a semicolon."},
    {321, 15,
     "\"%1\" is not a recognized table hints option. If it is intended as a parameter to a table-valued "
     "function or to the CHANGETABLE function, ensure that your database compatibility mode is set to 90."},
    {330, 15, "The target '%1' of the OUTPUT INTO clause cannot be a view or common table expression."},
    {331, 16, "The target table '%1' of the OUTPUT INTO clause cannot have any enabled triggers."},
    {332, 16,
     "The target table '%1' of the OUTPUT INTO clause cannot be on either side of a (primary key, foreign "
     "key) relationship. Found reference constraint '%2'."},
    {333, 16,
     "The target table '%1' of the OUTPUT INTO clause cannot have any enabled check constraints or any "
     "enabled rules. Found check constraint or rule '%2'."},
    {334, 16,
     "The target table '%1' of the DML statement cannot have any enabled triggers if the statement contains "
     "an OUTPUT clause without INTO clause."},
    {336, 15,
     "Incorrect syntax near '%1'. If this is intended to be a common table expression, you need to "
     "explicitly terminate the previous statement with a semi-colon."},
    {339, 16, "DEFAULT or NULL are not allowed as explicit identity values."},
    {343, 15, "Unknown object type '%1' used in a CREATE, DROP, or ALTER statement."},
    {346, 15, "The parameter \"%1\" can not be declared READONLY since it is not a table-valued parameter."},
    {349, 16, "The procedure \"%1\" has no parameter named \"%2\"."},
    {352, 15, "The table-valued parameter \"%1\" must be declared with the READONLY option."},
    {402, 16, "The data types %1 and %2 are incompatible in the %3 operator."},
    {403, 16, "Invalid operator for data type. Operator equals %1, type equals %2."},
    {408, 16, "A constant expression was encountered in the ORDER BY list, position %1."},
    {421, 16, "The %1 data type cannot be selected as DISTINCT because it is not comparable."},
    {422, 16, "Common table expression defined but not used."},
    {428, 16, "Insert bulk cannot be used in a multi-statement batch."},
    {443, 16, "Invalid use of a side-effecting operator '%1' within a function."},
    {444, 16, "Select statements included within a function cannot return data to a client."},
    {445, 16, "COLLATE clause cannot be used on expressions containing a COLLATE clause."},
    {446, 16, "Cannot resolve collation conflict for %1 operation."},
    {447, 16, "Expression type %1 is invalid for COLLATE clause."},
    {448, 16, "Invalid collation '%1'."},
    {449, 16, "Collation conflict caused by collate clauses with different collation '%1' and '%2'."},
    {451, 16,
     "Cannot resolve collation conflict between \"%1\" and \"%2\" in %3 operator occurring in %4 statement "
     "column %5."},
    {455, 16, "The last statement included within a function must be a return statement."},
    {460, 16,
     "DISTINCT operator is not allowed in the recursive part of a recursive common table expression '%1'."},
    {461, 16,
     "The TOP or OFFSET operator is not allowed in the recursive part of a recursive common table expression "
     "'%1'."},
    {462, 16, "Outer join is not allowed in the recursive part of a recursive common table expression '%1'."},
    {467, 16,
     "GROUP BY, HAVING, or aggregate functions are not allowed in the recursive part of a recursive common "
     "table expression '%1'."},
    {468, 16, "Cannot resolve the collation conflict between \"%1\" and \"%2\" in the %3 operation."},
    {483, 15, "The OUTPUT clause cannot be used in an INSERT...EXEC statement."},
    {488, 16, "%1 columns must be comparable. The type of column \"%2\" is \"%3\", which is not comparable."},
};

} // namespace

std::span<const MessageRow> LanguageMessages() {
    return rows;
}

} // namespace quillon::practice
