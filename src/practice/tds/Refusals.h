// What the wire itself says to clients, from the server's table of messages.
#pragma once

#include "practice/session/ResultSink.h"
#include "practice/values/SqlError.h"

#include <initializer_list>
#include <string_view>

namespace quillon::practice::tds {

ServerMessage MessageOf(const SqlError& error);
// A message of the table with its parameters in place.
ServerMessage TableMessage(int number, std::initializer_list<std::string_view> parameters = {});
// Tells that a feature is not offered, and ends the statement or call.
void RefuseFeature(std::string_view feature, EndScope scope, ResultSink& sink);
// Ends a procedure call with an error.
void FailCall(const ServerMessage& message, ResultSink& sink);

} // namespace quillon::practice::tds
