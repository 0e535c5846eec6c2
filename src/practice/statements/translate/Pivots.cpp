// PIVOT and UNPIVOT.
#include "practice/statements/translate/Translator.h"

#include "practice/tsql/TreePivot.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

ColumnUse RequireColumn(const Scope& scope, const tsql::Name& name) {
    const std::vector<ColumnUse> found = FindColumns(scope, name);
    if (found.empty())
        throw SqlError(207, {name.Last()});
    if (found.size() > 1)
        throw SqlError(209, {name.Last()});
    return found.front();
}

void Append(QuerySql& query, const std::string& sql, OutputColumn column) {
    query.sql += (query.columns.empty() ? "" : ", ") + sql + " AS " + OutputName(query.columns.size());
    query.columns.push_back(std::move(column));
}

// A column that is passed on, by then one of no table.
OutputColumn PassedOn(const SourceColumn& column) {
    OutputColumn output = OutputOf(column);
    output.identity = false;
    output.readOnly = true;
    output.tableName.clear();
    output.baseColumn = 0;
    return output;
}

} // namespace

// Rows are grouped by the columns that are neither turned nor aggregated.
QuerySql Translator::PivotQuery(const tsql::PivotTable& pivot, const Scope* outer) {
    Scope scope;
    scope.outer = outer;
    const std::string from = FromOne(*pivot.source, scope);
    const ColumnUse turned = RequireColumn(scope, pivot.column);
    const auto& call = tsql::As<tsql::FunctionCall>(*pivot.aggregate);
    scope.looseColumns.clear();
    Scalar aggregate = AggregateCore(call, UpperCase(call.name.Last()), &scope);
    std::vector<const SourceColumn*> used{turned.column};
    for (const ColumnUse& use : scope.looseColumns)
        used.push_back(use.column);
    QuerySql query;
    std::string groups;
    for (const std::unique_ptr<Source>& source : scope.sources) {
        for (const SourceColumn& column : source->columns) {
            if (std::find(used.begin(), used.end(), &column) != used.end())
                continue;
            const std::string sql = ColumnScalar({source.get(), &column}, scope).sql;
            Append(query, sql, PassedOn(column));
            groups += (groups.empty() ? " GROUP BY " : ", ") + Collated(sql, column.type);
        }
    }
    const Scalar key = ColumnScalar(turned, scope);
    for (const std::string& value : pivot.values) {
        OutputColumn column;
        column.name = value;
        column.type = aggregate.type;
        const Scalar wanted = ConvertTo(Constant(Datum::Text(NVarChar(128), value)), key.type);
        Append(query,
               aggregate.sql + " FILTER (WHERE " + Compare(ComparisonOperator::Equal, key, wanted) + ")",
               std::move(column));
    }
    query.sql = "SELECT " + query.sql + " FROM " + from + groups;
    return query;
}

// Every row comes once for each of the columns, save where that is NULL.
QuerySql Translator::UnpivotQuery(const tsql::UnpivotTable& unpivot, const Scope* outer) {
    Scope scope;
    scope.outer = outer;
    const std::string from = FromOne(*unpivot.source, scope);
    const std::string turn = NextAlias();
    std::vector<const SourceColumn*> used;
    std::string numbers;
    std::string values = "CASE " + turn + ".i";
    std::string names = values;
    for (const std::string& name : unpivot.columns) {
        const ColumnUse use = RequireColumn(scope, {{name}, unpivot.position});
        if (!used.empty() && !SameStorage(use.column->type, used.front()->type))
            throw SqlError(8167, {use.column->name});
        used.push_back(use.column);
        const std::string number = std::to_string(used.size());
        numbers += (numbers.empty() ? "SELECT " : " UNION ALL SELECT ") + number + " AS i";
        values += " WHEN " + number + " THEN " + ColumnScalar(use, scope).sql;
        names += " WHEN " + number + " THEN " + Constant(Datum::Text(SysName(), use.column->name)).sql;
    }
    QuerySql query;
    for (const std::unique_ptr<Source>& source : scope.sources)
        for (const SourceColumn& column : source->columns)
            if (std::find(used.begin(), used.end(), &column) == used.end())
                Append(query, ColumnScalar({source.get(), &column}, scope).sql, PassedOn(column));
    OutputColumn value = PassedOn(*used.front());
    value.name = unpivot.value;
    Append(query, values + " END", std::move(value));
    const std::string place = OutputName(query.columns.size() - 1);
    OutputColumn name;
    name.name = unpivot.name;
    name.type = WithCollation(SysName());
    Append(query, names + " END", std::move(name));
    query.sql = "SELECT * FROM (SELECT " + query.sql + " FROM " + from + " CROSS JOIN (" + numbers + ") AS " +
                turn + ") WHERE " + place + " IS NOT NULL";
    return query;
}

} // namespace quillon::practice
