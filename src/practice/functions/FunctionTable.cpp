#include "practice/functions/FunctionTable.h"

#include "practice/functions/FunctionParts.h"

#include <cctype>

namespace quillon::practice {

namespace {

std::string MapName(std::string_view name, int (*map)(int)) {
    std::string result(name);
    for (char& c : result)
        c = static_cast<char>(map(static_cast<unsigned char>(c)));
    return result;
}

std::unordered_map<std::string, const ScalarFunction*> BuildIndex() {
    std::unordered_map<std::string, const ScalarFunction*> index;
    for (const auto family :
         {StringFunctions(), TextFunctions(), DateFunctions(), DateBuildingFunctions(), MathFunctions(),
          ConversionFunctions(), SystemFunctions(), CatalogueFunctions(), HashFunctions(), FormatFunctions()})
        for (const ScalarFunction& function : family)
            index.emplace(function.name, &function);
    return index;
}

} // namespace

const ScalarFunction* FindFunction(std::string_view name) {
    static const auto index = BuildIndex();
    const auto found = index.find(MapName(name, std::toupper));
    return found == index.end() ? nullptr : found->second;
}

void RequireArgumentCount(const ScalarFunction& function, int count) {
    if (count >= function.minArguments && (function.maxArguments < 0 || count <= function.maxArguments))
        return;
    const std::string name = MapName(function.name, std::tolower);
    const std::string fewest = std::to_string(function.minArguments);
    if (function.minArguments == function.maxArguments)
        throw SqlError(174, {name, fewest});
    throw SqlError(189,
                   {name, fewest, std::to_string(function.maxArguments < 0 ? 254 : function.maxArguments)});
}

} // namespace quillon::practice
