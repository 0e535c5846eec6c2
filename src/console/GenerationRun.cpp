#include "console/GenerationRun.h"

#include <optional>

#include "console/ConsoleFrontEnd.h"
#include "console/StandardOutput.h"
#include "execution/frmResults.h"
#include "execution/frmScriptResults.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "shell/Settings.h"
#include "shell/frmMain.h"
#include "template/TextLines.h"

namespace quillon::console {
namespace {

constexpr const char* OwnEditor = "1";
constexpr const char* Execute = "2";

// The text of the screen that the run shows at its end.
template <class ScreenClass>
std::string HandedOn(frmMain& main, ConsoleFrontEnd& frontEnd, const char* handOff, const char* screenName,
                     Editor ScreenClass::*text) {
    std::optional<std::string> result;
    frontEnd.InPlaceOf(screenName,
                       [&](Screen& screen) { result = (static_cast<ScreenClass&>(screen).*text).Text(); });
    settings::SetForProcess(settings::Editor, handOff);
    main.Process();
    if (!result)
        throw Failure(numbers::InvalidCall, "The run has handed no script on");
    return std::move(*result);
}

} // namespace

std::string GenerateScript(frmMain& main, ConsoleFrontEnd& frontEnd) {
    return HandedOn(main, frontEnd, OwnEditor, "frmResults", &frmResults::cdmCodeMax);
}

RunLog GenerateAndExecute(frmMain& main, ConsoleFrontEnd& frontEnd) {
    RunLog log;
    const std::string text =
        HandedOn(main, frontEnd, Execute, "frmScriptResults", &frmScriptResults::cdmResults);
    TextLines lines(text);
    for (std::string_view line; lines.Take(line);)
        log.emplace_back(line);
    return log;
}

void WriteScript(const std::string& script, const std::string& file) {
    if (file.empty()) {
        WriteStandardOutput(script);
        FlushStandardOutput();
    } else {
        ThePlatform().files().Replace(file, script);
    }
}

} // namespace quillon::console
