// A list of words as it is written down: one text, the words separated by blanks or line ends.
#pragma once

#include <sstream>
#include <string>
#include <vector>

namespace quillon {

inline std::vector<std::string> WordList(const char* text) {
    std::istringstream input(text);
    std::vector<std::string> words;
    for (std::string word; input >> word;)
        words.push_back(std::move(word));
    return words;
}

} // namespace quillon
