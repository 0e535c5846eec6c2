// Translator: binds queries and expressions (names, static types, collations, nullability) and writes them in
// SQLite's language. One translator serves one statement; what it found out besides the text (parameters to
// bind, tables read) is in its Needs.
//
// SQLite's own operators are used wherever they mean the same on stored values: comparison of equal types,
// three-valued logic, CASE, joins, grouping, windows. Everything else becomes a function of ours
// (FunctionNodes). Sources are called s1, s2 ..., their output columns o1, o2 ..., table columns c<id>.
#pragma once

#include "practice/statements/Engine.h"
#include "practice/statements/translate/Scope.h"
#include "practice/values/Operators.h"

#include <limits>
#include <set>

namespace quillon::practice::tsql {
struct PivotTable;
struct UnpivotTable;
} // namespace quillon::practice::tsql

namespace quillon::practice {

// A value to bind before the statement runs: ?1 is the first.
struct Needed {
    enum class Kind { Variable, Global };
    Kind kind = Kind::Variable;
    std::string name;
    SqlType type;
};

// What a hint asks for a table that is read.
struct ReadLock {
    std::optional<LockMode> mode; // nothing: no lock, whatever the isolation level says
    bool kept = true;             // until the transaction ends; otherwise others are only waited for
};

struct Needs {
    std::vector<Needed> values;
    std::set<ObjectId> reads;  // tables
    bool callsModules = false; // user functions: they may read anything
    bool systemViews = false;
    std::map<ObjectId, ReadLock> hinted; // tables that are read under a hint
    bool noWait = false;                 // NOWAIT
    // Table variables by name, with the table that each one was: another run may have other ones.
    std::vector<std::pair<std::string, ObjectId>> tableVariables;
    std::vector<std::string> liveVariables; // assigned by the very SELECT that reads them
};

// Where names are looked up and how the text is meant; changes inside of a view.
struct Surroundings {
    Surroundings() = default;
    // Of an expression that a table keeps.
    explicit Surroundings(const Table& table);
    // Inside of a module.
    explicit Surroundings(const Module& module);

    DatabaseId database = 0;
    SchemaId schema = dboSchema; // of names without one
    NameRule nameRule;           // of the names that the text makes up itself: aliases, common tables
    bool ansiNulls = true;
    bool quotedIdentifier = true;
    // The arguments of an inline function that is being expanded, by folded name with the @.
    const std::map<std::string, Scalar>* arguments = nullptr;
    bool isModule = false;
    const TriggerFrame* trigger = nullptr; // a firing to bind against that is none
};

class Translator {
  public:
    explicit Translator(Engine& engine);
    Translator(Engine& engine, const Surroundings& surroundings);

    Needs needs;

    // --- Queries ---------------------------------------------------------------------------------------
    struct QueryOptions {
        bool top = false;          // the statement's own query, not a subquery
        bool keepRowIds = false;   // add the column rid where the query shows one table's rows
        std::int64_t rowLimit = 0; // SET ROWCOUNT
        std::int64_t maxRecursion = 100;
        bool countLevels = false; // the recursive part of a common table: add the column of its level
    };
    QuerySql Query(const tsql::Query& query, const Scope* outer, const QueryOptions& options);
    QuerySql Query(const tsql::Query& query, const Scope* outer) {
        return Query(query, outer, QueryOptions());
    }
    // SELECT @a = ..., @b = ...: the columns are the new values, of the variables' types.
    QuerySql AssignmentQuery(const tsql::Query& query, const QueryOptions& options);

    // --- Expressions -----------------------------------------------------------------------------------
    Scalar Value(const tsql::Expression& expression, const Scope* scope);
    // SQL that is true, false or null.
    std::string Condition(const tsql::Expression& expression, const Scope* scope);

    // As an assignment to a variable or a column does (implicit conversion); for a column the names for
    // 2628 are given.
    Scalar ConvertTo(Scalar value, const SqlType& type);
    Scalar AssignTo(Scalar value, const Column& column, const std::string& tableName);
    // Applies `+=` and its like.
    Scalar Compound(tsql::AssignmentOperator op, const Scalar& left, const Scalar& right);

    // --- Sources ---------------------------------------------------------------------------------------
    // Adds the elements of FROM to the scope; returns the text after FROM.
    std::string From(const std::vector<tsql::TableSourcePtr>& from, Scope& scope);
    std::string FromOne(const tsql::TableSource& source, Scope& scope);
    // A base table or row set as a source of its own.
    std::string AddTable(const std::shared_ptr<const Table>& table, const std::string& exposed, Scope& scope);
    void AddDerived(QuerySql query, const std::string& exposed, const std::vector<std::string>& names,
                    Scope& scope, std::string* text);
    // Common tables are seen by everything that is translated until the matching Pop.
    void PushCommonTables(const std::vector<tsql::CommonTable>& tables);
    void PopCommonTables() { m_commonTables.pop_back(); }

    // What the name means here: a table, row set or view; nullptr when there is none. (Not common tables.)
    std::shared_ptr<const SchemaObject> FindSourceObject(const tsql::Name& name);
    // The object of that name itself, a synonym too.
    std::shared_ptr<const SchemaObject> FindNamedObject(const tsql::Name& name);
    // The table that a table variable is now; 1087 when there is none of this name.
    std::shared_ptr<const Table> VariableTable(const std::string& name);
    const tsql::CommonTable* FindCommonTable(const tsql::Name& name) const;

    const Surroundings& Here() const { return m_here; }
    Surroundings& Here() { return m_here; }
    Engine& Shared() { return m_engine; }
    const Collation* DatabaseCollation() const;
    SqlType WithCollation(SqlType type) const; // the database's collation where a text has none
    int AddNeeded(const Needed& needed);       // its place, 1-based
    std::string NextAlias() { return "s" + std::to_string(++m_aliases); }
    // SELECT items of a clause such as OUTPUT, stars expanded.
    struct Item {
        Scalar value;
        OutputColumn output;
    };
    std::vector<Item> Items(const std::vector<tsql::SelectItem>& items, const Scope& scope);
    // `ordinal`: of the column, parameter or variable in its list, for the message about a type that is none.
    SqlType TypeOf(const tsql::DataType& type, bool inCast, std::size_t ordinal = 1);
    // The number of rows of TOP and its kin, refused when it is none (1060, 127).
    enum class RowCount { Top, Percent, Offset, Fetch };
    std::string RowCountSql(const tsql::Expression& count, const Scope* outer, RowCount use);
    Scalar ColumnScalar(const ColumnUse& use, const Scope& scope);
    Scalar VariableScalar(const std::string& name) { return VariableValue(name); }

  private:
    struct CommonScope {
        const std::vector<tsql::CommonTable>* tables;
        std::size_t visible; // so many of them can be seen
    };
    // A common table that is being expanded and refers to itself.
    struct Recursion {
        const tsql::CommonTable* table;
        std::string name;
        std::string alias; // of its use
        std::vector<OutputColumn> columns;
        int uses = 0;
    };

    // Queries
    QuerySql Body(const tsql::QueryBody& body, const tsql::Query* whole, const Scope* outer,
                  const QueryOptions& options);
    QuerySql Select(const tsql::SelectBody& body, const tsql::Query* whole, const Scope* outer,
                    const QueryOptions& options);
    QuerySql SetOperation(const tsql::SetOperation& operation, const tsql::Query* whole, const Scope* outer,
                          const QueryOptions& options);
    static bool HasGroupingSets(const tsql::SelectBody& body);
    QuerySql GroupedSets(const tsql::SelectBody& body, const tsql::Query* whole, const Scope* outer,
                         const QueryOptions& options);
    // Branches of set operations that are written one after the other, each converted to the columns.
    struct Branches {
        std::vector<std::string> words; // before each branch; the first has none
        std::vector<QuerySql> branches;
        std::vector<OutputColumn> columns;
        bool compares = false; // one of the words is not UNION ALL
    };
    std::string CompoundSql(Branches& compound);
    void AddBranch(Branches& compound, tsql::SetOperator op, QuerySql branch);
    std::vector<OutputColumn> CommonColumns(const std::vector<OutputColumn>& left,
                                            const std::vector<OutputColumn>& right);
    void MoveOut(QuerySql& query);
    static std::string WithSql(const std::vector<std::string>& movedOut);
    std::string GroupBySql(const tsql::SelectBody& body, Scope& scope);
    struct Order {
        std::vector<std::string> terms;
        std::vector<int> ordinals; // 1-based output column, 0 for an expression
    };
    Order OrderBy(const std::vector<tsql::OrderItem>& items, const std::vector<Item>& output,
                  const Scope& scope, bool distinct);
    std::string OneSet(const tsql::SelectBody& body, const tsql::Query* whole, Scope& scope,
                       std::vector<OutputColumn>& columns, Order& order);
    int OrdinalOf(const tsql::Expression& expression, const std::vector<Item>& output) const;

    std::string LimitSql(const tsql::Query* whole, const tsql::SelectBody* body, const Scope* outer,
                         const QueryOptions& options);
    struct SelectParts {
        std::string from; // " FROM ...", or empty
        std::string tail; // WHERE and GROUP BY
    };
    SelectParts Parts(const tsql::SelectBody& body, Scope& scope);
    Item ValueItem(const tsql::SelectItem& item, const Scope& scope);
    Item AssignmentItem(const tsql::SelectItem& item, const Scope& scope);
    static bool IsTopOne(const tsql::SelectBody& body);
    static void AppendOrder(std::string& sql, const std::vector<std::string>& terms);
    static std::string ShareKeys(Order& order);
    QuerySql WithShare(const tsql::SelectBody& body, QuerySql plain, const Order& order, const Scope* outer);
    static void CheckGrouping(const Scope& scope, int errorNumber);
    QuerySql AsFor(const tsql::Query& query, QuerySql inner);
    QuerySql Rename(QuerySql query, const std::vector<std::string>& names);
    QuerySql Converted(QuerySql query, const std::vector<OutputColumn>& to);

    // Sources
    // The one that the name says, or the current one; nullptr when there is none.
    const Database* DatabaseOf(const tsql::Name& name) const;
    std::string AddRowSet(const std::shared_ptr<const Table>& set, bool after, const std::string& exposed,
                          Scope& scope);
    std::string Turned(QuerySql query, const tsql::TableSource& source, Scope& scope);
    std::string NamedSource(const tsql::NamedTable& source, Scope& scope);
    std::string FindNamed(const tsql::NamedTable& source, Scope& scope);
    std::string FunctionSource(const tsql::FunctionTable& source, Scope& scope);
    std::string VariableSource(const tsql::VariableTable& source, Scope& scope);
    std::string JoinSource(const tsql::Join& join, Scope& scope);
    std::string Apply(const tsql::Join& join, Scope& scope);
    static void AddApplied(std::unique_ptr<Source> source, bool nullable, Scope& scope);
    std::string Lateral(Source& source, const std::string& from, const std::string& with,
                        const Capture& capture);
    QuerySql TableFunction(const std::shared_ptr<const Module>& function,
                           const tsql::ExpressionList& arguments, const Scope* outer);
    std::string CommonSource(const tsql::CommonTable& table, const tsql::NamedTable& source, Scope& scope);
    QuerySql CommonQuery(const tsql::CommonTable& table);
    std::string RecursiveUse(const tsql::NamedTable& source, Scope& scope);
    std::string RecursivePart(const tsql::CommonTable& table, const tsql::QueryBody& part,
                              const std::string& name, const std::vector<OutputColumn>& columns);
    std::string LevelSql();
    QuerySql RecursiveQuery(const tsql::CommonTable& table, const tsql::SetOperation& body);
    QuerySql ViewQuery(const Module& view);
    QuerySql ValuesQuery(const std::vector<tsql::ExpressionList>& rows, const Scope* outer);
    QuerySql PivotQuery(const tsql::PivotTable& pivot, const Scope* outer);
    QuerySql UnpivotQuery(const tsql::UnpivotTable& unpivot, const Scope* outer);
    QuerySql StringSplit(const tsql::ExpressionList& arguments, const Scope* outer);
    QuerySql InlineFunction(const Module& function, const tsql::ExpressionList& arguments,
                            const Scope* outer);
    std::string SystemSource(const SystemView& view, const Database& database, const std::string& exposed,
                             Scope& scope);

    // Expressions, one function a kind
    Scalar Literal(const tsql::Literal& literal);
    Scalar ColumnValue(const tsql::ColumnReference& reference, const Scope* scope);
    Scalar VariableValue(const std::string& name);
    Scalar GlobalValue(const tsql::GlobalVariable& global);
    Scalar PseudoValue(const tsql::PseudoColumn& pseudo, const Scope* scope);
    Scalar UnaryValue(const tsql::Unary& unary, const Scope* scope);
    Scalar BinaryValue(const tsql::Binary& binary, const Scope* scope);
    // One operator of a chain, bound: what it makes of what stands left of it and the operand to its right.
    struct Link {
        BinaryOperator op = BinaryOperator::Add;
        SqlType left;
        SqlType result;
        bool nullable = true;
        CollationLabel label = CollationLabel::CoercibleDefault;
        bool emptyLeft = false; // NULL on the left counts as an empty text
        bool joins = false;     // two texts that fit their type together
    };
    Scalar OrEmpty(Scalar text);
    Link BindOperator(BinaryOperator op, Scalar& left, Scalar& right);
    Scalar Operate(BinaryOperator op, Scalar left, Scalar right);
    Scalar ChainValue(const std::vector<const tsql::Binary*>& chain, Scalar first, const Scope* scope);
    Scalar CalculateLinks(Scalar first, std::span<const Link> links, std::span<const Scalar> operands);
    static bool LengthsAdd(const SqlType& left, const SqlType& right, const SqlType& result);
    Scalar CastValue(const tsql::Cast& cast, const Scope* scope);
    Scalar CaseValue(const tsql::Case& value, const Scope* scope);
    Scalar CollateValue(const tsql::Collate& collate, const Scope* scope);
    Scalar SubqueryValue(const tsql::Subquery& subquery, const Scope* scope);
    Scalar DispatchValue(const tsql::Expression& expression, const Scope* scope);

    // Functions
    Scalar FunctionValue(const tsql::FunctionCall& call, const Scope* scope);
    std::optional<Scalar> SyntaxFunction(const tsql::FunctionCall& call, const std::string& name,
                                         const Scope* scope);
    Scalar Coalesce(const tsql::FunctionCall& call, const Scope* scope);
    Scalar NullIf(const tsql::FunctionCall& call, const Scope* scope);
    Scalar IsNullFunction(const tsql::FunctionCall& call, const Scope* scope);
    Scalar Iif(const tsql::FunctionCall& call, const Scope* scope);
    Scalar Choose(const tsql::FunctionCall& call, const Scope* scope);
    Scalar BuiltIn(const ScalarFunction& function, const tsql::FunctionCall& call, const Scope* scope);
    Scalar CallBuiltIn(const ScalarFunction& function, std::vector<Scalar> arguments);
    Scalar ParseFunction(const tsql::FunctionCall& call, const std::string& name, const Scope* scope);
    Scalar TriggerFunction(const tsql::FunctionCall& call, const std::string& name);
    Scalar UserFunction(const Module& function, const tsql::FunctionCall& call, const Scope* scope);
    Scalar AggregateValue(const tsql::FunctionCall& call, const std::string& name, const Scope* scope);
    Scalar AggregateCore(const tsql::FunctionCall& call, const std::string& name, const Scope* scope);
    Scalar StringAggregate(const tsql::FunctionCall& call, const Scope* scope);
    Scalar GroupingValue(const tsql::FunctionCall& call, const std::string& name, const Scope* scope);
    Scalar WindowValue(const tsql::FunctionCall& call, const std::string& name, const Scope* scope);
    Scalar WindowCore(const tsql::FunctionCall& call, const std::string& name, const Scope* scope);
    std::string OverSql(const tsql::OverClause& over, const Scope* scope);

    // Conditions
    std::string LogicalSql(const tsql::Logical& logical, const Scope* scope);
    std::string ComparisonSql(const tsql::Comparison& comparison, const Scope* scope);
    std::string LikeSql(const tsql::Like& like, const Scope* scope);
    std::string InListSql(const tsql::InList& in, const Scope* scope);
    std::string InQuerySql(const Scalar& operand, const tsql::Query& query, bool negated, const Scope* scope);
    std::string QuantifiedSql(const tsql::Quantified& quantified, const Scope* scope);
    std::string BetweenSql(const tsql::Between& between, const Scope* scope);
    std::string Compare(ComparisonOperator op, Scalar left, Scalar right);

    // Types
    // Gives both texts the stronger collation; 468 names the operation when neither is.
    void Harmonize(Scalar& left, Scalar& right, const char* operation) const;
    // Converts all to one type; returns a model of it.
    Scalar Common(std::vector<Scalar>& values, const char* operation);
    Scalar Call(const std::string& key, std::vector<Scalar> arguments, const SqlType& result,
                Evaluation evaluation, std::function<Datum(std::span<const Datum>)> evaluate);
    Scalar Fold(Scalar call, const std::vector<Scalar>& arguments,
                const std::function<Datum(std::span<const Datum>)>& evaluate) const;
    Scalar Constant(const Datum& value) const;
    std::string TestForNull(const Scalar& value, bool negated);

    Engine& m_engine;
    Surroundings m_here;
    int m_aliases = 0;
    int m_depth = 0;
    std::vector<CommonScope> m_commonTables;
    std::vector<Recursion> m_recursions;
    std::int64_t m_maxRecursion = 100;
    bool m_usedLive = false;
    std::vector<ObjectId> m_expanding;  // views, against endless ones
    std::optional<ReadLock> m_readLock; // of the hints around the table that is read
    // Queries that stand in the WITH of the outermost one, since SQLite's parser bears few levels.
    std::vector<std::string> m_movedOut;
    int m_outermostAlias = std::numeric_limits<int>::max(); // that columns were named of
};

// `text COLLATE CI_AS` where a text of that type must sort or compare by it; the text alone otherwise.
std::string Collated(const std::string& sql, const SqlType& type);
// Whether a value of the one type is stored exactly as the same value of the other, and always fits.
bool SameStorage(const SqlType& from, const SqlType& to);
std::string UpperCase(std::string_view text);
// The terms with the word between them; many of them in groups, so that neither the nesting of brackets nor
// the depth of SQLite's tree grows with their number. Any grouping must mean the same.
std::string JoinTerms(const std::vector<std::string>& terms, std::string_view word);

} // namespace quillon::practice
