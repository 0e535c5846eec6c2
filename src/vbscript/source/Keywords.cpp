#include "vbscript/source/Keywords.h"

#include "vbscript/machine/Convert.h"

namespace quillon::vbscript {
namespace {

using enum Keyword;

struct Row {
    std::string_view word;
    Keyword keyword;
};

// In alphabetical order.
constexpr Row Rows[] = {
    {"and", And},
    {"byref", ByRef},
    {"byval", ByVal},
    {"call", Call},
    {"case", Case},
    {"class", Class},
    {"const", Const},
    {"default", Default},
    {"dim", Dim},
    {"do", Do},
    {"each", Each},
    {"else", Else},
    {"elseif", ElseIf},
    {"empty", Empty},
    {"end", End},
    {"eqv", Eqv},
    {"erase", Erase},
    {"error", Error},
    {"exit", Exit},
    {"explicit", Explicit},
    {"false", False},
    {"for", For},
    {"function", Function},
    {"get", Get},
    {"goto", GoTo},
    {"if", If},
    {"imp", Imp},
    {"in", In},
    {"is", Is},
    {"let", Let},
    {"loop", Loop},
    {"me", Me},
    {"mod", Mod},
    {"new", New},
    {"next", Next},
    {"not", Not},
    {"nothing", Nothing},
    {"null", Null},
    {"on", On},
    {"option", Option},
    {"or", Or},
    {"preserve", Preserve},
    {"private", Private},
    {"property", Property},
    {"public", Public},
    {"redim", ReDim},
    {"rem", Rem},
    {"resume", Resume},
    {"select", Select},
    {"set", Set},
    {"step", Step},
    {"stop", Stop},
    {"sub", Sub},
    {"then", Then},
    {"to", To},
    {"true", True},
    {"until", Until},
    {"wend", Wend},
    {"while", While},
    {"with", With},
    {"xor", Xor},
};
static_assert(std::ranges::is_sorted(Rows, {}, &Row::word));

constexpr std::size_t LongestWord = 8;

} // namespace

Keyword KeywordOf(std::u16string_view name) {
    if (name.size() > LongestWord)
        return None;
    char lowered[LongestWord];
    for (std::size_t at = 0; at < name.size(); ++at)
        lowered[at] = name[at] < 0x80 ? static_cast<char>(LowerOf(name[at])) : '?';
    const std::string_view word(lowered, name.size());
    const Row* row = std::ranges::lower_bound(Rows, word, {}, &Row::word);
    return row != std::end(Rows) && row->word == word ? row->keyword : None;
}

} // namespace quillon::vbscript
