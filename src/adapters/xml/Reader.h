// Cuts the text of a well-formed document into nodes that keep their source.
//
// The text has passed libxml2 (WellFormed.h), so the reader need not judge it, only find where each node
// begins and ends. It follows XML 1.0 (Fifth Edition): line ends are read as LF, character references and the
// five predefined entities are replaced, other entities yield nothing.
#pragma once

#include <functional>
#include <string_view>

#include "adapters/xml/Node.h"

namespace quillon::adapters {

// Makes a node that lives as long as the document.
using MakeNode = std::function<Node&(Node::Kind kind, std::string name)>;

// Fills `document` with the nodes of the text. Raises 5 where the text is not what a well-formed document can
// be.
void ReadNodes(std::string_view text, Node& document, const MakeNode& make);

} // namespace quillon::adapters
