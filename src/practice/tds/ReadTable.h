// Arguments of table types on the wire ([MS-TDS] 2.2.5.5.5).
#pragma once

#include "practice/session/SqlSession.h"
#include "practice/tds/Bytes.h"

namespace quillon::practice::tds {

// What follows the type's token. Throws ProtocolError for what is malformed.
TableArgument ReadTable(ByteReader& reader, std::uint32_t tdsVersion);

} // namespace quillon::practice::tds
