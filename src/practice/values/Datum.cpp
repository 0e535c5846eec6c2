#include "practice/values/Datum.h"

#include "practice/values/Convert.h"

#include <algorithm>

namespace quillon::practice {

namespace {

int LiteralLength(const std::string& utf8, int limit) {
    const int length = CountCharacters(utf8);
    return length > limit ? maxLength : std::max(length, 1);
}

} // namespace

Datum Datum::Money(Int128 tenThousandths, TypeId id) {
    return Datum(SimpleType(id), tenThousandths);
}

Datum Datum::Number(const SqlType& decimalType, Int128 unscaled) {
    return Datum(decimalType, unscaled);
}

Datum Datum::NVarCharOf(std::string utf8) {
    const int length = LiteralLength(utf8, 4000);
    return Text(TextType(TypeId::NVarChar, length), std::move(utf8));
}

Datum Datum::VarCharOf(std::string utf8) {
    const int length = LiteralLength(utf8, 8000);
    return Text(TextType(TypeId::VarChar, length), std::move(utf8));
}

} // namespace quillon::practice
