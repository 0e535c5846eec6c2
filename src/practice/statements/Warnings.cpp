#include "practice/statements/Warnings.h"

namespace quillon::practice {

bool Warnings::Replaces(const SqlError& error) {
    const SessionOptions& options = m_context.Options();
    if (options.ansiWarnings || options.arithAbort || !IsArithmeticError(error.number))
        return false;
    constexpr int dividedByZero = 8134;
    constexpr int outsideDomain = 3623;
    if (!options.arithIgnore)
        m_noted |= error.number == dividedByZero   ? division
                   : error.number == outsideDomain ? domain
                                                   : overflow;
    return true;
}

void Warnings::Tell() {
    static constexpr std::pair<Kind, int> messages[] = {
        {nulls, 8153}, {overflow, 3606}, {division, 3607}, {domain, 3622}};
    const unsigned noted = std::exchange(m_noted, 0U);
    for (const auto& [kind, number] : messages)
        if ((noted & kind) != 0)
            m_context.Inform(number, MessageText(number));
}

} // namespace quillon::practice
