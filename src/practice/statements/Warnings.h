// What a statement warns of, once, when it has run: NULLs that an aggregate has left out, and errors of
// arithmetic that the session's settings turn into NULLs.
#pragma once

#include "practice/statements/ExecutionContext.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

class Warnings {
  public:
    explicit Warnings(ExecutionContext& context)
        : m_context(context) {}

    // Under ANSI_WARNINGS OFF and ARITHABORT OFF: the value is NULL instead of the error.
    bool Replaces(const SqlError& error);
    void NoteNull() noexcept { m_noted |= nulls; }
    // Sends what has been noted and forgets it.
    void Tell();

    // Runs a statement; those that run inside of another have warnings of their own.
    template <class Body>
    auto Around(Body body) -> decltype(body()) {
        const Aside aside(*this);
        auto result = body();
        Tell();
        return result;
    }

  private:
    enum Kind : unsigned { nulls = 1, overflow = 2, division = 4, domain = 8 };

    class Aside {
      public:
        explicit Aside(Warnings& warnings)
            : m_warnings(warnings)
            , m_outer(std::exchange(warnings.m_noted, 0U)) {}
        ~Aside() { m_warnings.m_noted = m_outer; }
        Aside(const Aside&) = delete;
        Aside& operator=(const Aside&) = delete;

      private:
        Warnings& m_warnings;
        unsigned m_outer;
    };

    ExecutionContext& m_context;
    unsigned m_noted = 0;
};

} // namespace quillon::practice
