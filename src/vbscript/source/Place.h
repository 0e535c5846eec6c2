// Where something stands in the text that was added, and the failure of a text that is no program.
#pragma once

#include <cstdint>

#include "platform/Failure.h"

namespace quillon::vbscript {

struct Place {
    std::int32_t line = 0;   // from 1; CR LF, LF and CR each end a line
    std::int32_t column = 0; // from 0, in characters
};

// Raised by the lexer, the parser and the compiler. Its number is one of the compile-time numbers.
class CompileFailure : public Failure {
  public:
    CompileFailure(std::int32_t number, Place place)
        : Failure(number, {}, "Microsoft VBScript compilation error")
        , m_place(place) {}
    Place place() const noexcept { return m_place; }

  private:
    Place m_place;
};

} // namespace quillon::vbscript
