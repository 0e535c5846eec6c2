#include "practice/session/Messages.h"
#include "practice/values/Convert.h"
#include "practice/values/SqlError.h"

#include <cstdio>

namespace quillon::practice {

namespace {

constexpr std::size_t kLongest = 2047;

/// One % specification, read.
struct Specification {
    std::string flags;
    int width = -1;
    int precision = -1;
    bool wide = false; // I64
    char type = 0;
};

class Formatter {
  public:
    Formatter(std::string_view format, std::span<const Datum> arguments)
        : m_format(format)
        , m_arguments(arguments) {}

    std::string Run() {
        while (m_at < m_format.size()) {
            if (m_format[m_at] != '%')
                m_text += m_format[m_at++];
            else if (m_format.substr(m_at, 2) == "%%")
                Percent();
            else
                One();
        }
        return Shortened();
    }

  private:
    [[noreturn]] void Fail(std::size_t begin) const {
        throw SqlError(2787, {m_format.substr(begin, m_at + 1 - begin)});
    }

    void Percent() {
        m_text += '%';
        m_at += 2;
    }

    char Peek() const { return m_at < m_format.size() ? m_format[m_at] : '\0'; }

    const Datum* Next() {
        ++m_used;
        return m_used <= m_arguments.size() ? &m_arguments[m_used - 1] : nullptr;
    }

    int Number() {
        if (Peek() == '*') {
            ++m_at;
            const Datum* argument = Next();
            RequireInteger(argument);
            return argument == nullptr || argument->IsNull() ? 0 : static_cast<int>(argument->Integer());
        }
        int value = 0;
        while (Peek() >= '0' && Peek() <= '9' && value < 100000)
            value = value * 10 + (m_format[m_at++] - '0');
        return value;
    }

    void RequireInteger(const Datum* argument) const {
        if (argument != nullptr && !argument->IsNull() && !argument->Type().IsInteger())
            throw SqlError(2786, {std::to_string(m_used)});
    }

    Specification Read() {
        Specification spec;
        const std::size_t begin = m_at++;
        while (Peek() != '\0' && std::string_view("-+0# ").find(Peek()) != std::string_view::npos)
            spec.flags += m_format[m_at++];
        if (Peek() == '*' || (Peek() >= '1' && Peek() <= '9'))
            spec.width = Number();
        if (Peek() == '.') {
            ++m_at;
            spec.precision = Number();
        }
        if (m_format.substr(m_at, 3) == "I64") {
            spec.wide = true;
            m_at += 3;
        } else if (Peek() == 'h' || Peek() == 'l') {
            ++m_at;
        }
        spec.type = Peek();
        if (spec.type == '\0' || std::string_view("diuoxXsp").find(spec.type) == std::string_view::npos ||
            spec.type == 'p')
            Fail(begin);
        ++m_at;
        return spec;
    }

    void One() {
        const Specification spec = Read();
        const Datum* argument = Next();
        if (argument == nullptr || argument->IsNull()) {
            m_text += Pad("(null)", spec, spec.precision);
        } else if (spec.type == 's') {
            if (!argument->Type().IsCharacter())
                throw SqlError(2786, {std::to_string(m_used)});
            m_text += Pad(argument->Text(), spec, spec.precision);
        } else {
            RequireInteger(argument);
            m_text += Integer(argument->Integer(), spec);
        }
    }

    /// Cut to `most` characters where it is not negative, and filled to the width.
    static std::string Pad(std::string_view text, const Specification& spec, int most) {
        std::string padded(most < 0 ? text : FirstCharacters(text, most));
        const int missing = std::min(spec.width, static_cast<int>(kLongest)) - CountCharacters(padded);
        if (missing <= 0)
            return padded;
        const std::string blanks(static_cast<std::size_t>(missing), ' ');
        return spec.flags.find('-') == std::string::npos ? blanks + padded : padded + blanks;
    }

    static std::string Integer(std::int64_t value, const Specification& spec) {
        std::string format = "%" + spec.flags + "*.*ll";
        format += spec.type;
        // Unsigned forms of a plain int show 32 bits.
        const bool isSigned = spec.type == 'd' || spec.type == 'i';
        const std::int64_t shown = isSigned || spec.wide ? value : value & 0xFFFFFFFF;
        const int width = std::clamp(spec.width, 0, 255);
        const int precision = std::min(spec.precision, 255);
        char buffer[600];
        const int length = std::snprintf(buffer, sizeof buffer, format.c_str(), width, precision,
                                         static_cast<long long>(shown));
        return std::string(buffer, static_cast<std::size_t>(length));
    }

    std::string Shortened() const {
        if (static_cast<std::size_t>(CountCharacters(m_text)) <= kLongest)
            return m_text;
        return std::string(FirstCharacters(m_text, static_cast<int>(kLongest) - 3)) + "...";
    }

    std::string_view m_format;
    std::span<const Datum> m_arguments;
    std::size_t m_at = 0;
    std::size_t m_used = 0;
    std::string m_text;
};

} // namespace

std::string FormatMessage(std::string_view format, std::span<const Datum> arguments) {
    return Formatter(format, arguments).Run();
}

} // namespace quillon::practice
