// Any bytes as a script: the rewriter reads them to the end, knows where each line it makes began, and does
// not keep from compiling what compiles.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "jscript/Engine.h"
#include "jscript/Rewriter.h"
#include "jscript/Tokens.h"

namespace {

using namespace quillon::jscript;

void Require(bool condition) {
    if (!condition)
        std::abort();
}

std::size_t LinesOf(std::string_view text) {
    std::size_t lines = 1;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = LineEndAt(text, at);
        lines += end != 0;
        at += end == 0 ? 1 : end;
    }
    return lines;
}

bool Compiles(Engine& engine, duk_context* context, std::string_view text) {
    engine.PushText(context, text);
    duk_push_string(context, "");
    const bool compiles = duk_pcompile(context, 0) == 0;
    duk_pop(context);
    return compiles;
}

struct Scripts {
    std::string_view original, rewritten;
};

void CompileBoth(Engine& engine, duk_context* context, void* data) {
    const auto& scripts = *static_cast<Scripts*>(data);
    Require(!Compiles(engine, context, scripts.original) || Compiles(engine, context, scripts.rewritten));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view script(reinterpret_cast<const char*>(data), size);
    std::size_t last = 0;
    for (const Token& token : Tokenize(script)) {
        Require(token.offset >= last && !token.text.empty());
        Require(script.substr(token.offset, token.text.size()) == token.text);
        last = token.offset + token.text.size();
    }
    Require(last <= size);
    const Rewritten rewritten = Rewrite(script, [](std::string_view name) { return name == "f"; });
    Require(rewritten.lines.size() == LinesOf(rewritten.text));

    static const ObjectFactory factory;
    static Engine engine(factory, std::size_t{256} << 20);
    Scripts scripts{script, rewritten.text};
    engine.Guarded(CompileBoth, &scripts);
    return 0;
}
