#include "practice/tsql/References.h"

#include "practice/tsql/TreePivot.h"
#include "practice/values/NameRule.h"

#include <algorithm>

namespace quillon::practice::tsql {

namespace {

constexpr std::string_view kSelect = "SELECT";
constexpr std::string_view kInsert = "INSERT";
constexpr std::string_view kUpdate = "UPDATE";
constexpr std::string_view kDelete = "DELETE";

class Collector {
  public:
    explicit Collector(const SameNames& same)
        : m_same(same) {}

    void Read(const Expression* expression);
    void Read(const ExpressionPtr& expression) { Read(expression.get()); }
    void Read(const ExpressionList& list) {
        for (const ExpressionPtr& one : list)
            Read(one);
    }
    void Read(const Query& query);
    void Read(const TableDefinition& definition);
    void Read(const Statement& statement);

    std::vector<Reference> found;

  private:
    void Add(const Name& name, std::string_view right) {
        if (!name.Empty() && !IsCommonTable(name))
            found.push_back({&name, right});
    }
    void AddType(const DataType& type) {
        if (!type.name.Empty())
            found.push_back({&type.name, "EXECUTE", true});
    }
    const CommonTable* CommonTableOf(const Name& name) const {
        if (name.parts.size() == 1)
            for (auto table = m_commonTables.rbegin(); table != m_commonTables.rend(); ++table)
                if (m_same((*table)->name, name.Last()))
                    return *table;
        return nullptr;
    }
    bool IsCommonTable(const Name& name) const { return CommonTableOf(name) != nullptr; }
    /// A table's own query does not see the table: a recursive one asks for a table of its name, if any.
    void EnterCommonTables(const std::vector<CommonTable>& tables) {
        for (const CommonTable& table : tables) {
            Read(*table.query);
            m_commonTables.push_back(&table);
        }
    }
    void LeaveCommonTables(const std::vector<CommonTable>& tables) {
        m_commonTables.resize(m_commonTables.size() - tables.size());
    }
    void Read(const QueryBody& body);
    void Read(const TableSource& source);
    void Read(const std::vector<TableSourcePtr>& from) {
        for (const TableSourcePtr& source : from)
            Read(*source);
    }
    void Read(const std::vector<OrderItem>& items) {
        for (const OrderItem& item : items)
            Read(item.expression);
    }
    void Read(const std::vector<SelectItem>& items) {
        for (const SelectItem& item : items)
            Read(item.expression);
    }
    void Read(const FunctionCall& call);
    void Read(const std::vector<SetClause>& sets) {
        for (const SetClause& set : sets)
            Read(set.value);
    }
    void Read(const ConstraintDefinition& constraint) {
        Add(constraint.referencedTable, "REFERENCES");
        Read(constraint.expression);
    }

    void Change(const Name& target, std::string_view right, const std::vector<TableSourcePtr>& from);
    void ChangeQuery(const Query& query, std::string_view right);
    void ChangeBody(const QueryBody& body, std::string_view right);
    void ChangeSource(const TableSource& source, std::string_view right);
    void ReadOutput(const DmlStatement& statement, const std::vector<TableSourcePtr>& from);
    void ReadInsert(const InsertStatement& statement);
    void ReadUpdate(const UpdateStatement& statement);
    void ReadDelete(const DeleteStatement& statement);
    void ReadMerge(const MergeStatement& statement);
    void ReadChange(const DmlStatement& statement);
    void ReadOther(const Statement& statement);

    const TableSource* SourceCalled(const TableSource& source, const std::string& name) const;

    const SameNames& m_same;
    std::vector<const CommonTable*> m_commonTables;
};

bool UsesColumns(const Expression& expression) {
    // A value that is neither a constant nor a variable may well be made of the row's columns.
    return expression.kind != ExpressionKind::Literal && expression.kind != ExpressionKind::Variable &&
           expression.kind != ExpressionKind::GlobalVariable &&
           expression.kind != ExpressionKind::DefaultValue;
}

/// What a source is called by: its alias, or else the last part of its name.
const std::string& ExposedName(const TableSource& source) {
    const bool byName = source.alias.empty() && source.kind == TableSourceKind::Table;
    return byName ? As<NamedTable>(source).name.Last() : source.alias;
}

const TableSource* Collector::SourceCalled(const TableSource& source, const std::string& name) const {
    if (source.kind != TableSourceKind::Join)
        return SameName(ExposedName(source), name) || m_same(ExposedName(source), name) ? &source : nullptr;
    const auto& join = As<Join>(source);
    const TableSource* left = SourceCalled(*join.left, name);
    return left != nullptr ? left : SourceCalled(*join.right, name);
}

void Collector::Read(const FunctionCall& call) {
    if (call.name.parts.size() > 1)
        Add(call.name, "EXECUTE");
    Read(call.arguments);
    Read(call.withinGroup);
    if (call.over) {
        Read(call.over->partitionBy);
        Read(call.over->orderBy);
    }
}

void Collector::Read(const Expression* expression) {
    if (expression == nullptr)
        return;
    switch (expression->kind) {
    case ExpressionKind::Unary: return Read(As<Unary>(*expression).operand);
    case ExpressionKind::Binary:
        Read(As<Binary>(*expression).left);
        return Read(As<Binary>(*expression).right);
    case ExpressionKind::Function: return Read(As<FunctionCall>(*expression));
    case ExpressionKind::Cast: Read(As<Cast>(*expression).operand); return Read(As<Cast>(*expression).style);
    case ExpressionKind::Case: {
        const auto& choice = As<Case>(*expression);
        Read(choice.input);
        for (const CaseBranch& branch : choice.branches) {
            Read(branch.when);
            Read(branch.then);
        }
        return Read(choice.otherwise);
    }
    case ExpressionKind::Collate: return Read(As<Collate>(*expression).operand);
    case ExpressionKind::Subquery: return Read(*As<Subquery>(*expression).query);
    case ExpressionKind::Comparison:
        Read(As<Comparison>(*expression).left);
        return Read(As<Comparison>(*expression).right);
    case ExpressionKind::Logical:
        Read(As<Logical>(*expression).left);
        return Read(As<Logical>(*expression).right);
    case ExpressionKind::Not: return Read(As<Not>(*expression).operand);
    case ExpressionKind::IsNull: return Read(As<IsNull>(*expression).operand);
    case ExpressionKind::Between: {
        const auto& between = As<Between>(*expression);
        Read(between.operand);
        Read(between.low);
        return Read(between.high);
    }
    case ExpressionKind::Like: {
        const auto& like = As<Like>(*expression);
        Read(like.operand);
        Read(like.pattern);
        return Read(like.escape);
    }
    case ExpressionKind::InList:
        Read(As<InList>(*expression).operand);
        return Read(As<InList>(*expression).list);
    case ExpressionKind::InQuery:
        Read(As<InQuery>(*expression).operand);
        return Read(*As<InQuery>(*expression).query);
    case ExpressionKind::Quantified:
        Read(As<Quantified>(*expression).operand);
        return Read(*As<Quantified>(*expression).query);
    case ExpressionKind::Exists: return Read(*As<Exists>(*expression).query);
    case ExpressionKind::Literal:
    case ExpressionKind::Column:
    case ExpressionKind::PseudoColumn:
    case ExpressionKind::Variable:
    case ExpressionKind::GlobalVariable:
    case ExpressionKind::DefaultValue: return;
    }
}

void Collector::Read(const Query& query) {
    EnterCommonTables(query.with);
    Read(*query.body);
    Read(query.orderBy);
    Read(query.offset);
    Read(query.fetch);
    LeaveCommonTables(query.with);
}

void Collector::Read(const QueryBody& body) {
    if (body.kind == QueryBodyKind::SetOperation) {
        Read(*As<SetOperation>(body).left);
        return Read(*As<SetOperation>(body).right);
    }
    const auto& select = As<SelectBody>(body);
    if (select.top)
        Read(select.top->count);
    Read(select.from);
    Read(select.items);
    Read(select.where);
    for (const GroupingElement& element : select.groupBy)
        for (const ExpressionList& set : element.sets)
            Read(set);
    Read(select.having);
}

void Collector::Read(const TableSource& source) {
    switch (source.kind) {
    case TableSourceKind::Table: return Add(As<NamedTable>(source).name, kSelect);
    case TableSourceKind::Function:
        Add(As<FunctionTable>(source).name, kSelect);
        return Read(As<FunctionTable>(source).arguments);
    case TableSourceKind::Derived: return Read(*As<DerivedTable>(source).query);
    case TableSourceKind::Values:
        for (const ExpressionList& row : As<ValuesTable>(source).rows)
            Read(row);
        return;
    case TableSourceKind::Join:
        Read(*As<Join>(source).left);
        Read(*As<Join>(source).right);
        return Read(As<Join>(source).condition);
    case TableSourceKind::Pivot:
        Read(*As<PivotTable>(source).source);
        return Read(As<PivotTable>(source).aggregate);
    case TableSourceKind::Unpivot: return Read(*As<UnpivotTable>(source).source);
    case TableSourceKind::Variable: return;
    }
}

void Collector::Read(const TableDefinition& definition) {
    for (const ColumnDefinition& column : definition.columns) {
        Read(column.computed);
        for (const ConstraintDefinition& constraint : column.constraints)
            Read(constraint);
    }
    for (const ConstraintDefinition& constraint : definition.constraints)
        Read(constraint);
}

/// The target may be called by the alias of a source, or be a common or derived table: then the tables under
/// it change.
void Collector::Change(const Name& target, std::string_view right, const std::vector<TableSourcePtr>& from) {
    if (target.Empty())
        return;
    if (target.parts.size() == 1)
        for (const TableSourcePtr& source : from)
            if (const TableSource* called = SourceCalled(*source, target.Last())) {
                ChangeSource(*called, right);
                // By the rule of the source's own database the two may be one name or two: both are meant
                // then.
                if (ExposedName(*called) != target.Last())
                    Add(target, right);
                return;
            }
    if (const CommonTable* table = CommonTableOf(target))
        return ChangeQuery(*table->query, right);
    Add(target, right);
}

void Collector::ChangeQuery(const Query& query, std::string_view right) {
    ChangeBody(*query.body, right);
}

void Collector::ChangeBody(const QueryBody& body, std::string_view right) {
    if (body.kind == QueryBodyKind::Select)
        for (const TableSourcePtr& source : As<SelectBody>(body).from)
            ChangeSource(*source, right);
}

void Collector::ChangeSource(const TableSource& source, std::string_view right) {
    if (source.kind == TableSourceKind::Table) {
        const Name& name = As<NamedTable>(source).name;
        const CommonTable* table = CommonTableOf(name);
        return table == nullptr ? Add(name, right) : ChangeQuery(*table->query, right);
    }
    if (source.kind == TableSourceKind::Derived)
        return ChangeQuery(*As<DerivedTable>(source).query, right);
    if (source.kind == TableSourceKind::Join) {
        ChangeSource(*As<Join>(source).left, right);
        ChangeSource(*As<Join>(source).right, right);
    }
}

void Collector::ReadOutput(const DmlStatement& statement, const std::vector<TableSourcePtr>& from) {
    for (const OutputClause& clause : statement.output) {
        Change(statement.target.name, kSelect, from);
        Read(clause.items);
        Add(clause.into.name, kInsert);
    }
}

void Collector::ReadInsert(const InsertStatement& statement) {
    Change(statement.target.name, kInsert, {});
    ReadOutput(statement, {});
    for (const ExpressionList& row : statement.rows)
        Read(row);
    if (statement.query)
        Read(*statement.query);
    if (statement.execute)
        Read(*statement.execute);
}

void Collector::ReadUpdate(const UpdateStatement& statement) {
    const bool reads = statement.where ||
                       std::any_of(statement.sets.begin(), statement.sets.end(), [](const SetClause& set) {
                           return set.op != AssignmentOperator::Set || (set.value && UsesColumns(*set.value));
                       });
    Change(statement.target.name, kUpdate, statement.from);
    if (reads)
        Change(statement.target.name, kSelect, statement.from);
    Read(statement.from);
    Read(statement.sets);
    Read(statement.where);
    ReadOutput(statement, statement.from);
}

void Collector::ReadDelete(const DeleteStatement& statement) {
    Change(statement.target.name, kDelete, statement.from);
    if (statement.where)
        Change(statement.target.name, kSelect, statement.from);
    Read(statement.from);
    Read(statement.where);
    ReadOutput(statement, statement.from);
}

void Collector::ReadMerge(const MergeStatement& statement) {
    Change(statement.target.name, kSelect, {});
    Read(*statement.source);
    Read(statement.on);
    for (const MergeClause& clause : statement.clauses) {
        Change(statement.target.name,
               clause.action == MergeAction::Insert   ? kInsert
               : clause.action == MergeAction::Update ? kUpdate
                                                      : kDelete,
               {});
        Read(clause.condition);
        Read(clause.sets);
        Read(clause.values);
    }
    ReadOutput(statement, {});
}

void Collector::ReadChange(const DmlStatement& statement) {
    EnterCommonTables(statement.with);
    if (statement.top)
        Read(statement.top->count);
    switch (statement.kind) {
    case StatementKind::Insert: ReadInsert(As<InsertStatement>(statement)); break;
    case StatementKind::Update: ReadUpdate(As<UpdateStatement>(statement)); break;
    case StatementKind::Delete: ReadDelete(As<DeleteStatement>(statement)); break;
    default: ReadMerge(As<MergeStatement>(statement));
    }
    LeaveCommonTables(statement.with);
}

void Collector::Read(const Statement& statement) {
    switch (statement.kind) {
    case StatementKind::Select: return Read(As<SelectStatement>(statement).query);
    case StatementKind::Insert:
    case StatementKind::Update:
    case StatementKind::Delete:
    case StatementKind::Merge: return ReadChange(static_cast<const DmlStatement&>(statement));
    default: return ReadOther(statement);
    }
}

void Collector::ReadOther(const Statement& statement) {
    switch (statement.kind) {
    case StatementKind::CreateTable: return Read(As<CreateTableStatement>(statement).definition);
    case StatementKind::AlterTable: return Read(As<AlterTableStatement>(statement).added);
    case StatementKind::CreateType:
        if (const auto& table = As<CreateTypeStatement>(statement).table)
            Read(*table);
        return;
    case StatementKind::CreateDefaultOrRule:
        return Read(As<CreateDefaultOrRuleStatement>(statement).expression);
    case StatementKind::DeclareTable: return Read(As<DeclareTableStatement>(statement).definition);
    case StatementKind::DeclareVariables:
        for (const VariableDeclaration& variable : As<DeclareVariablesStatement>(statement).variables) {
            AddType(variable.type);
            Read(variable.value);
        }
        return;
    case StatementKind::SetVariable: return Read(As<SetVariableStatement>(statement).value);
    case StatementKind::Return: return Read(As<ReturnStatement>(statement).value);
    case StatementKind::Print: return Read(As<PrintStatement>(statement).value);
    case StatementKind::ExecuteText: return Read(As<ExecuteTextStatement>(statement).text);
    case StatementKind::Dbcc: return Read(As<DbccStatement>(statement).arguments);
    case StatementKind::FetchCursor: return Read(As<FetchCursorStatement>(statement).count);
    case StatementKind::DeclareCursor: return Read(*As<DeclareCursorStatement>(statement).definition.select);
    case StatementKind::SetCursorVariable:
        if (const auto& definition = As<SetCursorVariableStatement>(statement).definition)
            Read(*definition->select);
        return;
    default: return;
    }
}

template <class Node>
std::vector<Reference> Collected(const Node& node, const SameNames& same) {
    Collector collector(same);
    collector.Read(node);
    return std::move(collector.found);
}

} // namespace

std::vector<Reference> ReferencesOf(const Statement& statement, const SameNames& same) {
    return Collected(statement, same);
}

std::vector<Reference> ReferencesOf(const Expression& expression, const SameNames& same) {
    return Collected(&expression, same);
}

std::vector<Reference> ReferencesOf(const Query& query, const SameNames& same) {
    return Collected(query, same);
}

} // namespace quillon::practice::tsql
