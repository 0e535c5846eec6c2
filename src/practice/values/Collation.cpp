#include "practice/values/Collation.h"

#include "practice/values/Unicode.h"

#include <algorithm>
#include <array>
#include <deque>
#include <mutex>

namespace quillon::practice {

namespace {

// How one code point sorts: by letter, then accent, then case. A combining mark has no letter of its own.
struct Weight {
    std::uint32_t letter;
    std::uint16_t accent;
    std::uint8_t upper;
};

std::uint32_t ClassOf(char32_t c) {
    if (c == ' ' || c == '\t' || c == '\n' || c == '\r')
        return 0x000000;
    if (c >= '0' && c <= '9')
        return 0x200000;
    const bool isLetter = (c >= 'a' && c <= 'z') || c >= 0xAA;
    return isLetter ? 0x400000 : 0x100000;
}

Weight ComputeWeight(char32_t c) {
    if (c >= 0x300 && c < 0x370)
        return {0, static_cast<std::uint16_t>(c - 0x300 + 1), 0};
    if (c >= 0xFF01 && c <= 0xFF5E)
        c -= 0xFEE0; // full width forms differ from the plain ones for no order that we have
    const char32_t lower = unicode::ToLower(c);
    const std::uint8_t upper = lower != c;
    const unicode::Accented parts = unicode::Decompose(lower);
    return {(ClassOf(parts.base) | static_cast<std::uint32_t>(parts.base)) + 1, parts.accents, upper};
}

// The code point that a weight was computed of, without accent and case; 0 for a mark.
char32_t BaseOf(const Weight& weight) {
    constexpr std::uint32_t letters = 0x400000;
    if (weight.letter == 0)
        return 0;
    const std::uint32_t classed = weight.letter - 1;
    return classed >= letters ? classed - letters : classed & 0xFF; // all others lie below U+00AA
}

const std::array<Weight, 0x250>& CommonWeights() {
    static const std::array<Weight, 0x250> weights = [] {
        std::array<Weight, 0x250> table{};
        for (char32_t c = 0; c < table.size(); ++c)
            table[c] = ComputeWeight(c);
        return table;
    }();
    return weights;
}

// The letters that count as two: ae, oe, ss, th.
const char* Expansion(char32_t c) {
    switch (c) {
    case 0xDF: return "ss";
    case 0xC6: return "AE";
    case 0xE6: return "ae";
    case 0x152: return "OE";
    case 0x153: return "oe";
    case 0xDE: return "TH";
    case 0xFE: return "th";
    default: return nullptr;
    }
}

// Walks a text weight by weight. Marks add to the accent of the letter before them.
class Weights {
  public:
    explicit Weights(std::string_view text)
        : m_text(text)
        , m_common(CommonWeights()) {}

    bool Next(Weight& weight) {
        if (!Take(weight))
            return false;
        while (m_position < m_text.size() &&
               static_cast<unsigned char>(m_text[m_position]) >> 1 == 0xCC >> 1) {
            const std::size_t before = m_position;
            Weight mark{};
            if (!Take(mark) || mark.letter != 0) {
                m_position = before;
                break;
            }
            weight.accent = static_cast<std::uint16_t>(weight.accent * 113 + mark.accent);
        }
        return true;
    }

  private:
    bool Take(Weight& weight) {
        if (m_pending != 0) {
            weight = m_common[static_cast<unsigned char>(m_pending)];
            m_pending = 0;
            return true;
        }
        if (m_position >= m_text.size())
            return false;
        const auto byte = static_cast<unsigned char>(m_text[m_position]);
        if (byte < 0x80) {
            ++m_position;
            weight = m_common[byte];
            return true;
        }
        const char32_t c = unicode::Next(m_text, m_position);
        if (const char* two = Expansion(c)) {
            weight = m_common[static_cast<unsigned char>(two[0])];
            m_pending = two[1];
            return true;
        }
        weight = c < m_common.size() ? m_common[c] : ComputeWeight(c);
        return true;
    }

    std::string_view m_text;
    const std::array<Weight, 0x250>& m_common;
    std::size_t m_position = 0;
    char m_pending = 0;
};

std::string_view WithoutTrailingBlanks(std::string_view text) {
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

int Sign(int value) {
    return value < 0 ? -1 : value > 0 ? 1 : 0;
}

// A text that is the beginning of another compares as if blanks followed it.
int CompareTail(Weights& rest, Weight weight) {
    const std::uint32_t blank = CommonWeights()[' '].letter;
    do {
        if (weight.letter != blank)
            return weight.letter > blank ? 1 : -1;
    } while (rest.Next(weight));
    return 0;
}

int CompareByWeight(const Collation& collation, std::string_view leftText, std::string_view rightText) {
    Weights left(leftText);
    Weights right(rightText);
    int accent = 0;
    int letterCase = 0;
    for (;;) {
        Weight l{};
        Weight r{};
        const bool hasLeft = left.Next(l);
        const bool hasRight = right.Next(r);
        if (!hasLeft && !hasRight)
            break;
        if (!hasRight) {
            if (const int tail = CompareTail(left, l))
                return tail;
            break;
        }
        if (!hasLeft) {
            if (const int tail = CompareTail(right, r))
                return -tail;
            break;
        }
        if (l.letter != r.letter)
            return l.letter < r.letter ? -1 : 1;
        if (accent == 0)
            accent = Sign(l.accent - r.accent);
        if (letterCase == 0)
            letterCase = Sign(l.upper - r.upper);
    }
    if (collation.accentSensitive && accent != 0)
        return accent;
    return collation.caseSensitive ? letterCase : 0;
}

int CompareBytes(std::string_view left, std::string_view right) {
    left = WithoutTrailingBlanks(left);
    right = WithoutTrailingBlanks(right);
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t index = 0; index < common; ++index) {
        const auto l = static_cast<unsigned char>(left[index]);
        const auto r = static_cast<unsigned char>(right[index]);
        if (l != r)
            return l < r ? -1 : 1;
    }
    if (left.size() == right.size())
        return 0;
    // The shorter one goes on in blanks.
    const bool leftLonger = left.size() > right.size();
    const auto next = static_cast<unsigned char>(leftLonger ? left[common] : right[common]);
    return (next > ' ') == leftLonger ? 1 : -1;
}

// The text in lower case; false, and nothing, where it has more than ASCII letters.
bool AppendPlain(std::string& key, std::string_view text) {
    key.reserve(text.size());
    for (const char c : text) {
        if (static_cast<unsigned char>(c) >= 0x80) {
            key.clear();
            return false;
        }
        key += c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    }
    return true;
}

std::string UpperAscii(std::string_view text) {
    std::string result(text);
    for (char& c : result)
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
    return result;
}

constexpr std::uint32_t utf8Flag = 1u << 26;

struct LanguagePrefix {
    const char* name; // upper case
    std::uint32_t locale;
    int codePage;
    bool isSql; // the older family, which has a sort id and no version
};

constexpr LanguagePrefix prefixes[] = {
    {"SQL_LATIN1_GENERAL_CP1250", 0x0409, 1250, true},
    {"SQL_LATIN1_GENERAL_CP1251", 0x0419, 1251, true},
    {"SQL_LATIN1_GENERAL_CP1253", 0x0408, 1253, true},
    {"SQL_LATIN1_GENERAL_CP1254", 0x041F, 1254, true},
    {"SQL_LATIN1_GENERAL_CP1255", 0x040D, 1255, true},
    {"SQL_LATIN1_GENERAL_CP1256", 0x0401, 1256, true},
    {"SQL_LATIN1_GENERAL_CP1257", 0x0427, 1257, true},
    {"SQL_LATIN1_GENERAL_CP1", 0x0409, 1252, true},
    {"SQL_LATIN1_GENERAL_CP437", 0x0409, 437, true},
    {"SQL_LATIN1_GENERAL_CP850", 0x0409, 850, true},
    {"SQL_LATIN1_GENERAL", 0x0409, 1252, true},
    {"SQL_1XCOMPAT_CP850", 0x0409, 850, true},
    {"SQL_ALTDICTION_CP850", 0x0409, 850, true},
    {"SQL_CROATIAN_CP1250", 0x041A, 1250, true},
    {"SQL_CZECH_CP1250", 0x0405, 1250, true},
    {"SQL_DANISH_PREF_CP1", 0x0406, 1252, true},
    {"SQL_HUNGARIAN_CP1250", 0x040E, 1250, true},
    {"SQL_ICELANDIC_PREF_CP1", 0x040F, 1252, true},
    {"SQL_POLISH_CP1250", 0x0415, 1250, true},
    {"SQL_ROMANIAN_CP1250", 0x0418, 1250, true},
    {"SQL_SCANDINAVIAN_CP850", 0x0406, 850, true},
    {"SQL_SLOVAK_CP1250", 0x041B, 1250, true},
    {"SQL_SLOVENIAN_CP1250", 0x0424, 1250, true},
    {"SQL_SWEDISHPHONE_PREF_CP1", 0x041D, 1252, true},
    {"SQL_SWEDISHSTD_PREF_CP1", 0x041D, 1252, true},
    {"SQL_UKRAINIAN_CP1251", 0x0422, 1251, true},
    {"LATIN1_GENERAL", 0x0409, 1252, false},
    {"ALBANIAN", 0x041C, 1250, false},
    {"ARABIC", 0x0401, 1256, false},
    {"BOSNIAN_LATIN", 0x141A, 1250, false},
    {"BOSNIAN_CYRILLIC", 0x201A, 1251, false},
    {"BRETON", 0x047E, 1252, false},
    {"CHINESE_PRC", 0x0804, 936, false},
    {"CHINESE_PRC_STROKE", 0x20804, 936, false},
    {"CHINESE_SIMPLIFIED_PINYIN", 0x0804, 936, false},
    {"CHINESE_SIMPLIFIED_STROKE_ORDER", 0x20804, 936, false},
    {"CHINESE_TAIWAN_STROKE", 0x0404, 950, false},
    {"CHINESE_TAIWAN_BOPOMOFO", 0x30404, 950, false},
    {"CHINESE_TRADITIONAL_STROKE_COUNT", 0x0404, 950, false},
    {"CHINESE_TRADITIONAL_BOPOMOFO", 0x30404, 950, false},
    {"CROATIAN", 0x041A, 1250, false},
    {"CYRILLIC_GENERAL", 0x0419, 1251, false},
    {"CZECH", 0x0405, 1250, false},
    {"DANISH_NORWEGIAN", 0x0406, 1252, false},
    {"DANISH_GREENLANDIC", 0x0406, 1252, false},
    {"ESTONIAN", 0x0425, 1257, false},
    {"FINNISH_SWEDISH", 0x040B, 1252, false},
    {"FRENCH", 0x040C, 1252, false},
    {"GERMAN_PHONEBOOK", 0x10407, 1252, false},
    {"GREEK", 0x0408, 1253, false},
    {"HEBREW", 0x040D, 1255, false},
    {"HUNGARIAN", 0x040E, 1250, false},
    {"HUNGARIAN_TECHNICAL", 0x1040E, 1250, false},
    {"ICELANDIC", 0x040F, 1252, false},
    {"JAPANESE", 0x0411, 932, false},
    {"JAPANESE_UNICODE", 0x10411, 932, false},
    {"JAPANESE_XJIS", 0x0411, 932, false},
    {"KAZAKH", 0x043F, 1251, false},
    {"KOREAN_WANSUNG", 0x0412, 949, false},
    {"KOREAN", 0x0412, 949, false},
    {"LATVIAN", 0x0426, 1257, false},
    {"LITHUANIAN", 0x0427, 1257, false},
    {"MACEDONIAN_FYROM", 0x042F, 1251, false},
    {"MODERN_SPANISH", 0x0C0A, 1252, false},
    {"NORWEGIAN", 0x0414, 1252, false},
    {"PERSIAN", 0x0429, 1256, false},
    {"POLISH", 0x0415, 1250, false},
    {"ROMANIAN", 0x0418, 1250, false},
    {"ROMANSH", 0x0417, 1252, false},
    {"SERBIAN_LATIN", 0x081A, 1250, false},
    {"SERBIAN_CYRILLIC", 0x0C1A, 1251, false},
    {"SLOVAK", 0x041B, 1250, false},
    {"SLOVENIAN", 0x0424, 1250, false},
    {"TATAR", 0x0444, 1251, false},
    {"THAI", 0x041E, 874, false},
    {"TRADITIONAL_SPANISH", 0x040A, 1252, false},
    {"TURKISH", 0x041F, 1254, false},
    {"UKRAINIAN", 0x0422, 1251, false},
    {"URDU", 0x0420, 1256, false},
    {"VIETNAMESE", 0x042A, 1258, false},
    {"WELSH", 0x0452, 1252, false},
};

// The sort ids of the older family's general orders; 0 where there is no such order.
struct SortIds {
    int codePage;
    std::uint8_t sensitive, insensitive, withoutAccents;
};
constexpr SortIds sortIds[] = {
    {1252, 51, 52, 54},    {437, 31, 32, 34},   {850, 41, 42, 44},   {1250, 81, 82, 0},   {1251, 105, 106, 0},
    {1253, 113, 114, 124}, {1254, 129, 130, 0}, {1255, 137, 138, 0}, {1256, 145, 146, 0}, {1257, 153, 154, 0},
};

const LanguagePrefix* PrefixOf(std::string_view upperName) {
    const LanguagePrefix* best = nullptr;
    std::size_t bestLength = 0;
    for (const LanguagePrefix& prefix : prefixes) {
        const std::string_view name = prefix.name;
        if (upperName.starts_with(std::string(name) + "_") && name.size() > bestLength) {
            best = &prefix;
            bestLength = name.size();
        }
    }
    return best;
}

bool Eat(std::string_view& rest, std::string_view part) {
    if (!rest.starts_with(part))
        return false;
    rest.remove_prefix(part.size());
    return true;
}

// Reads what follows the language: _100_CI_AS_KS_WS_SC_UTF8 and the like.
bool ReadFlags(std::string_view rest, bool isSql, Collation& collation) {
    if (!isSql && !Eat(rest, "_90") && !Eat(rest, "_100"))
        Eat(rest, "_140");
    if (Eat(rest, "_BIN2") || Eat(rest, "_BIN")) {
        collation.binary = collation.caseSensitive = true;
        Eat(rest, "_UTF8");
        return rest.empty();
    }
    if (isSql)
        Eat(rest, "_PREF");
    if (!Eat(rest, "_CI")) {
        if (!Eat(rest, "_CS"))
            return false;
        collation.caseSensitive = true;
    }
    if (!Eat(rest, "_AS")) {
        if (!Eat(rest, "_AI"))
            return false;
        collation.accentSensitive = false;
    }
    for (const char* part : {"_KS", "_WS", "_VSS", "_SC", "_UTF8"})
        Eat(rest, part);
    return rest.empty();
}

} // namespace

const char* Collation::SqliteName() const {
    if (binary)
        return "BIN";
    if (caseSensitive)
        return accentSensitive ? "CS_AS" : "CS_AI";
    return accentSensitive ? "CI_AS" : "CI_AI";
}

int Collation::Compare(std::string_view left, std::string_view right) const {
    return binary ? CompareBytes(left, right) : CompareByWeight(*this, left, right);
}

std::string Collation::Key(std::string_view text) const {
    text = WithoutTrailingBlanks(text);
    if (binary)
        return std::string(text);
    std::string key;
    if (!caseSensitive && AppendPlain(key, text))
        return key;
    // Letters without accent and case, and what they lack as code points that no letter has.
    constexpr char32_t accentMark = 0xF0000;
    constexpr char32_t upperMark = 0x100000;
    Weights weights(text);
    for (Weight weight{}; weights.Next(weight);) {
        unicode::Append(key, BaseOf(weight));
        if (accentSensitive && weight.accent != 0)
            unicode::Append(key, accentMark + weight.accent);
        if (caseSensitive && weight.upper != 0)
            unicode::Append(key, upperMark);
    }
    return key;
}

std::uint32_t Collation::LocaleAndFlags() const {
    const LanguagePrefix* prefix = PrefixOf(UpperAscii(name));
    const std::uint32_t locale = prefix != nullptr ? prefix->locale : 0x0409;
    const std::uint32_t utf8 = codePage == 65001 ? utf8Flag : 0;
    if (binary)
        return locale | utf8 | (UpperAscii(name).find("_BIN2") != std::string::npos ? 1u << 25 : 1u << 24);
    std::uint32_t flags = (1u << 22) | (1u << 23); // width and kana do not count
    if (!caseSensitive)
        flags |= 1u << 20;
    if (!accentSensitive)
        flags |= 1u << 21;
    return locale | flags | utf8;
}

std::uint8_t Collation::SortId() const {
    if (!UpperAscii(name).starts_with("SQL_LATIN1_GENERAL_CP") || binary)
        return 0;
    for (const SortIds& row : sortIds)
        if (row.codePage == codePage)
            return caseSensitive ? row.sensitive : accentSensitive ? row.insensitive : row.withoutAccents;
    return 0;
}

int CodePageOnWire(std::uint32_t localeAndFlags, std::uint8_t sortId) {
    if ((localeAndFlags & utf8Flag) != 0)
        return 65001;
    for (const SortIds& row : sortIds)
        if (sortId != 0 &&
            (sortId == row.sensitive || sortId == row.insensitive || sortId == row.withoutAccents))
            return row.codePage;
    for (const LanguagePrefix& prefix : prefixes)
        if (!prefix.isSql && prefix.locale == (localeAndFlags & 0xFFFFF))
            return prefix.codePage;
    return 1252;
}

const Collation* FindCollation(std::string_view name) {
    static std::mutex guard;
    static std::deque<Collation> known; // a deque, so that pointers stay
    const std::string upper = UpperAscii(name);
    const std::lock_guard lock(guard);
    for (const Collation& collation : known)
        if (UpperAscii(collation.name) == upper)
            return &collation;
    const LanguagePrefix* prefix = PrefixOf(upper);
    if (prefix == nullptr)
        return nullptr;
    Collation collation;
    collation.name = std::string(name);
    collation.codePage = upper.ends_with("_UTF8") ? 65001 : prefix->codePage;
    const std::string_view flags = std::string_view(upper).substr(std::string_view(prefix->name).size());
    if (!ReadFlags(flags, prefix->isSql, collation))
        return nullptr;
    return &known.emplace_back(std::move(collation));
}

const Collation* DefaultCollation() {
    static const Collation* const collation = FindCollation("SQL_Latin1_General_CP1_CI_AS");
    return collation;
}

const Collation* BinaryCollation() {
    static const Collation* const collation = FindCollation("Latin1_General_BIN2");
    return collation;
}

} // namespace quillon::practice
