#include "jscript/CompileErrors.h"

#include <algorithm>

#include "jscript/Engine.h"
#include "jscript/Tokens.h"

namespace quillon::jscript {
namespace {

enum class Verdict { Compiles, EndsTooEarly, Rejected };

Verdict VerdictOn(duk_context* context, std::string_view text, duk_uint_t flags) {
    // With a blank behind it the last token does not look like the end of the text.
    Engine::Of(context).PushText(context, std::string(text) + ' ');
    duk_push_string(context, "");
    const bool compiles = duk_pcompile(context, flags) == 0;
    const std::string_view complaint = compiles ? "" : duk_safe_to_string(context, -1);
    const bool atEnd = complaint.ends_with("end of input)");
    duk_pop(context);
    return compiles ? Verdict::Compiles : atEnd ? Verdict::EndsTooEarly : Verdict::Rejected;
}

} // namespace

Place PlaceOfComplaint(duk_context* context, std::string_view text, duk_uint_t flags) {
    const std::vector<Token> tokens = Tokenize(text);
    const auto isRejected = [&](const Token& last) {
        return VerdictOn(context, text.substr(0, last.offset + last.text.size()), flags) == Verdict::Rejected;
    };
    const auto atFault = std::ranges::partition_point(tokens, [&](const Token& t) { return !isRejected(t); });
    std::size_t offset = atFault != tokens.end() ? atFault->offset : text.size();
    if (atFault == tokens.end() && VerdictOn(context, text, flags) == Verdict::Rejected) {
        // Behind the last token only comments lie: one without an end.
        const std::size_t behind = tokens.empty() ? 0 : tokens.back().offset + tokens.back().text.size();
        offset = std::min(text.find('/', behind), text.size());
    }
    return PlaceCounter(text).At(offset);
}

} // namespace quillon::jscript
