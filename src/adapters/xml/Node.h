// A node of the tree that keeps its source: what was not changed is written back as it was read.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/XmlDocument.h"

namespace quillon::adapters {

class Node : public XmlNode {
  public:
    enum class Kind {
        Element,
        Text,
        CData,
        Other
    }; // Other: comments, instructions, declarations, the document

    Node(Kind kind, std::string name)
        : m_kind(kind)
        , m_name(std::move(name)) {}

    // --- XmlNode ---
    std::string Name() const override { return m_name; }
    bool IsCData() const override { return m_kind == Kind::CData; }
    std::string Text() const override;
    // Raises 5 for what is no UTF-8 and for a character that XML cannot hold.
    void SetText(const std::string& text) override;
    // Elements and text; comments, instructions and text of blanks alone are layout, not content.
    std::vector<XmlNode*> ChildNodes() override;
    void AppendChild(XmlNode& child) override;
    void RemoveChild(XmlNode& child) override;

    // --- for the reader and the writer ---
    Kind kind() const { return m_kind; }
    Node* parent() const { return m_parent; }
    const std::vector<Node*>& children() const { return m_children; }
    bool IsLayout() const;
    void Read(std::string source, std::string text) {
        m_source = std::move(source);
        m_text = std::move(text);
    }
    // Takes the source of a section that stands right behind this one and continues it.
    void Continue(const std::string& source, const std::string& text) {
        m_source += source;
        m_text += text;
    }
    void ReadTags(std::string open, bool selfClosing) {
        m_source = std::move(open);
        m_selfClosing = selfClosing;
    }
    void ReadCloseTag(std::string close) { m_closeTag = std::move(close); }
    void Adopt(Node& child);
    // Appends the node as it stands in a file with these line ends.
    void Write(std::string& out, std::string_view lineEnd) const;

  private:
    void WriteElement(std::string& out, std::string_view lineEnd) const;

    Kind m_kind;
    std::string m_name;
    Node* m_parent = nullptr;
    std::vector<Node*> m_children;
    std::string m_source; // as read: the whole of a leaf, the opening tag of an element; empty for a new node
    std::string m_closeTag; // as read
    std::string m_text;     // of a leaf
    bool m_selfClosing = false;
    bool m_changed = false; // of a leaf: its text is no longer that of the source
};

// The text as XML reads its line ends: CR LF and CR are LF.
std::string WithLineFeeds(std::string_view text);

} // namespace quillon::adapters
