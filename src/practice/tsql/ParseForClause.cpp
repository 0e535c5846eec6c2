#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseQueries.h"

namespace quillon::practice::tsql {

namespace {

std::optional<std::string> ParseElementName(ParseState& state) {
    if (!state.Accept(Symbol::LeftParen))
        return std::nullopt;
    std::string name = ParseText(state);
    state.Expect(Symbol::RightParen);
    return name;
}

void ParseXmlDirective(ParseState& state, ForXml& xml) {
    const Position at = state.At();
    const std::string word = TakeWord(state);
    if (word == "TYPE") {
        xml.type = true;
    } else if (word == "ELEMENTS") {
        xml.elements = true;
        if (!state.Accept("ABSENT"))
            xml.nilElements = state.Accept("XSINIL");
    } else if (word == "BINARY") {
        state.Expect("BASE64");
        xml.base64 = true;
    } else if (word == "ROOT") {
        xml.root = ParseElementName(state).value_or("root");
    } else {
        state.Refuse("FOR XML with " + word, at);
    }
}

ForXml ParseForXml(ParseState& state) {
    ForXml xml;
    const Position at = state.At();
    const std::string mode = TakeWord(state);
    if (mode == "EXPLICIT")
        state.Refuse("FOR XML EXPLICIT", at);
    if (mode != "RAW" && mode != "AUTO" && mode != "PATH")
        state.Fail(102, {mode}, at);
    xml.mode = mode == "RAW" ? ForXml::Mode::Raw : mode == "AUTO" ? ForXml::Mode::Auto : ForXml::Mode::Path;
    if (xml.mode != ForXml::Mode::Auto)
        xml.element = ParseElementName(state);
    while (state.Accept(Symbol::Comma))
        ParseXmlDirective(state, xml);
    return xml;
}

} // namespace

void ParseForClause(ParseState& state, Query& query) {
    if (!state.Is(Keyword::For))
        return;
    if (state.Is(Keyword::Browse, 1)) {
        state.Take();
        state.Take();
        query.forBrowse = true;
    } else if (state.Is("XML", 1)) {
        state.Take();
        state.Take();
        query.forXml = ParseForXml(state);
    } else if (state.Is("JSON", 1)) {
        state.Refuse("FOR JSON", state.At());
    }
}

} // namespace quillon::practice::tsql
