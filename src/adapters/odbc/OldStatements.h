// Statements of the system that were written for catalogue views as old servers had them, and the form in
// which servers since 2005 give the same answer.
//
// There sysusers.status is 0 for every user, and sysobjects.uid is the object's schema, which is no number of
// sysusers. The system's own text is kept for servers that still have the old views.
#pragma once

#include <string>

namespace quillon::adapters {

// The text to send in place of `statement` to a server of this version ("11.00.2100"): the modern form of a
// listed statement, any other one as it stands. Word for word, blanks at the ends apart.
const std::string& ForServer(const std::string& statement, const std::string& version);

} // namespace quillon::adapters
