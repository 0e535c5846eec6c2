#include "console/Progress.h"

#include <string>
#include <unistd.h>

#include "shell/ScreenInstances.h"
#include "shell/frmMain.h"
#include "template/TextCase.h"

namespace quillon::console {
namespace {

constexpr int BarWidth = 24;
constexpr std::size_t TextWidth = 46;
constexpr const char* ClearLine = "\r\033[K";

std::string Bar(const ProgressBar& progress) {
    const auto done =
        static_cast<std::size_t>(std::int64_t{progress.Value()} * BarWidth / progress.Maximum());
    return "[" + std::string(done, '#') + std::string(BarWidth - done, '.') + "] ";
}

std::string Shortened(const std::string& text) {
    std::size_t end = 0;
    for (std::size_t characters = 0; end < text.size() && characters < TextWidth; ++characters)
        end += CharacterSize(text, end);
    return text.substr(0, end);
}

} // namespace

Progress::Progress(std::FILE* terminal)
    : m_terminal(isatty(fileno(terminal)) != 0 ? terminal : nullptr) {
    if (m_terminal != nullptr)
        m_observation = TheScreen<frmMain>().stbStatus.Observe([this](ControlChange) { Show(); });
}

Progress::~Progress() {
    if (m_terminal == nullptr)
        return;
    TheScreen<frmMain>().stbStatus.EndObservation(m_observation);
    if (m_isShown)
        std::fputs(ClearLine, m_terminal);
}

void Progress::Show() {
    const frmMain& main = TheScreen<frmMain>();
    const std::string& text = main.stbStatus.Panel(frmMain::ProgressPanel);
    if (text.empty() && !m_isShown)
        return;
    m_isShown = !text.empty();
    std::fputs((ClearLine + (m_isShown ? Bar(main.ProgressBar1) + Shortened(text) : std::string())).c_str(),
               m_terminal);
    std::fflush(m_terminal);
}

} // namespace quillon::console
