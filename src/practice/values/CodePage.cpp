#include "practice/values/CodePage.h"

#include "practice/values/Convert.h"
#include "practice/values/Unicode.h"

#include <algorithm>
#include <iconv.h>
#include <map>
#include <memory>
#include <mutex>
#include <stdexcept>

namespace quillon::practice {

namespace {

constexpr int utf8Page = 65001;

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

class Converter {
  public:
    explicit Converter(int number)
        : m_handle(iconv_open("UTF-8", ("CP" + std::to_string(number)).c_str())) {
        if (m_handle == reinterpret_cast<iconv_t>(-1))
            throw std::runtime_error("the C library does not know code page " + std::to_string(number));
    }
    ~Converter() { iconv_close(m_handle); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // The one character of these bytes; 0 when they are none.
    char32_t Character(std::string bytes) {
        char out[8];
        char* from = bytes.data();
        char* to = out;
        std::size_t left = bytes.size(), room = sizeof out;
        iconv(m_handle, nullptr, nullptr, nullptr, nullptr);
        if (iconv(m_handle, &from, &left, &to, &room) == static_cast<std::size_t>(-1))
            return 0;
        const std::string_view text(out, static_cast<std::size_t>(to - out));
        std::size_t at = 0;
        const char32_t found = text.empty() ? 0 : unicode::Next(text, at);
        return at == text.size() ? found : 0;
    }

  private:
    iconv_t m_handle;
};

bool IsPaired(int number) {
    return number == 932 || number == 936 || number == 949 || number == 950;
}

} // namespace

CodePage::CodePage(int number)
    : m_isUtf8(number == utf8Page) {
    if (m_isUtf8) {
        m_isSingleByte = false;
        return;
    }
    Converter converter(number);
    m_isSingleByte = !IsPaired(number);
    for (int byte = 0; byte < 256; ++byte) {
        char32_t& found = m_single[static_cast<std::size_t>(byte)];
        found = byte == 0 ? 0 : converter.Character(std::string(1, static_cast<char>(byte)));
        if (found == 0 && m_isSingleByte)
            found = static_cast<char32_t>(byte); // an unused byte is the control character of its number
        if (found != 0 || byte == 0)
            m_bytes.emplace(found, byte);
    }
    if (!m_isSingleByte)
        ReadPairs(number);
}

void CodePage::ReadPairs(int number) {
    Converter converter(number);
    m_pairs.resize(0x10000);
    for (int first = 0x81; first < 0xFF; ++first) {
        if (m_single[static_cast<std::size_t>(first)] != 0)
            continue;
        for (int second = 0x40; second < 0xFF; ++second) {
            const char32_t found = converter.Character({static_cast<char>(first), static_cast<char>(second)});
            m_pairs[static_cast<std::size_t>(first << 8 | second)] = found;
            if (found != 0)
                m_bytes.emplace(found, first << 8 | second);
        }
    }
}

const CodePage& CodePage::Of(int number) {
    static std::mutex guard;
    static std::map<int, std::unique_ptr<const CodePage>> pages;
    const std::lock_guard lock(guard);
    auto& page = pages[number];
    if (!page)
        page.reset(new CodePage(number));
    return *page;
}

const CodePage& CodePage::Of(const Collation* collation) {
    static const CodePage& western = Of(1252);
    const int number = (collation != nullptr ? collation : DefaultCollation())->codePage;
    return number == 1252 ? western : Of(number);
}

int CodePage::BytesOf(char32_t codePoint) const {
    const auto found = m_bytes.find(codePoint);
    return found == m_bytes.end() ? -1 : found->second;
}

std::string CodePage::Encode(std::string_view utf8) const {
    if (m_isUtf8 || IsAscii(utf8))
        return std::string(utf8);
    std::string bytes;
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t c = unicode::Next(utf8, at);
        const int code = BytesOf(c);
        if (code < 0) {
            bytes.append(static_cast<std::size_t>(unicode::Units(c)), '?');
            continue;
        }
        if (code > 0xFF)
            bytes.push_back(static_cast<char>(code >> 8));
        bytes.push_back(static_cast<char>(code));
    }
    return bytes;
}

std::string CodePage::Decode(std::string_view bytes) const {
    if (m_isUtf8 || IsAscii(bytes))
        return std::string(bytes);
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        char32_t c = m_single[first];
        if (c == 0 && first != 0 && at + 1 < bytes.size()) {
            c = m_pairs[static_cast<std::size_t>(first << 8 | static_cast<unsigned char>(bytes[at + 1]))];
            at += c != 0;
        }
        unicode::Append(text, c == 0 && first != 0 ? U'?' : c);
    }
    return text;
}

std::string CodePage::Fit(std::string_view utf8) const {
    if (m_isUtf8 || IsAscii(utf8))
        return std::string(utf8);
    std::string result;
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t c = unicode::Next(utf8, at);
        if (BytesOf(c) >= 0) {
            unicode::Append(result, c);
            continue;
        }
        const char32_t base = unicode::Decompose(c).base;
        if (base != c && BytesOf(base) >= 0)
            unicode::Append(result, base);
        else
            result.append(static_cast<std::size_t>(unicode::Units(c)), '?');
    }
    return result;
}

int LengthIn(const SqlType& type, std::string_view utf8) {
    if (type.IsUnicode() || IsAscii(utf8))
        return CountCharacters(utf8);
    const CodePage& page = CodePage::Of(type.collation);
    return page.IsSingleByte() ? CountCharacters(utf8) : static_cast<int>(page.Encode(utf8).size());
}

std::string_view BeginningIn(const SqlType& type, std::string_view utf8, int length) {
    if (type.IsUnicode() || CodePage::Of(type.collation).IsSingleByte())
        return FirstCharacters(utf8, length);
    std::size_t end = 0;
    for (std::size_t next = 0; next < utf8.size(); end = next) {
        unicode::Next(utf8, next);
        length -= LengthIn(type, utf8.substr(end, next - end));
        if (length < 0)
            break;
    }
    return utf8.substr(0, end);
}

} // namespace quillon::practice
