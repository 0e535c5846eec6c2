#include "practice/values/SqlError.h"

#include "practice/values/Messages.h"

#include <algorithm>
#include <stdexcept>

namespace quillon::practice {

namespace {

const std::vector<MessageRow>& Table() {
    static const std::vector<MessageRow> table = [] {
        std::vector<MessageRow> rows;
        for (const auto part : {LanguageMessages(), DataMessages(), ServiceMessages()})
            rows.insert(rows.end(), part.begin(), part.end());
        return rows;
    }();
    return table;
}

// The errors that never come with state 1.
constexpr std::pair<int, int> usualStates[] = {{137, 2},  {206, 2},  {257, 3},  {266, 2},
                                               {295, 3},  {468, 9},  {515, 2},  {1088, 12},
                                               {2705, 3}, {8114, 5}, {8146, 2}, {8170, 2}};

int UsualState(int number) {
    const auto* found = std::find_if(std::begin(usualStates), std::end(usualStates),
                                     [&](const auto& row) { return row.first == number; });
    return found == std::end(usualStates) ? 1 : found->second;
}

std::string Fill(const char* pattern, std::initializer_list<std::string_view> parameters) {
    std::string text;
    for (const char* at = pattern; *at != '\0'; ++at) {
        if (*at != '%' || at[1] < '1' || at[1] > '9') {
            text.push_back(*at);
            continue;
        }
        const auto index = static_cast<std::size_t>(*++at - '1');
        if (index < parameters.size())
            text.append(parameters.begin()[index]);
    }
    return text;
}

} // namespace

SqlError::SqlError(int messageNumber, std::initializer_list<std::string_view> parameters, int errorState)
    : number(messageNumber)
    , state(errorState == 1 ? UsualState(messageNumber) : errorState) {
    const MessageRow* row = FindMessage(messageNumber);
    if (row == nullptr)
        throw std::logic_error("no message " + std::to_string(messageNumber) + " in the table");
    severity = row->severity;
    text = Fill(row->text, parameters);
}

SqlError SqlError::Custom(int number, int severity, int state, std::string text) {
    SqlError error;
    error.number = number;
    error.severity = severity;
    error.state = state;
    error.text = std::move(text);
    return error;
}

SqlError SqlError::NotSupported(std::string_view feature) {
    return SqlError(notSupportedNumber, {feature});
}

bool IsArithmeticError(int number) {
    constexpr int numbers[] = {220, 232, 3623, 8115, 8134};
    return std::find(std::begin(numbers), std::end(numbers), number) != std::end(numbers);
}

const MessageRow* AllMessages(int& count) {
    count = static_cast<int>(Table().size());
    return Table().data();
}

const MessageRow* FindMessage(int number) {
    const auto& table = Table();
    const auto at = std::lower_bound(table.begin(), table.end(), number,
                                     [](const MessageRow& row, int value) { return row.number < value; });
    return at != table.end() && at->number == number ? &*at : nullptr;
}

std::string MessageText(int number, std::initializer_list<std::string_view> parameters) {
    const MessageRow* row = FindMessage(number);
    if (row == nullptr)
        throw std::logic_error("no message " + std::to_string(number) + " in the table");
    return Fill(row->text, parameters);
}

} // namespace quillon::practice
