#include "platform/Failure.h"

#include "platform/FailureNumbers.h"

namespace quillon {

Failure::Failure(std::int32_t number, std::string description, std::string source, std::source_location where)
    : m_number(number)
    , m_line(static_cast<std::int32_t>(where.line()))
    , m_description(description.empty() ? std::string(FailureText(number)) : std::move(description))
    , m_source(std::move(source)) {}

} // namespace quillon
