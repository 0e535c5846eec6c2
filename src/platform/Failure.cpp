#include "platform/Failure.h"

#include "platform/FailureNumbers.h"

namespace quillon {

Failure::Failure(std::int32_t number, std::string description, std::string source, std::int32_t line)
    : m_number(number)
    , m_line(line)
    , m_description(description.empty() ? std::string(FailureText(number)) : std::move(description))
    , m_source(std::move(source)) {}

} // namespace quillon
