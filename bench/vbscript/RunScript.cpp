// Runs one script file: what the comparison of bench/vbscript/compare.sh times against other hosts.
//
// The script sees WScript with Echo, as a console host of the language has it.

#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>

#include "platform/Conversion.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Object.h"
#include "vbscript/VbScriptHost.h"

namespace {

using namespace quillon;

class Console : public Object {
  public:
    std::string TypeName() const override { return "WScript"; }
    std::optional<MemberId> FindMember(std::string_view name) const override {
        return name == "Echo" || name == "echo" ? std::optional<MemberId>(1) : std::nullopt;
    }
    Value Invoke(MemberId, InvokeKind, std::span<Value> arguments) override {
        const char* blank = "";
        for (const Value& argument : arguments) {
            std::cout << blank << conversion::ToText(argument);
            blank = " ";
        }
        std::cout << '\n';
        return {};
    }
};

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: vbscript_bench_run FILE\n";
        return 2;
    }
    std::ifstream file(arguments[1], std::ios::binary);
    if (!file) {
        std::cerr << "cannot read " << arguments[1] << '\n';
        return 2;
    }
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    vbscript::VbScriptHost host;
    try {
        host.SetLanguage("VBScript");
        host.AddObject("WScript", MakeObject<Console>());
        host.AddCode(text);
    } catch (const Failure&) {
        const ScriptError& error = host.Error();
        std::cerr << arguments[1] << '(' << error.Line << ", " << error.Column << ") " << error.Source << ": "
                  << error.Description << " (" << error.Number << ")\n";
        return 1;
    }
    return 0;
}
