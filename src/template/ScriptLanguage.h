// The script language in force: the setting that the host, the editors and the object model go by.
#pragma once

#include <cstdint>
#include <string>

namespace quillon {

inline constexpr std::int32_t LanguageVBScript = 0;
inline constexpr std::int32_t LanguageJScript = 1;

// The setting as it stands. Raises what the settings store raises, 13 for a setting that is no number.
std::int32_t GetScriptLanguage();

// "VBScript", "JScript"; empty for a setting that is neither.
std::string GetScriptLanguageName();

} // namespace quillon
