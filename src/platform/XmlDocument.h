// A live XML document: what the architecture profile keeps in memory and writes back as it stands.
//
// Used by: clsQlnTemplate. Implemented by: adapters/xml over libxml2 (no entity expansion, no network, limits
// on size and depth). Unknown elements, comments, CDATA, order, declared encoding and line ends are kept.
// Nodes belong to their document and live as long as it does, removed ones included.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace quillon {

class XmlNode {
  public:
    virtual ~XmlNode() = default;
    virtual std::string Name() const = 0; // "#cdata-section", "#text", "#comment" for such nodes
    virtual bool IsCData() const = 0;
    // Text of the node and all below it; setting replaces the contents.
    virtual std::string Text() const = 0;
    virtual void SetText(const std::string& text) = 0;
    // Elements and text, without comments, instructions and text of blanks alone.
    virtual std::vector<XmlNode*> ChildNodes() = 0;
    virtual void AppendChild(XmlNode& child) = 0;
    virtual void RemoveChild(XmlNode& child) = 0;
};

class XmlDocument {
  public:
    virtual ~XmlDocument() = default;

    // False when the file cannot be read or is not well-formed (Reason tells why); an earlier content then
    // stays.
    virtual bool Load(const std::string& path) = 0;
    virtual std::string Reason() const = 0;
    // Whole or not at all. Raises 75, 70, 76 ... as the file system says, 5 for an empty path.
    virtual void Save(const std::string& path) = 0;

    virtual XmlNode& CreateElement(const std::string& name) = 0;
    virtual XmlNode& CreateCData(const std::string& text) = 0;
    virtual void AppendChild(XmlNode& root) = 0;

    // Matches in document order of a pattern as getElementsByTagName took it: "name", "parent/child",
    // "name/text()".
    virtual std::vector<XmlNode*> GetElementsByTagName(const std::string& pattern) = 0;
    // Matches of "//name".
    virtual std::vector<XmlNode*> SelectNodes(const std::string& path) = 0;
};

class XmlLibrary {
  public:
    virtual ~XmlLibrary() = default;
    // Raises 429 when the parser cannot be had.
    virtual std::unique_ptr<XmlDocument> NewDocument() = 0;
};

} // namespace quillon
