// What logged-in clients ask: batches of text, procedure calls, transaction manager requests
// ([MS-TDS] 2.2.6.7, 2.2.6.6, 2.2.6.9). These functions turn a message's body into the engine's terms and
// throw ProtocolError for what is malformed, and SqlError for what is refused.
#pragma once

#include "practice/session/SqlSession.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::practice::tds {

// The text of an SQL batch, in UTF-8.
std::string ReadBatch(std::string_view body, std::uint32_t tdsVersion);

// The calls of one RPC message, in order. Procedures called by number get their names.
std::vector<ProcedureCall> ReadCalls(std::string_view body, std::uint32_t tdsVersion);

// A transaction manager request. `distributed` marks those of distributed transactions, which the server does
// not offer.
struct ManagerRequest {
    bool distributed = false;
    TransactionRequest request;
};
ManagerRequest ReadManagerRequest(std::string_view body, std::uint32_t tdsVersion);

} // namespace quillon::practice::tds
