// Any bytes are a program or are refused with a compile-time error that has a place in the text.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "vbscript/machine/Text.h"
#include "vbscript/source/Parser.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quillon::vbscript;
    const Text text = Text::FromUtf8({reinterpret_cast<const char*>(data), size});
    for (const ProgramKind kind : {ProgramKind::Module, ProgramKind::Expression}) {
        Names names;
        try {
            (void)Parse(text.View(), names, kind);
        } catch (const CompileFailure& failure) {
            const Place place = failure.place();
            if (failure.description().empty() || place.line < 1 || place.column < 0 ||
                static_cast<std::size_t>(place.line) > text.Length() + 1)
                std::abort();
        }
    }
    return 0;
}
