#include "adapters/xml/WellFormed.h"

#include <libxml/parser.h>

#include <algorithm>
#include <memory>

namespace quillon::adapters {
namespace {

// A profile is a few hundred kilobytes with a few thousand of these characters, most of them in its scripts;
// what is far beyond that is no profile. They bound the parts that a document can have, and with them the
// memory and time it takes to read.
constexpr std::size_t MostBytes = 64u << 20;
constexpr std::ptrdiff_t MostMarks = 250000;

bool IsMark(char c) {
    return c == '<' || c == '&' || c == '='; // begins a tag, a reference, an attribute's value
}

using Context = std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)>;
using Tree = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;

std::string ReasonOf(const xmlParserCtxt& context) {
    const xmlError& error = context.lastError;
    std::string reason = error.message != nullptr ? error.message : "not well-formed";
    while (!reason.empty() && reason.back() == '\n')
        reason.pop_back();
    return "line " + std::to_string(error.line) + ": " + reason;
}

std::string EncodingOf(const xmlDoc& tree, std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE"))
        return "UTF-16LE";
    if (bytes.starts_with("\xFE\xFF"))
        return "UTF-16BE";
    const auto* declared = tree.encoding;
    return declared == nullptr ? "UTF-8" : reinterpret_cast<const char*>(declared);
}

// What the library says of encodings it prints for all to see, whatever the parser was told; the reason goes
// to the caller.
void KeepSilent(void*, const char*, ...) {}

} // namespace

Judgement JudgeXml(std::string_view bytes) {
    if (bytes.size() > MostBytes)
        return {false, {}, "the file is larger than 64 MB"};
    if (std::ranges::count_if(bytes, IsMark) > MostMarks)
        return {false, {}, "the document has more than " + std::to_string(MostMarks) + " parts"};
    xmlSetGenericErrorFunc(nullptr, &KeepSilent);
    const Context context(xmlNewParserCtxt(), &xmlFreeParserCtxt);
    if (!context)
        return {false, {}, "out of memory"};
    // Without XML_PARSE_HUGE the parser itself bounds nesting (256) and the growth of entities.
    const Tree tree(xmlCtxtReadMemory(context.get(), bytes.data(), static_cast<int>(bytes.size()), nullptr,
                                      nullptr, XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING),
                    &xmlFreeDoc);
    if (!tree)
        return {false, {}, ReasonOf(*context)};
    return {true, EncodingOf(*tree, bytes), {}};
}

} // namespace quillon::adapters
