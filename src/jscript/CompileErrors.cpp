#include "jscript/CompileErrors.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

#include "jscript/Engine.h"
#include "jscript/Thrown.h"
#include "jscript/Tokens.h"

namespace quillon::jscript {
namespace {

constexpr std::int32_t ConditionalCompilation = 1030;
constexpr std::int32_t RegularExpressionSyntax = 5017, InvalidSetRange = 5021;

enum class Verdict { Compiles, EndsTooEarly, Rejected };

Verdict VerdictOn(duk_context* context, std::string_view text, duk_uint_t flags) {
    // With a blank behind it the last token does not look like the end of the text.
    Engine::Of(context).PushText(context, std::string(text) + ' ');
    duk_push_string(context, "");
    const bool compiles = duk_pcompile(context, flags) == 0;
    const bool atEnd = !compiles && EngineMessage(context).ends_with("end of input)");
    duk_pop(context);
    return compiles ? Verdict::Compiles : atEnd ? Verdict::EndsTooEarly : Verdict::Rejected;
}

// What closes the innermost bracket that is open before `end`; nothing if none is.
std::string_view ClosingWanted(std::span<const Token> tokens) {
    std::vector<std::string_view> wanted;
    for (const Token& token : tokens) {
        if (token.kind != TokenKind::Mark)
            continue;
        if (token.text == "(" || token.text == "[" || token.text == "{")
            wanted.push_back(token.text == "(" ? ")" : token.text == "[" ? "]" : "}");
        else if (!wanted.empty() && token.text == wanted.back())
            wanted.pop_back();
    }
    return wanted.empty() ? std::string_view() : wanted.back();
}

// Where one token alone can follow, the engine says no more than "parse error".
KnownError WhatWasExpected(duk_context* context, std::string_view before, std::span<const Token> tokens,
                           bool atEnd, duk_uint_t flags) {
    const std::string_view closing = ClosingWanted(tokens);
    const std::array<std::string_view, 6> candidates{
        atEnd ? closing : ":", atEnd ? ":" : closing, ";", "{", "(", "while"};
    for (const std::string_view what : candidates)
        if (!what.empty() &&
            VerdictOn(context, std::string(before) + ' ' + std::string(what), flags) != Verdict::Rejected)
            return Expected(what);
    return {0, {}};
}

std::optional<std::size_t> EndOfUnterminated(std::span<const Token> tokens) {
    for (const Token& token : tokens)
        if (token.kind == TokenKind::Text &&
            (token.text.size() == 1 || token.text.back() != token.text.front()))
            return token.offset + token.text.size();
    return std::nullopt;
}

bool IsAboutExpression(const std::string& message) {
    const std::int32_t number = KnownErrorOf("SyntaxError", message).number;
    return number >= RegularExpressionSyntax && number <= InvalidSetRange;
}

// Some complaints come when the token behind the one at fault has been read already. The offset of that one
// then.
std::optional<std::size_t> FaultBefore(const Token& before, const std::string& message, bool labelFollows,
                                       Complaint& complaint) {
    if (message.starts_with("invalid label") && !labelFollows)
        complaint.error = before.text == "break" ? KnownError{1019, "Can't have 'break' outside of loop"}
                                                 : KnownError{1020, "Can't have 'continue' outside of loop"};
    else if (!message.starts_with("invalid return") &&
             !(before.kind == TokenKind::Expression && IsAboutExpression(message)))
        return std::nullopt;
    return before.offset;
}

} // namespace

Complaint ComplaintAbout(duk_context* context, std::string_view text, duk_uint_t flags) {
    const std::string message = EngineMessage(context);
    const std::vector<Token> tokens = Tokenize(text);
    const auto isAccepted = [&](const Token& last) {
        return VerdictOn(context, text.substr(0, last.offset + last.text.size()), flags) != Verdict::Rejected;
    };
    const auto atFault = std::ranges::partition_point(tokens, isAccepted);
    const bool atEnd = atFault == tokens.end();
    std::size_t offset = atEnd ? text.size() : atFault->offset;
    Complaint complaint;
    if (!atEnd && atFault->text == "@" && atFault + 1 != tokens.end() &&
        (atFault + 1)->kind == TokenKind::Word)
        complaint.error = {ConditionalCompilation, "Conditional compilation is turned off"};
    else if (message.starts_with("parse error"))
        complaint.error =
            WhatWasExpected(context, text.substr(0, offset), {tokens.begin(), atFault}, atEnd, flags);
    else if (message.starts_with("unterminated string"))
        offset = EndOfUnterminated(tokens).value_or(offset);
    else if (atFault != tokens.begin())
        offset = FaultBefore(*(atFault - 1), message, !atEnd && atFault->kind == TokenKind::Word, complaint)
                     .value_or(offset);
    complaint.place = PlaceCounter(text).At(offset);
    return complaint;
}

} // namespace quillon::jscript
