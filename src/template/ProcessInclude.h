// Adds the profile's include files to the host, ahead of the template's own script.
#pragma once

#include <cstdint>
#include <string>

namespace quillon {

class ScriptHost;

namespace basProcTemplate {

// Reads every file of g_objAudit's includes, in order. The text grows from file to file and goes to the host
// whole each time, so the first file is added again with every later one; a later definition replaces the
// earlier one, and the lines counted are the offset of the template's script behind the include text.
//
// 0, also when a file is missing: a box says so, the files behind it are left out, and the run goes on. Any
// other failure gives its number. Text and count then hold what was read so far.
std::int32_t ProcessInclude(std::string& includeText, ScriptHost& host, std::int32_t& lineCount);

} // namespace basProcTemplate
} // namespace quillon
