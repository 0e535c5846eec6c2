#include "support/LargeModel.h"

#include <string>

#include "model/AuditObj.h"

namespace quillon::bench {
namespace {

// Half of the column names recur from table to table, as in real databases; the others are the table's own.
std::string ColumnName(int table, int column) {
    const std::string number = std::to_string(column);
    return column % 2 == 0 ? "CommonColumn" + number : "Own" + std::to_string(table) + "Column" + number;
}

template <class T>
std::shared_ptr<T> NewColumn(mdTable& table, int number, int column) {
    const bool isText = column % 3 == 0;
    auto field = std::make_shared<T>();
    field->SetParentName(table.Name());
    field->SetParentOwner(table.Owner());
    field->SetName(ColumnName(number, column));
    field->SetDefault(isText ? "" : "(0)");
    field->SetIsNullable(isText);
    field->SetSQL_Datatype(isText ? "nvarchar" : "int");
    field->SetLength(isText ? 50 : 4);
    field->SetNumericScale(0);
    field->SetOrdinal_Position(static_cast<std::int16_t>(column));
    field->SetNumericPrecision(10);
    field->SetIsTimeStamp(false);
    field->SetIsIdentity(column == 0);
    field->SetSQL_Datatype_And_Length(isText ? "nvarchar(" + std::to_string(column * 20) + ")" : "int");
    field->SetIsGUID(false);
    return field;
}

} // namespace

std::shared_ptr<AuditObj> LoadModel(int tables, int columns) {
    auto audit = std::make_shared<AuditObj>();
    for (int number = 0; number < tables; ++number) {
        const auto table = audit->Database()->Tables()->Add("Table" + std::to_string(number), "dbo", {});
        for (int column = 0; column < columns; ++column) {
            auto field = NewColumn<mdField>(*table, number, column);
            field->SetIsInPrimaryKey(column == 0);
            table->Fields()->Add(std::move(field));
        }
        auto key = NewColumn<mdPrimaryKeyField>(*table, number, 0);
        key->Keys()->Add("PK_" + table->Name());
        table->PrimaryKeyFields()->Add(std::move(key));
        table->Triggers()->Add("AUDIT_" + table->Name(), "dbo", 7, {}, true, table->Name(), "dbo");
    }
    return audit;
}

} // namespace quillon::bench
