// The XML library of the system (platform/XmlDocument.h).
//
// libxml2 decides what is well-formed XML; a tree of our own keeps every byte of the file (SourceTree.h), so
// that a save changes what was asked for and nothing else.
#pragma once

#include <memory>

#include "platform/XmlDocument.h"

namespace quillon::adapters {

class XmlLibrary : public quillon::XmlLibrary {
  public:
    std::unique_ptr<XmlDocument> NewDocument() override;
};

} // namespace quillon::adapters
