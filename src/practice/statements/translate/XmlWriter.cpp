#include "practice/statements/translate/XmlWriter.h"

#include "practice/values/Convert.h"
#include "practice/values/Unicode.h"

#include <array>
#include <cstdio>

namespace quillon::practice {

namespace {

std::string Escape(std::string_view text, bool attribute) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
        case '&': escaped += "&amp;"; break;
        case '<': escaped += "&lt;"; break;
        case '>': escaped += "&gt;"; break;
        case '"': escaped += attribute ? "&quot;" : "\""; break;
        case '\r': escaped += "&#x0D;"; break;
        case '\n': escaped += attribute ? "&#x0A;" : "\n"; break;
        case '\t': escaped += attribute ? "&#x09;" : "\t"; break;
        default: escaped += c; break;
        }
    }
    return escaped;
}

std::string Base64(std::string_view bytes) {
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < 3; ++i)
            group = group << 8 | (at + i < bytes.size() ? static_cast<unsigned char>(bytes[at + i]) : 0);
        for (std::size_t i = 0; i < 4; ++i)
            text += at + i > bytes.size() ? '=' : digits[group >> (18 - 6 * i) & 63];
    }
    return text;
}

bool MayStandInName(char32_t c, bool first) {
    const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c >= 0xC0;
    return letter || (!first && ((c >= '0' && c <= '9') || c == '-' || c == '.' || c == 0xB7));
}

} // namespace

std::string XmlName(std::string_view name) {
    std::string encoded;
    for (std::size_t at = 0; at < name.size();) {
        const std::size_t begin = at;
        const char32_t c = unicode::Next(name, at);
        const bool looksEncoded = c == '_' && name.substr(at, 1) == "x";
        if (MayStandInName(c, begin == 0) && !looksEncoded) {
            encoded += name.substr(begin, at - begin);
            continue;
        }
        std::array<char, 16> code{};
        std::snprintf(code.data(), code.size(), "_x%04X_", static_cast<unsigned>(c));
        encoded += code.data();
    }
    return encoded;
}

char32_t WrongInXmlName(std::string_view name) {
    bool first = true;
    for (std::size_t at = 0; at < name.size();) {
        const char32_t c = unicode::Next(name, at);
        if (c != ':' && !MayStandInName(c, first))
            return c;
        first = c == ':';
    }
    return 0;
}

std::string XmlValue(const Datum& value) {
    constexpr int isoStyle = 126;
    constexpr int longMoneyOrFloat = 2;
    constexpr int scientific = 1;
    switch (value.Type().id) {
    case TypeId::Bit: return value.Integer() != 0 ? "1" : "0";
    case TypeId::SmallMoney:
    case TypeId::Money:
    case TypeId::Float: return ToText(value, longMoneyOrFloat);
    case TypeId::Real: return ToText(value, scientific);
    default: break;
    }
    if (value.Type().IsBinary())
        return Base64(value.Bytes());
    return ToText(value, value.Type().IsMoment() ? isoStyle : noStyle);
}

void XmlWriter::EndTag() {
    if (m_inTag)
        m_text += ">";
    m_inTag = false;
}

void XmlWriter::Open(const std::string& name) {
    EndTag();
    m_text += "<" + name + (m_open.empty() ? m_outermost : "");
    m_open.push_back(name);
    m_inTag = true;
}

void XmlWriter::Attribute(std::string_view name, std::string_view value) {
    m_text.append(" ").append(name).append("=\"").append(Escape(value, true)).append("\"");
}

void XmlWriter::Text(std::string_view text) {
    Xml(Escape(text, false));
}

void XmlWriter::Xml(std::string_view xml) {
    EndTag();
    m_text += xml;
}

void XmlWriter::Close() {
    m_text += m_inTag ? "/>" : "</" + m_open.back() + ">";
    m_inTag = false;
    m_open.pop_back();
}

void XmlWriter::CloseTo(std::size_t depth) {
    while (m_open.size() > depth)
        Close();
}

} // namespace quillon::practice
