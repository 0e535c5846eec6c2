// What is read off an error that left a script, before the engine lets go of it.
#pragma once

#include <cstdint>
#include <string>

#include "jscript/Engine.h"

namespace quillon::jscript {

struct Engine::Report {
    std::int32_t number = 0; // 0: the value thrown has none
    std::string errorClass, message, description;
    std::string ownFile; // where the error object says that it was made
    std::string file;    // where the script failed
    std::int32_t line = 0;
};

// One text to compile and run.
struct Engine::Execution {
    std::string_view original;
    const std::string* rewritten;
    std::string file;
    bool isExpression = false;
    bool compiled = false; // behind the compiler: failures are the script's
    Value result;
};

} // namespace quillon::jscript
