// Custom formats of numbers. A format is read twice: first for where its digits stand, how the number is to
// be scaled and whether it is grouped, then to write.
#include "practice/functions/FormatNumber.h"

#include <algorithm>
#include <limits>

namespace quillon::practice {

namespace {

constexpr std::string_view perMille = "\xE2\x80\xB0";

// The place behind the text in quotes or after a backslash that begins at `at`, or `at` where there is none.
std::size_t BehindLiteral(std::string_view format, std::size_t at) {
    const char c = format[at];
    if (c == '\\')
        return std::min(at + 2, format.size());
    if (c != '\'' && c != '"')
        return at;
    const std::size_t end = format.find(c, at + 1);
    return end == std::string_view::npos ? format.size() : end + 1;
}

// One of the parts that semicolons divide. The first stands for those that are missing or empty.
std::string_view Section(std::string_view format, int wanted) {
    std::size_t begin = 0;
    int index = 0;
    std::string_view first;
    for (std::size_t at = 0; at <= format.size();) {
        const bool ends = at == format.size() || format[at] == ';';
        if (!ends) {
            at = std::max(BehindLiteral(format, at), at + 1);
            continue;
        }
        const std::string_view section = format.substr(begin, at - begin);
        if (index == 0)
            first = section;
        if (index == wanted)
            return section.empty() ? first : section;
        begin = ++at;
        ++index;
    }
    return first;
}

// Behind E, E+ or E- at `at`, where zeros follow: the exponent's digits. Nothing otherwise.
struct ExponentForm {
    bool plus = false;
    int digits = 0; // none: this is no exponent
    std::size_t end = 0;
};

ExponentForm ExponentAt(std::string_view format, std::size_t at) {
    ExponentForm form;
    form.end = at + 1;
    if (form.end < format.size() && (format[form.end] == '+' || format[form.end] == '-'))
        form.plus = format[form.end++] == '+';
    for (; form.end < format.size() && format[form.end] == '0'; ++form.end)
        ++form.digits;
    form.digits = std::min(form.digits, 10);
    return form;
}

struct Layout {
    int digits = 0; // places of digits
    int point = -1; // how many of them stand before the point
    int firstZero = std::numeric_limits<int>::max(), lastZero = 0;
    int scale = 0; // powers of ten to multiply with
    bool grouped = false;
    bool scientific = false;
};

class LayoutReader {
  public:
    explicit LayoutReader(std::string_view section)
        : m_section(section) {}

    Layout Read() {
        for (std::size_t at = 0; at < m_section.size();)
            at = ReadOne(at);
        if (m_layout.point < 0)
            m_layout.point = m_layout.digits;
        if (m_commaPlace == m_layout.point)
            m_layout.scale -= m_commas * 3;
        else
            m_layout.grouped = m_layout.grouped || m_commaPlace >= 0;
        return m_layout;
    }

  private:
    std::size_t ReadOne(std::size_t at) {
        switch (m_section[at]) {
        case '0':
            m_layout.firstZero = std::min(m_layout.firstZero, m_layout.digits);
            m_layout.lastZero = ++m_layout.digits;
            break;
        case '#': ++m_layout.digits; break;
        case '.': m_layout.point = m_layout.point < 0 ? m_layout.digits : m_layout.point; break;
        case ',': ReadComma(); break;
        case '%': m_layout.scale += 2; break;
        case 'e':
        case 'E':
            if (const ExponentForm form = ExponentAt(m_section, at); form.digits > 0) {
                m_layout.scientific = true;
                return form.end;
            }
            break;
        default:
            if (m_section.substr(at).starts_with(perMille))
                m_layout.scale += 3;
            return std::max(BehindLiteral(m_section, at), at + 1);
        }
        return at + 1;
    }

    // Commas between digits group, those right before the point divide by a thousand each.
    void ReadComma() {
        if (m_layout.digits == 0 || m_layout.point >= 0)
            return;
        if (m_commaPlace == m_layout.digits) {
            ++m_commas;
            return;
        }
        m_layout.grouped = m_layout.grouped || m_commaPlace >= 0;
        m_commaPlace = m_layout.digits;
        m_commas = 1;
    }

    std::string_view m_section;
    Layout m_layout;
    int m_commaPlace = -1, m_commas = 0;
};

class Writer {
  public:
    Writer(const NumberDigits& number, const Layout& layout, const Culture& culture)
        : m_number(number)
        , m_layout(layout)
        , m_culture(culture)
        , m_surplus(layout.scientific ? 0 : number.point - layout.point)
        , m_place(layout.scientific ? layout.point : std::max(number.point, layout.point))
        , m_firstShown(std::max(layout.point - layout.firstZero, 0))
        , m_lastShown(std::min(layout.point - layout.lastZero, 0)) {}

    std::string Write(std::string_view section, bool withSign) {
        if (withSign)
            m_text = "-";
        for (std::size_t at = 0; at < section.size();)
            at = WriteOne(section, at);
        return m_text;
    }

  private:
    std::size_t WriteOne(std::string_view section, std::size_t at) {
        const char c = section[at];
        switch (c) {
        case '0':
        case '#':
            WriteSurplus();
            WriteDigit();
            return at + 1;
        case '.':
            WriteSurplus();
            WritePoint();
            return at + 1;
        case ',': return at + 1;
        case 'e':
        case 'E': return WriteExponent(section, at);
        default: break;
        }
        const std::size_t end = BehindLiteral(section, at);
        if (end == at) {
            m_text.push_back(c);
            return at + 1;
        }
        const bool isClosed = c != '\\' && end - at > 1 && section[end - 1] == c;
        m_text += section.substr(at + 1, end - at - 1 - (isClosed ? 1 : 0));
        return end;
    }

    // The digits before the first place that the format has.
    void WriteSurplus() {
        for (; m_surplus > 0; --m_surplus)
            Append(m_number.At(m_next++));
    }

    void WriteDigit() {
        const bool isLeading = m_surplus < 0; // the number begins further on
        if (isLeading) {
            ++m_surplus;
            if (m_place > m_firstShown) {
                --m_place;
                return;
            }
            Append('0');
        } else if (HasMore()) {
            Append(m_number.At(m_next++));
        } else if (m_place > m_lastShown) {
            Append('0');
        } else {
            --m_place;
        }
    }

    void WritePoint() {
        const bool isNeeded = m_lastShown < 0 || (m_layout.point < m_layout.digits && HasMore());
        if (m_place != 0 || m_hasPoint || !isNeeded)
            return;
        m_text += m_culture.decimalPoint;
        m_hasPoint = true;
    }

    std::size_t WriteExponent(std::string_view section, std::size_t at) {
        const ExponentForm form = ExponentAt(section, at);
        if (form.digits == 0) {
            m_text.push_back(section[at]);
            return at + 1;
        }
        if (m_hasExponent) {
            m_text += section.substr(at, form.end - at);
            return form.end;
        }
        m_hasExponent = true;
        const int exponent = m_number.IsZero() ? 0 : m_number.point - m_layout.point;
        m_text += ExponentText(section[at], exponent, form.digits, form.plus);
        return form.end;
    }

    void Append(char digit) {
        m_text.push_back(digit);
        if (m_layout.grouped && m_place > 1 && m_place % 3 == 1)
            m_text += m_culture.groupSeparator;
        --m_place;
    }

    bool HasMore() const { return m_next < static_cast<int>(m_number.digits.size()); }

    const NumberDigits& m_number;
    const Layout& m_layout;
    const Culture& m_culture;
    int m_surplus; // digits of the number before the format's first place; below zero: places before its own
    int m_place;   // digits from here to the point, below zero behind it
    int m_firstShown, m_lastShown;
    int m_next = 0;
    bool m_hasPoint = false, m_hasExponent = false;
    std::string m_text;
};

} // namespace

std::string FormatNumberPattern(NumberDigits number, std::string_view format, const Culture& culture) {
    std::string_view section = Section(format, number.IsZero() ? 2 : number.negative ? 1 : 0);
    Layout layout = LayoutReader(section).Read();
    if (!number.IsZero()) {
        number.point += layout.scale;
        number.Round(layout.scientific ? layout.digits : number.point + layout.digits - layout.point);
        if (number.IsZero() && Section(format, 2).data() != section.data()) {
            section = Section(format, 2);
            layout = LayoutReader(section).Read();
        }
    }
    const bool isFirst = section.data() == Section(format, 0).data();
    return Writer(number, layout, culture).Write(section, number.negative && isFirst);
}

} // namespace quillon::practice
