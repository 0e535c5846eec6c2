#include "practice/functions/Aggregates.h"

#include "practice/values/Convert.h"
#include "practice/values/Growth.h"
#include "practice/values/Operators.h"
#include "practice/values/SqlError.h"

#include <cctype>
#include <cmath>
#include <deque>

namespace quillon::practice {

namespace {

SqlType SumType(const SqlType& argument) {
    if (argument.IsDecimal())
        return DecimalType(38, argument.scale, argument.id);
    if (argument.id == TypeId::BigInt || argument.id == TypeId::Float || argument.id == TypeId::Money)
        return argument;
    if (argument.id == TypeId::SmallMoney)
        return SimpleType(TypeId::Money);
    if (argument.id == TypeId::Real)
        return SimpleType(TypeId::Float);
    if (argument.id == TypeId::TinyInt || argument.id == TypeId::SmallInt || argument.id == TypeId::Int)
        return SimpleType(TypeId::Int);
    throw SqlError(8117, {argument.Name(), "sum"});
}

SqlType AverageType(const SqlType& argument) {
    try {
        const SqlType type = SumType(argument);
        return type.IsDecimal() ? DecimalType(38, std::max<int>(type.scale, 6), type.id) : type;
    } catch (const SqlError&) {
        throw SqlError(8117, {argument.Name(), "avg"});
    }
}

template <bool isMax>
SqlType ExtremeType(const SqlType& argument) {
    if (argument.id == TypeId::Bit || argument.IsLegacyLob() || argument.id == TypeId::Xml ||
        argument.id == TypeId::Null)
        throw SqlError(8117, {argument.Name(), isMax ? "max" : "min"});
    return argument;
}

template <TypeId id>
SqlType CountType(const SqlType&) {
    return SimpleType(id);
}

SqlType DeviationType(const SqlType& argument) {
    if (!argument.IsNumber() || argument.id == TypeId::Bit)
        throw SqlError(8117, {argument.Name(), "stdev"});
    return SimpleType(TypeId::Float);
}

SqlType ChecksumType(const SqlType& argument) {
    if (!argument.IsInteger())
        throw SqlError(8117, {argument.Name(), "checksum_agg"});
    return SimpleType(TypeId::Int);
}

template <TypeId id>
class Count final : public Accumulator {
  public:
    void Step(const Datum& value) override { m_count += !value.IsNull(); }
    void Remove(const Datum& value) override { m_count -= !value.IsNull(); }
    Datum Result() const override {
        if (id == TypeId::Int && m_count > 2147483647)
            throw SqlError(8115, {"expression", "int"}, 2);
        return Datum::Integer(id, m_count);
    }

  private:
    std::int64_t m_count = 0;
};

// Sums of exact numbers are kept in 128 bits, so that only the result can overflow its type.
class ExactSum final : public Accumulator {
  public:
    ExactSum(const SqlType& argument, bool isAverage)
        : m_result(isAverage ? AverageType(argument) : SumType(argument))
        , m_isAverage(isAverage) {}

    void Step(const Datum& value) override { Change(value, 1); }
    void Remove(const Datum& value) override { Change(value, -1); }

    Datum Result() const override {
        if (m_count == 0)
            return Datum::Null(m_result);
        if (!m_isAverage)
            return Checked({m_sum, m_scale});
        if (m_result.IsInteger())
            return Checked({m_sum / m_count, 0});
        const auto average = Divide({m_sum, m_scale}, {m_count, 0}, m_result.scale);
        return Checked(average ? *average : throw SqlError(8115, {"expression", "numeric"}, 2));
    }

  private:
    void Change(const Datum& value, int sign) {
        if (value.IsNull())
            return;
        const Decimal number = value.Type().IsInteger() ? Decimal{value.Integer(), 0} : value.Number();
        m_scale = number.scale;
        if (__builtin_add_overflow(m_sum, number.unscaled * sign, &m_sum))
            throw SqlError(8115, {"expression", m_result.IsDecimal() ? "numeric" : m_result.Name()}, 2);
        m_count += sign;
    }

    Datum Checked(const Decimal& number) const {
        try {
            return Convert(Datum::Number(DecimalType(38, number.scale), number.unscaled), m_result);
        } catch (const SqlError&) {
            throw SqlError(8115, {"expression", m_result.IsDecimal() ? "numeric" : m_result.Name()}, 2);
        }
    }

    SqlType m_result;
    bool m_isAverage;
    Int128 m_sum = 0;
    int m_scale = 0;
    std::int64_t m_count = 0;
};

class FloatSum final : public Accumulator {
  public:
    explicit FloatSum(bool isAverage)
        : m_isAverage(isAverage) {}
    void Step(const Datum& value) override { Change(value, 1); }
    void Remove(const Datum& value) override { Change(value, -1); }
    Datum Result() const override {
        if (m_count == 0)
            return Datum::Null(SimpleType(TypeId::Float));
        if (!std::isfinite(m_sum))
            throw SqlError(8115, {"expression", "float"}, 2);
        return Datum::Float(m_isAverage ? m_sum / static_cast<double>(m_count) : m_sum);
    }

  private:
    void Change(const Datum& value, int sign) {
        if (value.IsNull())
            return;
        m_sum += value.Float() * sign;
        m_count += sign;
    }

    bool m_isAverage;
    double m_sum = 0;
    std::int64_t m_count = 0;
};

// The candidates for the extreme of a window, in order: one that a later and better row outlives is dropped
// at once.
template <bool isMax>
class Extreme final : public Accumulator {
  public:
    explicit Extreme(const SqlType& argument)
        : m_type(argument) {}

    void Step(const Datum& value) override {
        if (value.IsNull())
            return;
        while (!m_candidates.empty() && !IsBetter(m_candidates.back().value, value))
            m_candidates.pop_back();
        m_candidates.push_back({m_steps++, value});
    }
    void Remove(const Datum& value) override {
        if (value.IsNull())
            return;
        if (!m_candidates.empty() && m_candidates.front().step == m_removed)
            m_candidates.pop_front();
        ++m_removed;
    }
    Datum Result() const override {
        return m_candidates.empty() ? Datum::Null(m_type) : m_candidates.front().value;
    }

  private:
    bool IsBetter(const Datum& left, const Datum& right) const {
        const int order = CompareValues(left, right, m_type.collation);
        return isMax ? order > 0 : order < 0;
    }

    struct Candidate {
        std::int64_t step;
        Datum value;
    };
    SqlType m_type;
    std::deque<Candidate> m_candidates;
    std::int64_t m_steps = 0;
    std::int64_t m_removed = 0;
};

// Variance by sums of the values and of their squares, taken about the first value so that they stay small.
template <bool isPopulation, bool isDeviation>
class Variance final : public Accumulator {
  public:
    void Step(const Datum& value) override { Change(value, 1); }
    void Remove(const Datum& value) override { Change(value, -1); }
    Datum Result() const override {
        const std::int64_t divisor = isPopulation ? m_count : m_count - 1;
        if (divisor <= 0)
            return Datum::Null(SimpleType(TypeId::Float));
        const auto count = static_cast<double>(m_count);
        const double squares = std::fmax(0, m_squares - m_sum * m_sum / count);
        const double variance = squares / static_cast<double>(divisor);
        return Datum::Float(isDeviation ? std::sqrt(variance) : variance);
    }

  private:
    void Change(const Datum& value, int sign) {
        if (value.IsNull())
            return;
        const double number = Convert(value, SimpleType(TypeId::Float)).Float();
        if (m_count == 0)
            m_origin = number;
        const double distance = number - m_origin;
        m_sum += distance * sign;
        m_squares += distance * distance * sign;
        m_count += sign;
    }

    double m_origin = 0, m_sum = 0, m_squares = 0;
    std::int64_t m_count = 0;
};

class ChecksumAggregate final : public Accumulator {
  public:
    void Step(const Datum& value) override { Change(value, 1); }
    void Remove(const Datum& value) override { Change(value, -1); }
    Datum Result() const override {
        return m_count == 0 ? Datum::Null(SimpleType(TypeId::Int))
                            : Datum::Int(static_cast<std::int32_t>(m_bits));
    }

  private:
    void Change(const Datum& value, int sign) {
        if (value.IsNull())
            return;
        m_bits ^= static_cast<std::uint32_t>(value.Integer()); // its own inverse
        m_count += sign;
    }
    std::uint32_t m_bits = 0;
    std::int64_t m_count = 0;
};

class StringAggregate final : public Accumulator {
  public:
    StringAggregate(const SqlType& argument, std::string separator)
        : m_result(StringAggregateType(argument))
        , m_separator(std::move(separator)) {}

    void Step(const Datum& value) override {
        if (value.IsNull())
            return;
        m_parts.push_back(Convert(value, TextType(TypeId::NVarChar, maxLength)).Text());
    }
    void Remove(const Datum& value) override {
        if (!value.IsNull() && !m_parts.empty())
            m_parts.pop_front();
    }
    Datum Result() const override {
        if (m_parts.empty())
            return Datum::Null(m_result);
        std::string text = m_parts.front();
        for (std::size_t index = 1; index < m_parts.size(); ++index) {
            RequireGrowth(text.size() + m_separator.size() + m_parts[index].size());
            text += m_separator + m_parts[index];
        }
        if (!m_result.IsMax() && CountCharacters(text) > m_result.length)
            throw SqlError(9829);
        return Datum::Text(m_result, std::move(text));
    }

  private:
    SqlType m_result;
    std::string m_separator;
    std::deque<std::string> m_parts;
};

template <bool isAverage>
std::unique_ptr<Accumulator> StartSum(const SqlType& argument) {
    if (argument.IsFloat())
        return std::make_unique<FloatSum>(isAverage);
    return std::make_unique<ExactSum>(argument, isAverage);
}

template <typename Kind>
std::unique_ptr<Accumulator> Start(const SqlType&) {
    return std::make_unique<Kind>();
}

template <typename Kind>
std::unique_ptr<Accumulator> StartTyped(const SqlType& argument) {
    return std::make_unique<Kind>(argument);
}

constexpr AggregateFunction rows[] = {
    {"SUM", SumType, StartSum<false>},
    {"AVG", AverageType, StartSum<true>},
    {"MIN", ExtremeType<false>, StartTyped<Extreme<false>>},
    {"MAX", ExtremeType<true>, StartTyped<Extreme<true>>},
    {"COUNT", CountType<TypeId::Int>, Start<Count<TypeId::Int>>},
    {"COUNT_BIG", CountType<TypeId::BigInt>, Start<Count<TypeId::BigInt>>},
    {"STDEV", DeviationType, Start<Variance<false, true>>},
    {"STDEVP", DeviationType, Start<Variance<true, true>>},
    {"VAR", DeviationType, Start<Variance<false, false>>},
    {"VARP", DeviationType, Start<Variance<true, false>>},
    {"CHECKSUM_AGG", ChecksumType, Start<ChecksumAggregate>},
};

} // namespace

const AggregateFunction* FindAggregate(std::string_view name) {
    std::string upper(name);
    for (char& c : upper)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    for (const AggregateFunction& row : rows)
        if (row.name == upper)
            return &row;
    return nullptr;
}

std::unique_ptr<Accumulator> StartStringAggregate(const SqlType& argument, const Datum& separator) {
    const std::string text =
        separator.IsNull() ? std::string() : Convert(separator, TextType(TypeId::NVarChar, maxLength)).Text();
    return std::make_unique<StringAggregate>(argument, text);
}

SqlType StringAggregateType(const SqlType& argument) {
    const TypeId id = argument.IsCharacter() && !argument.IsUnicode() ? TypeId::VarChar : TypeId::NVarChar;
    if (argument.IsCharacter() && argument.IsMax())
        return TextType(id, maxLength, argument.collation);
    return TextType(id, id == TypeId::VarChar ? 8000 : 4000, argument.collation);
}

} // namespace quillon::practice
