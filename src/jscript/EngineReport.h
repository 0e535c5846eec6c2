// What is read off an error that left a script, before the engine lets go of it.
#pragma once

#include <cstdint>
#include <string>

#include "jscript/CompileErrors.h"
#include "jscript/Engine.h"

namespace quillon::jscript {

struct Engine::Report {
    std::int32_t number = 0; // 0: the value thrown has none
    std::string errorClass, message, description;
    std::string file; // where the script failed, and the engine's number of the line there
    std::int32_t engineLine = 0;
    Place place; // the same in the text as it was written
};

// One text to compile and run.
struct Engine::Execution {
    std::string_view original;
    const Rewritten* rewritten;
    std::string file;
    bool isExpression = false;
    bool compiled = false; // behind the compiler: failures are the script's
    Complaint complaint;   // of the compiler
    Value result;
};

} // namespace quillon::jscript
