#include "adapters/xml/Node.h"

#include <libxml/parserInternals.h>

#include <algorithm>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {
namespace {

// What XML 1.0 cannot hold would make a file that nobody can open again.
void RequireXmlCharacters(const std::string& text) {
    for (std::size_t at = 0; at < text.size();) {
        int size = static_cast<int>(std::min<std::size_t>(4, text.size() - at));
        const int code = xmlGetUTF8Char(reinterpret_cast<const unsigned char*>(text.data()) + at, &size);
        if (code < 0)
            throw Failure(numbers::InvalidCall,
                          "The text is not UTF-8, the encoding of all text here (at its byte " +
                              std::to_string(at + 1) + ")");
        if (!IS_CHAR(static_cast<unsigned>(code)))
            throw Failure(numbers::InvalidCall, "The text holds a control character (code " +
                                                    std::to_string(code) +
                                                    ") that a profile file cannot store");
        at += static_cast<std::size_t>(size);
    }
}

void ReplaceAll(std::string& text, std::string_view what, std::string_view by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size())
        text.replace(at, what.size(), by);
}

std::string WithLineEnds(std::string_view source, std::string_view lineEnd) {
    std::string text = WithLineFeeds(source);
    if (lineEnd != "\n")
        ReplaceAll(text, "\n", lineEnd);
    return text;
}

std::string EscapedText(std::string text) {
    ReplaceAll(text, "&", "&amp;");
    ReplaceAll(text, "<", "&lt;");
    ReplaceAll(text, ">", "&gt;");
    return text;
}

// A section cannot hold its own end: the text goes on in a second one, which a reader joins to the first.
std::string Section(std::string text) {
    ReplaceAll(text, "]]>", "]]]]><![CDATA[>");
    return "<![CDATA[" + text + "]]>";
}

} // namespace

std::string WithLineFeeds(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\r')
            result += text[at];
        else if (at + 1 == text.size() || text[at + 1] != '\n')
            result += '\n';
    }
    return result;
}

bool Node::IsLayout() const {
    return m_kind == Kind::Text && m_text.find_first_not_of(" \t\r\n") == std::string::npos;
}

std::string Node::Text() const {
    if (m_kind == Kind::Text || m_kind == Kind::CData)
        return m_text;
    std::string text = m_text;
    for (const Node* child : m_children)
        if (child->m_kind != Kind::Other && !child->IsLayout())
            text += child->Text();
    return text;
}

void Node::SetText(const std::string& text) {
    if (text == Text())
        return;
    RequireXmlCharacters(text);
    for (Node* child : m_children)
        child->m_parent = nullptr;
    m_children.clear(); // an element's text becomes its only content
    m_text = text;
    m_changed = true;
}

std::vector<XmlNode*> Node::ChildNodes() {
    std::vector<XmlNode*> nodes;
    for (Node* child : m_children)
        if (child->m_kind != Kind::Other && !child->IsLayout())
            nodes.push_back(child);
    return nodes;
}

void Node::Adopt(Node& child) {
    child.m_parent = this;
    m_children.push_back(&child);
}

void Node::AppendChild(XmlNode& child) {
    Adopt(dynamic_cast<Node&>(child));
}

void Node::RemoveChild(XmlNode& child) {
    auto& node = dynamic_cast<Node&>(child);
    if (std::erase(m_children, &node) == 0)
        throw Failure(numbers::InvalidCall);
    node.m_parent = nullptr;
}

void Node::Write(std::string& out, std::string_view lineEnd) const {
    const bool asRead = !m_source.empty() && !m_changed;
    switch (m_kind) {
    case Kind::Element: WriteElement(out, lineEnd); break;
    case Kind::Text: out += asRead ? m_source : EscapedText(WithLineEnds(m_text, lineEnd)); break;
    case Kind::CData: out += asRead ? m_source : Section(WithLineEnds(m_text, lineEnd)); break;
    case Kind::Other: out += m_source; break;
    }
}

void Node::WriteElement(std::string& out, std::string_view lineEnd) const {
    const bool hasContent = !m_children.empty() || !m_text.empty();
    if (m_selfClosing && !hasContent) {
        out += m_source;
        return;
    }
    out += m_source.empty() ? "<" + m_name + ">" : m_source;
    if (m_selfClosing)
        out.erase(out.rfind('/'), 1);
    out += EscapedText(WithLineEnds(m_text, lineEnd));
    for (const Node* child : m_children)
        child->Write(out, lineEnd);
    out += m_closeTag.empty() ? "</" + m_name + ">" : m_closeTag;
}

} // namespace quillon::adapters
