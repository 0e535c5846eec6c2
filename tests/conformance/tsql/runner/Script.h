// A script: batches of T-SQL with what each must answer.
#pragma once

#include "runner/Answers.h"

#include <filesystem>

namespace quillon::conformance {

struct ScriptBatch {
    std::string text;
    int firstLine = 0;      // in the script's file, from 1
    std::string connection; // empty: the first one
    bool goesOn = false;    // what follows does not wait for its answers
    bool isChecked = false; // expectations follow it; otherwise it must only not fail
    std::vector<Answer> expected;
};

// Throws std::runtime_error when the file cannot be read or understood.
std::vector<ScriptBatch> ReadScript(const std::filesystem::path& file);

} // namespace quillon::conformance
