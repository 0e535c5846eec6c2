// The order in which a server gave the messages of one call, found again.
//
// The installed driver hands them over by rank: it brings each error to the front, where it changes places
// with the message that stood there. So "a", "b", error comes as error, "b", "a".
#pragma once

#include <vector>

#include "platform/DataAccess.h"

namespace quillon::adapters {

struct LocatedMessage {
    data::Error error;
    int line = 0; // of the statement, in its batch or procedure; 0 while unknown
};

// Puts each error back to where the lines of all messages run on best, and of several such places to the
// last: an error ends its statement, and what a server says before it belongs before it.
std::vector<data::Error> InServerOrder(std::vector<LocatedMessage> messages);

} // namespace quillon::adapters
