// CodePage: the character set of char, varchar and text under a collation, whose bytes the wire, ASCII() and
// CAST to binary show. Inside the server all text is UTF-8; what a code page lacks is lost where a text
// becomes one of these types, not later. A page lives as long as the process.
#pragma once

#include "practice/values/SqlType.h"

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillon::practice {

class CodePage {
  public:
    // By number: 1252, 1251, 932, 65001 ... Throws std::runtime_error for a number that the C library cannot
    // convert.
    static const CodePage& Of(int number);
    // That of a collation; of the default one for nullptr.
    static const CodePage& Of(const Collation* collation);

    // A '?' for each UTF-16 unit that the page lacks.
    std::string Encode(std::string_view utf8) const;
    std::string Decode(std::string_view bytes) const;
    // What is left of a text: letters that the page lacks lose their accent, or become question marks.
    std::string Fit(std::string_view utf8) const;
    // One byte for each character, so that characters and bytes count alike.
    bool IsSingleByte() const { return m_isSingleByte; }

  private:
    explicit CodePage(int number);
    void ReadPairs(int number);
    // The bytes of a character, first byte highest; -1 when the page lacks it.
    int BytesOf(char32_t codePoint) const;

    bool m_isUtf8;
    bool m_isSingleByte = true;
    std::array<char32_t, 256> m_single{}; // 0: no character, or the first byte of two
    std::vector<char32_t> m_pairs;        // by both bytes
    std::unordered_map<char32_t, int> m_bytes;
};

// The length of a text in what its type counts: UTF-16 units for the n-types, bytes of the code page for the
// others; and its beginning of at most so many.
int LengthIn(const SqlType& type, std::string_view utf8);
std::string_view BeginningIn(const SqlType& type, std::string_view utf8, int length);

} // namespace quillon::practice
