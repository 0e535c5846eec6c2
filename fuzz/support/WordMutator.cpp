#include "WordMutator.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

using quillon::fuzz::words;
using Random = std::minstd_rand;
using Text = std::string_view;

std::size_t Below(Random& random, std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
}

bool InName(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '@' || c == '#' || (c & 0x80) != 0;
}

/// The length of the word at the start of `text`: a name or number, a quoted string, or one other character.
std::size_t WordLength(Text text) {
    const auto names =
        static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), InName) - text.begin());
    if (names > 0)
        return names;
    if (text[0] == '"' || text[0] == '\'')
        return std::min(text.find(text[0], 1), text.size() - 1) + 1;
    return 1;
}

/// The words of `text` as views into it; blanks are none, line ends are.
std::vector<Text> Words(Text text) {
    std::vector<Text> found;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = WordLength(text.substr(at));
        if (text[at] != ' ' && text[at] != '\t')
            found.push_back(text.substr(at, length));
        at += length;
    }
    return found;
}

std::string AnyWord(Text other, Random& random) {
    const std::vector<Text> found = Words(other);
    if (found.empty() || Below(random, 2) == 0)
        return std::string(words[Below(random, words.size())]);
    return std::string(found[Below(random, found.size())]);
}

std::string Replaced(Text text, const char* begin, const char* end, Text piece) {
    return std::string(text.begin(), begin).append(piece).append(end, text.end());
}

/// One word dropped, doubled, swapped with its neighbour, replaced, or preceded by another.
std::string ChangeOneWord(Text text, Text other, Random& random) {
    const std::vector<Text> found = Words(text);
    if (found.empty())
        return AnyWord(other, random);
    const std::size_t at = Below(random, found.size());
    const Text word = found[at];
    const std::string own(word);
    switch (Below(random, 5)) {
    case 0: return Replaced(text, word.begin(), word.end(), "");
    case 1: return Replaced(text, word.end(), word.end(), " " + own);
    case 2: {
        const Text next = found[std::min(at + 1, found.size() - 1)];
        return Replaced(text, word.begin(), next.end(), std::string(next) + " " + own);
    }
    case 3: return Replaced(text, word.begin(), word.end(), AnyWord(other, random));
    default: return Replaced(text, word.begin(), word.begin(), AnyWord(other, random) + " ");
    }
}

/// `text` up to the end of a word, then `other` from the start of one.
std::string Splice(Text text, Text other, Random& random) {
    const std::vector<Text> first = Words(text);
    const std::vector<Text> second = Words(other);
    if (first.empty() || second.empty())
        return std::string(text);
    return std::string(text.begin(), first[Below(random, first.size())].end())
        .append("\n")
        .append(second[Below(random, second.size())].begin(), other.end());
}

Text TextOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

std::size_t Give(const std::string& text, std::uint8_t* data, std::size_t maxSize) {
    const std::size_t size = std::min(text.size(), maxSize);
    std::memcpy(data, text.data(), size);
    return size;
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed) {
    Random random(seed);
    if (Below(random, 16) == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    return Give(ChangeOneWord(TextOf(data, size), TextOf(data, size), random), data, maxSize);
}

extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* first, std::size_t firstSize,
                                                 const std::uint8_t* second, std::size_t secondSize,
                                                 std::uint8_t* out, std::size_t outSize, unsigned int seed) {
    Random random(seed);
    const Text text = TextOf(first, firstSize);
    const Text other = TextOf(second, secondSize);
    const bool splice = Below(random, 2) == 0;
    return Give(splice ? Splice(text, other, random) : ChangeOneWord(text, other, random), out, outSize);
}
