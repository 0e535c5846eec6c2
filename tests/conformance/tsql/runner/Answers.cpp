#include "runner/Answers.h"

#include <cstdlib>
#include <stdexcept>

namespace quillon::conformance {

namespace {

constexpr std::pair<const char*, Answer::Kind> kinds[] = {
    {"row", Answer::Kind::Row},         {"columns", Answer::Kind::Columns}, {"count", Answer::Kind::Count},
    {"message", Answer::Kind::Message}, {"error", Answer::Kind::Error},
};

bool MatchesWildcards(const char* pattern, const char* text) {
    const char* star = nullptr;
    const char* resume = nullptr;
    while (*text != '\0') {
        if (*pattern == '*') {
            star = pattern++;
            resume = text;
        } else if (*pattern == *text) {
            ++pattern;
            ++text;
        } else if (star != nullptr) {
            pattern = star + 1;
            text = ++resume;
        } else {
            return false;
        }
    }
    while (*pattern == '*')
        ++pattern;
    return *pattern == '\0';
}

// Behind "error" or "message": number, then " line n", then ": text".
void ReadNumbered(const std::string& rest, Answer& answer) {
    char* end = nullptr;
    answer.number = static_cast<int>(std::strtol(rest.c_str(), &end, 10));
    std::string tail = end;
    if (tail.starts_with(" line ")) {
        answer.line = static_cast<int>(std::strtol(tail.c_str() + 6, &end, 10));
        tail = end;
    }
    if (tail.empty())
        answer.text = "*";
    else if (tail.starts_with(": "))
        answer.text = tail.substr(2);
    else
        throw std::runtime_error("cannot read the expectation: " + rest);
}

} // namespace

std::string Written(const Answer& answer) {
    for (const auto& [word, kind] : kinds) {
        if (kind != answer.kind)
            continue;
        std::string text = word;
        if (kind != Answer::Kind::Message && kind != Answer::Kind::Error)
            return text + " " + answer.text;
        text += " " + std::to_string(answer.number);
        if (answer.line)
            text += " line " + std::to_string(*answer.line);
        return text + ": " + answer.text;
    }
    return {};
}

Answer ReadExpected(const std::string& text) {
    const std::size_t blank = text.find(' ');
    const std::string word = text.substr(0, blank);
    const std::string rest = blank == std::string::npos ? "" : text.substr(blank + 1);
    for (const auto& [name, kind] : kinds) {
        if (word != name)
            continue;
        Answer answer;
        answer.kind = kind;
        if (kind == Answer::Kind::Message || kind == Answer::Kind::Error)
            ReadNumbered(rest, answer);
        else
            answer.text = rest;
        return answer;
    }
    throw std::runtime_error("cannot read the expectation: " + text);
}

bool Fits(const Answer& expected, const Answer& actual) {
    if (expected.kind != actual.kind || expected.number != actual.number)
        return false;
    if (expected.line && expected.line != actual.line)
        return false;
    return MatchesWildcards(expected.text.c_str(), actual.text.c_str());
}

} // namespace quillon::conformance
