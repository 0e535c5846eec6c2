// How large a model may grow: 10,000 tables of 20 columns, filled through the operations that the metadata
// loader uses, stay below 200 MB and one second; the bench fails when they do not. Then what screens and
// templates do most with such a model.
#include <benchmark/benchmark.h>

#include <string>

#include "model/AuditObj.h"
#include "model/faces/ModelFaces.h"
#include "support/HeapMeter.h"

namespace quillon::bench {
namespace {

constexpr int TableCount = 10000;
constexpr int ColumnCount = 20;
constexpr double MostMegabytes = 200;

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

std::shared_ptr<AuditObj> LoadModel() {
    auto audit = std::make_shared<AuditObj>();
    for (int number = 0; number < TableCount; ++number) {
        const auto table = audit->Database()->Tables()->Add("Table" + std::to_string(number), "dbo", {});
        for (int column = 0; column < ColumnCount; ++column) {
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

void Load(benchmark::State& state) {
    double most = 0;
    for (auto _ : state) {
        const std::size_t before = HeapBytes();
        const auto audit = LoadModel();
        most = std::max(most, Megabytes(HeapBytes() - before));
        state.PauseTiming();
        if (audit->Database()->Tables()->Count() != TableCount || most > MostMegabytes)
            state.SkipWithError("the model is not what it should be, or too large");
        state.ResumeTiming();
    } // releasing the model is part of the time: every change of database does it
    state.counters["MB"] = most;
}
BENCHMARK(Load)->Unit(benchmark::kMillisecond);

void SelectEverything(benchmark::State& state) {
    const auto audit = LoadModel();
    for (auto _ : state) {
        for (const auto& table : *audit->Database()->Tables()) {
            table->SetAudit4Insert(true);
            for (const auto& field : *table->Fields())
                field->SetIsChecked(true);
        }
        benchmark::DoNotOptimize(audit->Database()->AuditedTableCount());
    }
}
BENCHMARK(SelectEverything)->Unit(benchmark::kMillisecond);

// One table's share of a generation run: it becomes the active one, and a template reads all its columns.
void GenerateForOneTable(benchmark::State& state) {
    const auto audit = LoadModel();
    mdDatabase& database = *audit->Database();
    const ObjectRef root = FaceOf(audit);
    const auto get = [](const ObjectRef& object, const char* name, std::span<Value> arguments = {}) {
        return object->Invoke(*object->FindMember(name), InvokeKind::Get, arguments);
    };
    std::int32_t position = 0;
    for (auto _ : state) {
        position = position % TableCount + 1;
        database.SetActiveTable(database.Tables()->Item(position));
        for (std::int32_t column = 1; column <= ColumnCount; ++column) {
            const ObjectRef table = get(get(root, "Database").As<ObjectRef>(), "ActiveTable").As<ObjectRef>();
            Value index = column;
            const ObjectRef field = get(table, "Fields", {&index, 1}).As<ObjectRef>();
            benchmark::DoNotOptimize(get(field, "Name"));
        }
    }
}
BENCHMARK(GenerateForOneTable)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace quillon::bench
