// A run-time failure of the system: what every procedure of the rooms raises and the trace ends.
//
// Raised by: the rooms of the system, the adapters and the script hosts.
// Caught by: the trace (shell/Trace.h), which reports it and lets the caller go on with a default result.
// The numbers are those that users of such hosts know; FailureNumbers.h names them.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace quillon {

class Failure : public std::exception {
  public:
    // `number` as FailureNumbers.h gives it; an empty `description` takes the table's text for that number.
    // `line` is filled by the compiler: where the failure is made.
    explicit Failure(std::int32_t number, std::string description = {}, std::string source = {},
                     std::int32_t line = __builtin_LINE());

    std::int32_t number() const noexcept { return m_number; }
    const std::string& description() const noexcept { return m_description; }
    const std::string& source() const noexcept { return m_source; }

    // The line of our source at which the failure was raised; what the failure report calls the source line.
    std::int32_t line() const noexcept { return m_line; }

    const char* what() const noexcept override { return m_description.c_str(); }

  private:
    std::int32_t m_number;
    std::int32_t m_line;
    std::string m_description;
    std::string m_source;
};

} // namespace quillon
