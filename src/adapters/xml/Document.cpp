#include "adapters/xml/Document.h"

#include <algorithm>

#include "adapters/xml/Encoding.h"
#include "adapters/xml/Library.h"
#include "adapters/xml/Reader.h"
#include "adapters/xml/WellFormed.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Files.h"
#include "platform/Platform.h"

namespace quillon::adapters {
namespace {

// The line end that most lines of a file have.
std::string LineEndOf(const std::string& text) {
    const auto feeds = std::ranges::count(text, '\n');
    std::ptrdiff_t pairs = 0;
    for (auto at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at + 2))
        ++pairs;
    return pairs * 2 >= feeds && (pairs > 0 || feeds == 0) ? "\r\n" : "\n";
}

// Calls `found` for every node below `from`, in document order.
template <class Found>
void Walk(Node& from, const Found& found) {
    for (Node* child : from.children()) {
        found(*child);
        Walk(*child, found);
    }
}

} // namespace

Node& Document::Make(Node::Kind kind, std::string name) {
    return m_nodes.emplace_back(kind, std::move(name));
}

bool Document::Load(const std::string& path) {
    std::string bytes;
    try {
        bytes = ThePlatform().files().ReadAll(path);
    } catch (const Failure& failure) {
        m_reason = failure.description();
        return false;
    }
    return Read(bytes);
}

bool Document::Read(const std::string& bytes) {
    const auto judgement = JudgeXml(bytes);
    if (!judgement.wellFormed) {
        m_reason = judgement.reason;
        return false;
    }
    try {
        const auto text = ToUtf8(bytes, judgement.encoding);
        if (FromUtf8(text, judgement.encoding) != bytes)
            throw Failure(numbers::InvalidCall, "The file is not in the encoding that it declares, " +
                                                    judgement.encoding + ", and could not be saved as it is");
        Node& document = Make(Node::Kind::Other, "#document");
        ReadNodes(text, document,
                  [this](Node::Kind kind, std::string name) -> Node& { return Make(kind, std::move(name)); });
        m_document = &document;
        m_encoding = judgement.encoding;
        m_lineEnd = LineEndOf(text);
        m_reason.clear();
        return true;
    } catch (const Failure& failure) {
        m_reason = failure.description();
        return false;
    }
}

void Document::Save(const std::string& path) {
    if (path.empty())
        throw Failure(numbers::InvalidCall);
    std::string text;
    for (const Node* node : m_document->children())
        node->Write(text, m_lineEnd);
    ThePlatform().files().Replace(path, FromUtf8(text, m_encoding));
}

XmlNode& Document::CreateElement(const std::string& name) {
    return Make(Node::Kind::Element, name);
}

XmlNode& Document::CreateCData(const std::string& text) {
    Node& node = Make(Node::Kind::CData, "#cdata-section");
    node.SetText(text);
    return node;
}

void Document::AppendChild(XmlNode& root) {
    m_document->AppendChild(root);
}

std::vector<XmlNode*> Document::GetElementsByTagName(const std::string& pattern) {
    const auto slash = pattern.find('/');
    const auto first = pattern.substr(0, slash);
    const auto second = slash == std::string::npos ? std::string() : pattern.substr(slash + 1);
    std::vector<XmlNode*> found;
    Walk(*m_document, [&](Node& node) {
        const bool isText = node.kind() == Node::Kind::Text || node.IsCData();
        const bool isElement = node.kind() == Node::Kind::Element;
        const bool hasParent = node.parent() != nullptr && node.parent()->Name() == first;
        const bool matches = second.empty()       ? isElement && node.Name() == first
                             : second == "text()" ? isText && !node.IsLayout() && hasParent
                                                  : isElement && node.Name() == second && hasParent;
        if (matches)
            found.push_back(&node);
    });
    return found;
}

std::vector<XmlNode*> Document::SelectNodes(const std::string& path) {
    if (!path.starts_with("//"))
        throw Failure(numbers::InvalidCall, "Unsupported path " + path);
    return GetElementsByTagName(path.substr(2));
}

std::unique_ptr<XmlDocument> XmlLibrary::NewDocument() {
    return std::make_unique<Document>();
}

} // namespace quillon::adapters
