// Short ways to write values in the tables of these tests.
#pragma once

#include "practice/values/Convert.h"
#include "practice/values/Literals.h"
#include "practice/values/SqlError.h"

#include <gtest/gtest.h>

namespace quillon::practice {

// The type that a declaration such as "decimal(10, 2)" names.
inline SqlType Type(const std::string& declaration) {
    const std::size_t open = declaration.find('(');
    std::optional<int> first, second;
    if (open != std::string::npos) {
        const std::string inside = declaration.substr(open + 1);
        first = inside.starts_with("max") ? maxLength : std::stoi(inside);
        if (const std::size_t comma = inside.find(','); comma != std::string::npos)
            second = std::stoi(inside.substr(comma + 1));
    }
    return TypeFromName(declaration.substr(0, open), first, second).value();
}

// A value of a type, from text. Binary is written 0x...
inline Datum Value(const std::string& declaration, const std::string& text) {
    const SqlType type = Type(declaration);
    const Datum source = Datum::Text(TextType(TypeId::NVarChar, maxLength), text);
    return Convert(source, type, {}, type.IsBinary() ? 1 : noStyle);
}

// The number of the error that the call throws; 0 when it throws none.
template <typename Call>
int ErrorOf(Call call) {
    try {
        call();
        return 0;
    } catch (const SqlError& error) {
        return error.number;
    }
}

template <typename Call>
std::string ErrorTextOf(Call call) {
    try {
        call();
        return "";
    } catch (const SqlError& error) {
        return error.text;
    }
}

} // namespace quillon::practice
