// Any program runs, under a step limit and a memory limit, to its end or to a failure, and leaves no memory
// taken; added a second time, and run after a Reset, it does the same.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/Failure.h"
#include "vbscript/VbScriptHost.h"
#include "vbscript/machine/Heap.h"

namespace {

using namespace quillon;

void RunOnce(vbscript::VbScriptHost& host, std::string_view program) {
    try {
        host.AddCode(program);
        (void)host.Eval("result");
        (void)host.Run("main");
    } catch (const Failure& failure) {
        if (host.Error().Number != 0 && host.Error().Number != failure.number())
            std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using vbscript::Heap;
    const std::size_t before = Heap::Used();
    Heap::SetLimit(before + (std::size_t{16} << 20));
    {
        vbscript::VbScriptHost host;
        host.SetLanguage("VBScript");
        host.SetStepLimit(5000);
        const std::string_view program(reinterpret_cast<const char*>(data), size);
        RunOnce(host, program);
        RunOnce(host, program);
        host.Reset();
        RunOnce(host, program);
    }
    if (Heap::Used() != before)
        std::abort();
    return 0;
}
