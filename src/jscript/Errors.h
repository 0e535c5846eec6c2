// The numbers and texts under which users of this script language know its errors.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon::jscript {

struct KnownError {
    std::int32_t number;
    std::string description;
};

// From an error of the engine: its class ("TypeError") and message.
KnownError KnownErrorOf(std::string_view errorClass, std::string_view message);

// The number and text for what a compiler expects: ")", "identifier" ...; number 0 for what none tells.
KnownError Expected(std::string_view what);

// What `error.number` holds for a failure's number: small ones get the facility of script errors.
std::int32_t WithFacility(std::int32_t number);
// And back.
std::int32_t WithoutFacility(std::int32_t number);

} // namespace quillon::jscript
