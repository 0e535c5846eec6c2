#pragma once

// Statements that define databases, schemas, tables, indexes and types. Modules are in TreeModules.h,
// principals in TreeSecurity.h.

#include "practice/tsql/TreeQueries.h"

namespace quillon::practice::tsql {

/// A setting as `name [=] value` with the words as written, for options that are kept or passed over
/// (file groups, fill factors, database settings).
struct OptionSetting {
    std::string name; // upper case, words joined by one blank
    std::string value;
};

struct CreateDatabaseStatement : Statement {
    std::string name;
    std::string collation;

    CreateDatabaseStatement()
        : Statement(StatementKind::CreateDatabase) {}
};

/// ALTER DATABASE name SET ..., COLLATE c, MODIFY NAME = n; an empty `name` is CURRENT.
struct AlterDatabaseStatement : Statement {
    enum class Action { Set, Collate, Rename };
    std::string name;
    Action action = Action::Set;
    std::vector<OptionSetting> options;
    std::string value; // the collation or new name

    AlterDatabaseStatement()
        : Statement(StatementKind::AlterDatabase) {}
};

struct CreateSchemaStatement : Statement {
    std::string name;  // empty when only an owner was given
    std::string owner; // AUTHORIZATION
    StatementList elements;

    CreateSchemaStatement()
        : Statement(StatementKind::CreateSchema) {}
};

struct AlterSchemaTransferStatement : Statement {
    std::string schema;
    std::string securableClass; // "OBJECT", "TYPE"
    Name object;

    AlterSchemaTransferStatement()
        : Statement(StatementKind::AlterSchemaTransfer) {}
};

struct IndexColumn {
    std::string name;
    bool descending = false;
    Position position;
};

enum class ReferentialAction { NoAction, Cascade, SetNull, SetDefault };

enum class ConstraintKind { PrimaryKey, Unique, ForeignKey, Check, Default };

/// A constraint of a column or a table. A column's own constraint has no `columns`, except a foreign key's
/// `referencedColumns`.
struct ConstraintDefinition {
    Position position;
    ConstraintKind kind = ConstraintKind::Check;
    std::string name; // empty: the system makes one up
    std::optional<bool> clustered;
    std::vector<IndexColumn> columns;
    Name referencedTable;
    std::vector<std::string> referencedColumns;
    ReferentialAction onDelete = ReferentialAction::NoAction;
    ReferentialAction onUpdate = ReferentialAction::NoAction;
    bool notForReplication = false;
    ExpressionPtr expression; // of CHECK and DEFAULT
    Span expressionText;      // its text, with the brackets around it if there were any
    std::string forColumn;    // ADD DEFAULT x FOR column
    bool withValues = false;
    std::vector<OptionSetting> options;
};

struct IndexDefinition {
    Position position;
    std::string name;
    bool unique = false;
    bool clustered = false;
    std::vector<IndexColumn> columns;
    std::vector<std::string> included;
    ExpressionPtr filter;
    Span filterText;
    std::vector<OptionSetting> options;
};

struct IdentityDefinition {
    std::string seed = "1"; // digits with an optional sign, as large as the column's type allows
    std::string increment = "1";
    bool notForReplication = false;
};

struct ColumnDefinition {
    Position position;
    std::string name;
    std::optional<DataType>
        type; // none for a computed column, and for a bare `timestamp`, which names itself
    std::string collation;
    std::optional<bool> nullable;
    std::optional<IdentityDefinition> identity;
    bool rowGuid = false;
    bool sparse = false;
    ExpressionPtr computed;
    Span computedText;
    bool persisted = false;
    std::vector<ConstraintDefinition> constraints;
    std::vector<IndexDefinition> indexes;
};

/// What stands between the brackets of CREATE TABLE, of a table variable and of a table type.
struct TableDefinition {
    std::vector<ColumnDefinition> columns;
    std::vector<ConstraintDefinition> constraints;
    std::vector<IndexDefinition> indexes;
};

struct CreateTableStatement : Statement {
    Name name;
    TableDefinition definition;
    std::vector<OptionSetting> options;

    CreateTableStatement()
        : Statement(StatementKind::CreateTable) {}
};

enum class AlterTableAction {
    Add,            // columns, constraints
    AlterColumn,    // column (type, collation, nullability)
    ColumnProperty, // columnName, property ROWGUIDCOL / PERSISTED / NOT FOR REPLICATION / SPARSE, addProperty
    Drop,           // drops
    Constraints,    // CHECK or NOCHECK CONSTRAINT: enable, names or all; `withCheck`
    Triggers,       // ENABLE or DISABLE TRIGGER: enable, names or all
    Set,            // options
    Rebuild,
};

struct AlterTableDrop {
    bool column = false; // otherwise a constraint
    bool ifExists = false;
    std::string name;
    Position position;
};

struct AlterTableStatement : Statement {
    Name name;
    AlterTableAction action = AlterTableAction::Add;
    std::optional<bool> withCheck; // WITH CHECK, WITH NOCHECK
    TableDefinition added;
    ColumnDefinition column; // of AlterColumn
    std::string columnName;  // of ColumnProperty
    std::string property;
    bool addProperty = true;
    std::vector<AlterTableDrop> drops;
    bool enable = true;
    bool all = false;
    std::vector<std::string> names;
    std::vector<OptionSetting> options;

    AlterTableStatement()
        : Statement(StatementKind::AlterTable) {}
};

struct CreateIndexStatement : Statement {
    Name table;
    IndexDefinition index;
    bool dropExisting = false;

    CreateIndexStatement()
        : Statement(StatementKind::CreateIndex) {}
};

struct AlterIndexStatement : Statement {
    enum class Action { Rebuild, Reorganize, Disable, Set };
    std::string index; // empty for ALL
    Name table;
    Action action = Action::Rebuild;
    std::vector<OptionSetting> options;

    AlterIndexStatement()
        : Statement(StatementKind::AlterIndex) {}
};

struct CreateStatisticsStatement : Statement {
    std::string name;
    Name table;
    std::vector<std::string> columns;

    CreateStatisticsStatement()
        : Statement(StatementKind::CreateStatistics) {}
};

struct UpdateStatisticsStatement : Statement {
    Name table;

    UpdateStatisticsStatement()
        : Statement(StatementKind::UpdateStatistics) {}
};

/// CREATE TYPE name FROM type [NULL | NOT NULL], or AS TABLE (...).
struct CreateTypeStatement : Statement {
    Name name;
    std::optional<DataType> base;
    std::optional<bool> nullable;
    std::optional<TableDefinition> table;

    CreateTypeStatement()
        : Statement(StatementKind::CreateType) {}
};

struct CreateSynonymStatement : Statement {
    Name name;
    Name target; // need not exist

    CreateSynonymStatement()
        : Statement(StatementKind::CreateSynonym) {}
};

/// The old CREATE DEFAULT and CREATE RULE, which sp_bindefault and sp_bindrule attach.
struct CreateDefaultOrRuleStatement : Statement {
    bool rule = false;
    Name name;
    ExpressionPtr expression;
    Span expressionText;
    std::string source; // the whole batch

    CreateDefaultOrRuleStatement()
        : Statement(StatementKind::CreateDefaultOrRule) {}
};

enum class DropKind {
    Database,
    Schema,
    Table,
    View,
    Procedure,
    Function,
    Type,
    Synonym,
    Default,
    Rule,
    Login,
    User,
    Role,
    Statistics,
};

struct DropStatement : Statement {
    DropKind what = DropKind::Table;
    bool ifExists = false;
    std::vector<Name> names;

    DropStatement()
        : Statement(StatementKind::Drop) {}
};

struct DropIndexItem {
    std::string index;
    Name table;
    Position position;
};

struct DropIndexStatement : Statement {
    bool ifExists = false;
    std::vector<DropIndexItem> items; // both `i ON t` and the old `t.i`

    DropIndexStatement()
        : Statement(StatementKind::DropIndex) {}
};

} // namespace quillon::practice::tsql
