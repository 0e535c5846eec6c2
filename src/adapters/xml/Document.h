// A live XML document over a tree that keeps its source.
#pragma once

#include <deque>
#include <string>

#include "adapters/xml/Node.h"
#include "platform/XmlDocument.h"

namespace quillon::adapters {

class Document : public XmlDocument {
  public:
    bool Load(const std::string& path) override;
    std::string Reason() const override { return m_reason; }
    void Save(const std::string& path) override;

    XmlNode& CreateElement(const std::string& name) override;
    XmlNode& CreateCData(const std::string& text) override;
    void AppendChild(XmlNode& root) override;

    std::vector<XmlNode*> GetElementsByTagName(const std::string& pattern) override;
    std::vector<XmlNode*> SelectNodes(const std::string& path) override;

  private:
    Node& Make(Node::Kind kind, std::string name);
    // Fills this document from the bytes of a file; false with m_reason when they are no XML.
    bool Read(const std::string& bytes);

    std::deque<Node> m_nodes; // all nodes ever made, so that references stay good
    Node* m_document = &Make(Node::Kind::Other, "#document");
    std::string m_encoding = "UTF-8";
    std::string m_lineEnd = "\r\n";
    std::string m_reason;
};

} // namespace quillon::adapters
