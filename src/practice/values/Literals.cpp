#include "practice/values/Literals.h"

#include "practice/values/CodePage.h"
#include "practice/values/Convert.h"
#include "practice/values/SqlError.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace quillon::practice {

namespace {

Datum NumberLiteral(std::string_view text) {
    const std::size_t digits = static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }));
    std::string_view significant = text;
    while (significant.size() > 1 && significant.front() == '0')
        significant.remove_prefix(1);
    const auto number = ParseDecimal(text);
    const bool tooLong =
        significant.size() > 39 ||
        (digits > 38 && significant.size() - (significant.find('.') != std::string_view::npos) > 38);
    if (!number || tooLong)
        throw SqlError(1007, {"number", text});
    const int precision = std::max({DigitCount(number->unscaled), number->scale, 1});
    return Datum::Number(DecimalType(precision, number->scale, TypeId::Numeric), number->unscaled);
}

} // namespace

Datum IntegerLiteral(std::string_view digits) {
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error == std::errc() && end == digits.data() + digits.size())
        return Datum::Int(number);
    return NumberLiteral(digits);
}

Datum DecimalLiteral(std::string_view text) {
    return NumberLiteral(text);
}

Datum FloatLiteral(std::string_view text) {
    double number = 0;
    std::string plain(text);
    if (plain.find_first_of("eE") + 1 == plain.size())
        plain.push_back('0'); // 1e is 1e0
    else if (!plain.empty() && (plain.back() == '+' || plain.back() == '-'))
        plain.push_back('0');
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), number);
    if (error != std::errc() || end != plain.data() + plain.size())
        throw SqlError(168, {text, "8"});
    return Datum::Float(number);
}

Datum MoneyLiteral(std::string_view text) {
    try {
        return Convert(Datum::VarCharOf(std::string(text)), SimpleType(TypeId::Money));
    } catch (const SqlError&) {
        throw SqlError(151, {text});
    }
}

Datum BinaryLiteral(std::string_view text) {
    std::string digits(text.substr(std::min<std::size_t>(2, text.size())));
    digits.erase(std::remove_if(digits.begin(), digits.end(),
                                [](char c) { return c == '\\' || c == '\n' || c == '\r'; }),
                 digits.end());
    if (digits.size() % 2 != 0)
        digits.insert(0, 1, '0');
    const int bytes = static_cast<int>(digits.size() / 2);
    const SqlType type = BinaryType(TypeId::VarBinary, bytes > 8000 ? maxLength : std::max(bytes, 1));
    return Convert(Datum::VarCharOf(digits), type, {}, 2);
}

Datum StringLiteral(std::string text, bool unicode, const Collation* collation) {
    if (unicode)
        return Datum::NVarCharOf(std::move(text));
    return Datum::VarCharOf(CodePage::Of(collation).Fit(text));
}

} // namespace quillon::practice
