// The judgement of libxml2 over the bytes of a file: well-formed XML, within the limits, without help from
// outside.
#pragma once

#include <string>
#include <string_view>

namespace quillon::adapters {

struct Judgement {
    bool wellFormed = false;
    std::string encoding; // declared or told by a byte order mark; "UTF-8" where neither is there
    std::string reason;   // why not
};

// Reads no other file, asks no network and expands no entity of the document's own.
Judgement JudgeXml(std::string_view bytes);

} // namespace quillon::adapters
