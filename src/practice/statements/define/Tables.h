// Tables: how a parsed definition becomes a Table, and CREATE TABLE in its forms (permanent, #temporary,
// variable, SELECT INTO).
#pragma once

#include "practice/statements/Plan.h"

namespace quillon::practice {

// Where an object of that name would be made: database and schema. Throws 2760 for an unknown schema, 911 for
// an unknown database.
struct Home {
    DatabaseId database = 0;
    SchemaId schema = dboSchema;
    NameRule nameRule = {};
};
Home HomeFor(Engine& engine, const tsql::Name& name);
void Settle(SchemaObject& object, const Home& home);
// 3906 where the database is read-only.
void RequireWritable(Engine& engine, DatabaseId database);
// 2714 when the name is taken there.
void RequireFreeName(Engine& engine, const Home& home, const std::string& name);
// The table by its name as DDL takes it; throws the error given (4902, 1088 ...) when there is none.
std::shared_ptr<const Table> RequireTable(Engine& engine, const tsql::Name& name, int errorNumber = 4902);
// schema.table, as messages name it.
std::string TwoPartName(Engine& engine, const SchemaObject& object);
// A copy to be changed, with a new modification date and version.
std::shared_ptr<Table> CopyOf(Engine& engine, const Table& table);

// As the catalogue keeps and shows an expression: in its common form, else as it stands in the source, in
// brackets.
std::string KeptExpression(const tsql::Expression& expression, std::string_view source);

// Builds definitions from their tree.
class TableBuilder {
  public:
    TableBuilder(Engine& engine, Table& table);

    void AddAll(const tsql::TableDefinition& definition);
    Column& AddColumn(const tsql::ColumnDefinition& definition);
    void AddConstraint(const tsql::ConstraintDefinition& definition, Column* of);
    Index& AddIndex(const tsql::IndexDefinition& definition);
    Column MakeColumn(const tsql::ColumnDefinition& definition, int id);
    // The constraints added so far, for WITH CHECK of ALTER TABLE.
    std::vector<ObjectId> added;

  private:
    std::string ConstraintName(const tsql::ConstraintDefinition& definition, const char* prefix,
                               const std::string& column, ObjectId id) const;
    void AddKey(const tsql::ConstraintDefinition& definition, Column* of);
    void AddForeignKey(const tsql::ConstraintDefinition& definition, Column* of);
    void CompleteForeignKey(ForeignKey& key, const Table& parent) const;
    void AddCheck(const tsql::ConstraintDefinition& definition, Column* of);
    void AddDefault(const tsql::ConstraintDefinition& definition, Column* of);
    void BindComputed(Column& column, const tsql::Expression& expression);
    Column& RequireColumn(const std::string& name, int errorNumber);
    std::string TextOf(tsql::Span span) const;
    int NextIndexId(bool clustered) const;

    Engine& m_engine;
    Table& m_table;
    std::set<int> m_nullable; // columns that are said to be NULL
};

// Makes the table known; `table` has database, schema, name and columns. A temporary one has its storage
// then, another is hollow.
std::shared_ptr<const Table> CreateTableObject(Engine& engine, std::shared_ptr<Table> table);
// The table with a place for rows: itself, or as it is after that has been made. Of those who write rows.
std::shared_ptr<const Table> WithStorage(Engine& engine, const std::shared_ptr<const Table>& table);
// SELECT INTO.
std::shared_ptr<const Table> CreateTableFor(Engine& engine, const tsql::Name& name,
                                            const std::vector<OutputColumn>& columns);
void CreateTable(Engine& engine, const tsql::CreateTableStatement& statement);
std::shared_ptr<const Table> CreateTableVariable(Engine& engine, std::string_view name,
                                                 const tsql::TableDefinition& definition);
void DropTables(Engine& engine, const tsql::DropStatement& statement);
void DropTableObject(Engine& engine, const std::shared_ptr<const Table>& table);
void Truncate(Engine& engine, const tsql::TruncateStatement& statement);
// Puts a changed definition in the place of the old one, wherever the table lives.
void PutTable(Engine& engine, std::shared_ptr<Table> table);

} // namespace quillon::practice
