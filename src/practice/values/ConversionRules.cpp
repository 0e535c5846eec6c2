#include "practice/values/ConvertParts.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

// The columns and rows of the documented chart of conversions.
enum Group {
    Bytes,
    Chars,
    NChars,
    OldMoment,
    DateOnly,
    TimeOnly,
    Moment2, // datetime2, datetimeoffset
    Exact,
    Approximate,
    Whole,
    Currency,
    Version,
    Guids,
    Images,
    Texts,
    NTexts,
    Variant,
    Markup,
    GroupCount
};

Group GroupOf(TypeId id) {
    switch (id) {
    case TypeId::Binary:
    case TypeId::VarBinary: return Bytes;
    case TypeId::Char:
    case TypeId::VarChar: return Chars;
    case TypeId::NChar:
    case TypeId::NVarChar: return NChars;
    case TypeId::SmallDateTime:
    case TypeId::DateTime: return OldMoment;
    case TypeId::Date: return DateOnly;
    case TypeId::Time: return TimeOnly;
    case TypeId::DateTime2:
    case TypeId::DateTimeOffset: return Moment2;
    case TypeId::Decimal:
    case TypeId::Numeric: return Exact;
    case TypeId::Real:
    case TypeId::Float: return Approximate;
    case TypeId::Money:
    case TypeId::SmallMoney: return Currency;
    case TypeId::RowVersion: return Version;
    case TypeId::UniqueIdentifier: return Guids;
    case TypeId::Image: return Images;
    case TypeId::Text: return Texts;
    case TypeId::NText: return NTexts;
    case TypeId::SqlVariant: return Variant;
    case TypeId::Xml: return Markup;
    default: return Whole;
    }
}

// One row a source, one letter a target, in the order of Group: i implicit, e explicit only, - not allowed.
constexpr const char* chart[GroupCount] = {
    "iiiieeei-iiiii--ii", // binary, varbinary
    "eiiiiiiiiiieiiiiii", // char, varchar
    "eiiiiiiiiii-i-iiii", // nchar, nvarchar
    "eiiiiiieeeee----i-", // datetime, smalldatetime
    "eiiii-i---------i-", // date
    "eiii-ii---------i-", // time
    "eiiiiii---------i-", // datetime2, datetimeoffset
    "iiii---iiiii----i-", // decimal, numeric
    "iiii---iiii-----i-", // float, real
    "iiii---iiiii----i-", // integers
    "iiii---iiiii----i-", // money
    "ii-i---i-iii-i----", // rowversion
    "iii---------i---i-", // uniqueidentifier
    "i----------i-i----", // image
    "-ii-----------ii-i", // text
    "-ii-----------ii-i", // ntext
    "eeeeeeeeeee-e---i-", // sql_variant
    "eee--------------i", // xml
};

} // namespace

std::string_view MessageName(const SqlType& type) {
    return type.IsDecimal() ? "numeric" : type.Name();
}

void RefuseConversion(const SqlType& from, const SqlType& to) {
    throw SqlError(529, {from.Name(), to.Name()});
}

ConversionRule ConversionBetween(const SqlType& from, const SqlType& to) {
    if (from.id == TypeId::Null || from.id == to.id)
        return ConversionRule::Implicit;
    const char letter = chart[GroupOf(from.id)][GroupOf(to.id)];
    return letter == 'i'   ? ConversionRule::Implicit
           : letter == 'e' ? ConversionRule::ExplicitOnly
                           : ConversionRule::NotAllowed;
}

void RequireConversion(const SqlType& from, const SqlType& to, bool isExplicit) {
    const ConversionRule rule = ConversionBetween(from, to);
    if (rule == ConversionRule::Implicit || (isExplicit && rule == ConversionRule::ExplicitOnly))
        return;
    if (isExplicit)
        RefuseConversion(from, to);
    if (rule == ConversionRule::NotAllowed)
        throw SqlError(206, {from.Name(), to.Name()}, 2);
    throw SqlError(257, {from.Name(), to.Name()}, 3);
}

} // namespace quillon::practice
