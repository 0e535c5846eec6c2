// What a million small values of a kind take of the heap, each beside what its contents need and beside the
// equal value in Lua 5.4. More than 64 bytes around the contents is too much, and the program then ends
// with 1.
//
// The heap is asked, not the engine's own count: what the allocator adds is in the figures.

#include <malloc.h>

#include <cstdio>
#include <memory>
#include <string>

#include "platform/Failure.h"
#include "vbscript/VbScriptHost.h"

namespace {

using namespace quillon;

constexpr double Count = 1e6;
constexpr double MostAround = 64;

struct Measured {
    const char* name;
    double contents; // bytes: two a character, sixteen a value held, of a match held what it takes
    const char* statement;
    const char* lua; // "" where Lua has no such thing
};

constexpr Measured Kinds[] = {
    {"text of 8 characters", 16, "a(i) = CStr(10000000 + i)", "a[i] = tostring(10000000 + i)"},
    {"object of two fields", 32, "Set a(i) = New Pair", "a[i] = {First = 1, Second = 2}"},
    {"Array(1, 2, 3)", 48, "a(i) = Array(1, 2, 3)", "a[i] = {1, 2, 3}"},
    {"ReDim part(2)", 48, "ReDim part(2): a(i) = part", "a[i] = {0, 0, 0}"},
    {"ReDim part(1, 1)", 64, "ReDim part(1, 1): a(i) = part", "a[i] = {{0, 0}, {0, 0}}"},
    {"Array()", 0, "a(i) = Array()", "a[i] = {}"},
    {"Dictionary, empty", 0, "Set a(i) = CreateObject(\"Scripting.Dictionary\")", "a[i] = {}"},
    {"Dictionary of one", 32, "Set a(i) = CreateObject(\"Scripting.Dictionary\"): a(i).Add 1, 2",
     "a[i] = {[7] = 2}"},
    {"Dictionary of three", 96,
     "Set a(i) = CreateObject(\"Scripting.Dictionary\"): a(i).Add 1, 2: a(i).Add 2, 3: a(i).Add 3, 4",
     "a[i] = {[7] = 2, [8] = 3, [9] = 4}"},
    {"Dictionary of eight", 256,
     "Set a(i) = CreateObject(\"Scripting.Dictionary\"): For k = 1 To 8: a(i).Add k, k: Next",
     "a[i] = {} for k = 7, 14 do a[i][k] = k end"},
    {"RegExp", 0, "Set a(i) = New RegExp", ""},
    {"Match of 4 characters", 8, "Set a(i) = search.Execute(\"ab12cd\")(0)", ""},
    {"Matches of one", 64, "Set a(i) = search.Execute(\"ab12cd\")", ""},
};

// The bytes of the heap that one value takes, without its place in the array that holds it.
double BytesOf(const Measured& kind) {
    vbscript::VbScriptHost host;
    host.SetLanguage("VBScript");
    host.AddCode("Class Pair: Public First, Second: End Class\n"
                 "Dim a, search: ReDim a(999999): Set search = New RegExp: search.Pattern = \"\\d+\"\n"
                 "Sub Fill: Dim i, k, part: For i = 0 To 999999: " +
                 std::string(kind.statement) + ": Next: End Sub");
    const auto before = mallinfo2();
    host.Run("Fill");
    const auto after = mallinfo2();
    return static_cast<double>((after.uordblks + after.hblkhd) - (before.uordblks + before.hblkhd)) / Count;
}

// The same by Lua's own count; negative where there is none.
double LuaBytesOf(const Measured& kind) {
    if (*kind.lua == '\0')
        return -1;
    const std::string command =
        "lua5.4 -e 'local a = {} for i = 1, 1000000 do a[i] = 0 end collectgarbage() "
        "local before = collectgarbage(\"count\") for i = 1, 1000000 do " +
        std::string(kind.lua) +
        " end collectgarbage() print((collectgarbage(\"count\") - before) * 1024)' 2>&1";
    const std::unique_ptr<FILE, int (*)(FILE*)> lua(popen(command.c_str(), "r"), pclose);
    double bytes = 0;
    return lua && std::fscanf(lua.get(), "%lf", &bytes) == 1 ? bytes / Count : -1;
}

} // namespace

int main() {
    bool fits = true;
    std::printf("%-24s %9s %9s %9s %9s\n", "bytes each", "contents", "taken", "around", "lua 5.4");
    try {
        for (const Measured& kind : Kinds) {
            const double taken = BytesOf(kind), around = taken - kind.contents, lua = LuaBytesOf(kind);
            const bool tooMuch = around > MostAround;
            fits = fits && !tooMuch;
            std::printf("%-24s %9.1f %9.1f %9.1f ", kind.name, kind.contents, taken, around);
            if (lua < 0)
                std::printf("%9s", "-");
            else
                std::printf("%9.1f", lua);
            std::printf("%s\n", tooMuch ? "  too much" : "");
        }
    } catch (const Failure& failure) {
        std::printf("%s\n", failure.what());
        return 2;
    }
    return fits ? 0 : 1;
}
