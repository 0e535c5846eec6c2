// Aggregate functions: the type rules and the accumulators. The engine registers them with SQLite and calls
// Step, Remove and Result with values of the argument's type.
#pragma once

#include "practice/values/Datum.h"

#include <memory>
#include <string_view>

namespace quillon::practice {

class Accumulator {
  public:
    virtual ~Accumulator() = default;
    virtual void Step(const Datum& value) = 0;   // nulls are left out by the accumulator itself
    virtual void Remove(const Datum& value) = 0; // undoes the Step of the oldest row of a window frame
    virtual Datum Result() const = 0; // of the aggregate's result type; may be asked again and again
};

struct AggregateFunction {
    std::string_view name;
    SqlType (*resultType)(const SqlType& argument); // throws 8117 and its kin
    std::unique_ptr<Accumulator> (*start)(const SqlType& argument);
};

// SUM AVG MIN MAX COUNT COUNT_BIG STDEV STDEVP VAR VARP CHECKSUM_AGG; nullptr for others. COUNT(*) is Step
// with any non-null.
const AggregateFunction* FindAggregate(std::string_view name);
// STRING_AGG: the separator is a constant of the call.
std::unique_ptr<Accumulator> StartStringAggregate(const SqlType& argument, const Datum& separator);
SqlType StringAggregateType(const SqlType& argument);

} // namespace quillon::practice
