#include "practice/statements/FunctionNodes.h"

#include "practice/storage/StoreFailure.h"
#include "practice/values/StorageForm.h"

#include <sqlite3.h>

namespace quillon::practice {

namespace {

// What SQLite holds for one function: the node, and where its failures go.
template <class Node>
struct Held {
    Node node;
    FunctionNodes* owner;
};

template <class Node>
Held<Node>& HeldOf(sqlite3_context* context) {
    return *static_cast<Held<Node>*>(sqlite3_user_data(context));
}

// Runs `body`; what it throws ends the SQLite statement and is thrown again by our own code.
template <class Body>
void Guarded(sqlite3_context* context, FunctionNodes& owner, Body body) {
    try {
        body();
    } catch (...) {
        owner.KeepFailure();
        sqlite3_result_error(context, "a function failed", -1);
    }
}

// As above, for what gives a value: an error of arithmetic may make it NULL.
template <class Body>
void GuardedValue(sqlite3_context* context, FunctionNodes& owner, Body body) {
    Guarded(context, owner, [&] {
        try {
            body();
        } catch (const SqlError& error) {
            if (!owner.Noted().Replaces(error))
                throw;
            sqlite3_result_null(context);
        }
    });
}

void CallScalar(sqlite3_context* context, int count, sqlite3_value** values) {
    const Held<ScalarNode>& held = HeldOf<ScalarNode>(context);
    GuardedValue(context, *held.owner, [&] {
        constexpr int few = 6;
        std::array<Datum, few> nearby;
        std::vector<Datum> far;
        Datum* arguments = nearby.data();
        if (count > few) {
            far.resize(static_cast<std::size_t>(count));
            arguments = far.data();
        }
        for (int i = 0; i < count; ++i)
            arguments[i] = LoadValue(values[i], held.node.arguments[static_cast<std::size_t>(i)]);
        const Datum result = held.node.evaluate({arguments, static_cast<std::size_t>(count)});
        if (result.IsNull())
            sqlite3_result_null(context);
        else
            ResultDatum(context, result, held.node.result);
    });
}

// SQLite gives each group some bytes of zeros; a pointer in them is ours to free when the group ends.
template <class State>
State** StateOf(sqlite3_context* context) {
    return static_cast<State**>(sqlite3_aggregate_context(context, sizeof(State*)));
}

void StepAggregate(sqlite3_context* context, int, sqlite3_value** values) {
    const Held<AggregateNode>& held = HeldOf<AggregateNode>(context);
    Guarded(context, *held.owner, [&] {
        Accumulator** state = StateOf<Accumulator>(context);
        if (*state == nullptr)
            *state = held.node.start().release();
        (*state)->Step(LoadValue(values[0], held.node.argument));
    });
}

void RemoveFromAggregate(sqlite3_context* context, int, sqlite3_value** values) {
    const Held<AggregateNode>& held = HeldOf<AggregateNode>(context);
    Guarded(context, *held.owner,
            [&] { (*StateOf<Accumulator>(context))->Remove(LoadValue(values[0], held.node.argument)); });
}

void AggregateValue(sqlite3_context* context) {
    const Held<AggregateNode>& held = HeldOf<AggregateNode>(context);
    GuardedValue(context, *held.owner, [&] {
        Accumulator** state = StateOf<Accumulator>(context);
        const Datum result = *state == nullptr ? held.node.start()->Result() : (*state)->Result();
        if (result.IsNull())
            sqlite3_result_null(context);
        else
            ResultDatum(context, result, held.node.result);
    });
}

void FinishAggregate(sqlite3_context* context) {
    AggregateValue(context);
    delete *StateOf<Accumulator>(context);
}

void StepRows(sqlite3_context* context, int count, sqlite3_value** values) {
    const Held<RowAggregateNode>& held = HeldOf<RowAggregateNode>(context);
    Guarded(context, *held.owner, [&] {
        auto** state = StateOf<RowAggregateNode::State>(context);
        if (*state == nullptr)
            *state = held.node.start().release();
        std::vector<Datum> row;
        for (int i = 0; i < count; ++i)
            row.push_back(LoadValue(values[i], held.node.arguments[static_cast<std::size_t>(i)]));
        (*state)->Step(row);
    });
}

void FinishRows(sqlite3_context* context) {
    const Held<RowAggregateNode>& held = HeldOf<RowAggregateNode>(context);
    Guarded(context, *held.owner, [&] {
        auto** slot = StateOf<RowAggregateNode::State>(context);
        const std::unique_ptr<RowAggregateNode::State> state(*slot == nullptr ? held.node.start().release()
                                                                              : *slot);
        const Datum result = state->Result();
        if (result.IsNull())
            sqlite3_result_null(context);
        else
            ResultDatum(context, result, held.node.result);
    });
}

void PassNoting(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL)
        static_cast<Warnings*>(sqlite3_user_data(context))->NoteNull();
    sqlite3_result_value(context, values[0]);
}

template <class Node>
void Drop(void* held) {
    delete static_cast<Held<Node>*>(held);
}

int FlagsOf(Evaluation evaluation) {
    return evaluation == Evaluation::EachRow ? SQLITE_UTF8 : SQLITE_UTF8 | SQLITE_DETERMINISTIC;
}

} // namespace

std::string TypeKey(const SqlType& type) {
    std::string key = std::to_string(static_cast<int>(type.id)) + "." + std::to_string(type.precision) + "." +
                      std::to_string(type.scale) + "." + std::to_string(type.length);
    if (type.collation != nullptr)
        key += type.collation->name;
    return key;
}

template <class Node, class Register>
std::string FunctionNodes::Intern(const char* prefix, const std::string& key,
                                  const std::function<Node()>& make, Register registerNode) {
    const std::string whole = prefix + key;
    if (const auto found = m_names.find(whole); found != m_names.end())
        return found->second;
    auto held = std::make_unique<Held<Node>>(Held<Node>{make(), this});
    const std::string name = prefix + std::to_string(m_names.size());
    // SQLite owns it from here on, even when it fails.
    if (registerNode(name, held.release()) != SQLITE_OK)
        ThrowStoreFailure(m_connection);
    m_names.emplace(whole, name);
    return name;
}

std::string FunctionNodes::Scalar(const std::string& key, const std::function<ScalarNode()>& make) {
    return Intern<ScalarNode>("f", key, make, [&](const std::string& name, Held<ScalarNode>* held) {
        return sqlite3_create_function_v2(
            m_connection, name.c_str(), static_cast<int>(held->node.arguments.size()),
            FlagsOf(held->node.evaluation), held, CallScalar, nullptr, nullptr, Drop<ScalarNode>);
    });
}

std::string FunctionNodes::Aggregate(const std::string& key, const std::function<AggregateNode()>& make) {
    return Intern<AggregateNode>("a", key, make, [&](const std::string& name, Held<AggregateNode>* held) {
        return sqlite3_create_window_function(m_connection, name.c_str(), 1, SQLITE_UTF8, held, StepAggregate,
                                              FinishAggregate, AggregateValue, RemoveFromAggregate,
                                              Drop<AggregateNode>);
    });
}

std::string FunctionNodes::RowAggregate(const std::string& key,
                                        const std::function<RowAggregateNode()>& make) {
    return Intern<RowAggregateNode>(
        "r", key, make, [&](const std::string& name, Held<RowAggregateNode>* held) {
            return sqlite3_create_function_v2(m_connection, name.c_str(),
                                              static_cast<int>(held->node.arguments.size()), SQLITE_UTF8,
                                              held, nullptr, StepRows, FinishRows, Drop<RowAggregateNode>);
        });
}

std::string FunctionNodes::NullNoting() {
    static constexpr const char* name = "noting_null";
    if (m_names.emplace(name, name).second &&
        sqlite3_create_function_v2(m_connection, name, 1, SQLITE_UTF8, &m_warnings, PassNoting, nullptr,
                                   nullptr, nullptr) != SQLITE_OK)
        ThrowStoreFailure(m_connection);
    return name;
}

void FunctionNodes::TakeFailure() {
    if (m_failure)
        std::rethrow_exception(std::exchange(m_failure, nullptr));
}

} // namespace quillon::practice
