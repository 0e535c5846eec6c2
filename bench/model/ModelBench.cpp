// How large a model may grow: 10,000 tables of 20 columns, filled through the operations that the metadata
// loader uses, stay below 200 MB and one second; the bench fails when they do not. Then what screens and
// templates do most with such a model.
#include <benchmark/benchmark.h>

#include <string>

#include "model/AuditObj.h"
#include "model/faces/ModelFaces.h"
#include "support/HeapMeter.h"
#include "support/LargeModel.h"

namespace quillon::bench {
namespace {

constexpr int TableCount = 10000;
constexpr int ColumnCount = 20;
constexpr double MostMegabytes = 200;

std::shared_ptr<AuditObj> LoadModel() {
    return bench::LoadModel(TableCount, ColumnCount);
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
