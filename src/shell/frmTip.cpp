#include "shell/frmTip.h"

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "shell/Settings.h"
#include "shell/Trace.h"
#include "template/basStringFunctions.h"

namespace quillon {
namespace {

std::vector<std::string> OwnTips() {
    return {"A double click on a table shows its script as the server has it now; one on a trigger shows the "
            "trigger.",
            "Ticks are kept for each database: leave, come back, and your selection is there again.",
            "Analyze tells what of the audit structures a database already has. It changes nothing.",
            "A second installation keeps the audit log: the scripts add what is missing and renew the rest.",
            "Choose \"View Scripts with\" in the options to read every script before it runs.",
            "The stop button ends a run between two tables. What was made so far is not executed.",
            "Tick a trigger's box in the third grid to enable it, clear the box to disable it: it happens at "
            "once.",
            "quillon-console does at the command line what the window does, in pipelines and at night."};
}

} // namespace

frmTip::frmTip()
    : Screen("frmTip") {
    SetTitle("Tip of the Day");
    chkLoadTipsAtStartup.SetCaption("&Show Tips at Startup");
    cmdNextTip.SetCaption("&Next Tip");
    cmdOK.SetCaption("OK");
    chkLoadTipsAtStartup.OnClick = [this] {
        g_objTrace->Procedure("frmTip.chkLoadTipsAtStartup_Click", [this] {
            settings::Write(chkLoadTipsAtStartup.IsTicked() ? "1" : "0", settings::ShowTips);
        });
    };
    cmdNextTip.OnClick = [this] { ShowNext(); };
    cmdOK.OnClick = [this] { Unload(); };
}

void frmTip::Form_Load() {
    g_objTrace->Procedure("frmTip.Form_Load", [&] {
        chkLoadTipsAtStartup.SetValue(settings::ReadLong(settings::ShowTips) == 1 ? CheckBox::Ticked
                                                                                  : CheckBox::Unticked);
        ReadTips();
        m_next = static_cast<std::size_t>(ThePlatform().clock().TickCount()) % m_tips.size();
        ShowNext();
    });
}

void frmTip::ReadTips() {
    m_tips = OwnTips();
    Files& files = ThePlatform().files();
    const std::string path = files.ApplicationFolder() + "\\TIPOFDAY.TXT";
    if (!files.Exists(path))
        return;
    std::vector<std::string> tips;
    const auto input = files.OpenInput(path);
    for (std::string line; input->ReadLine(line);)
        if (!basStringFunctions::Trim(line).empty())
            tips.push_back(line);
    if (!tips.empty())
        m_tips = std::move(tips);
}

void frmTip::ShowNext() {
    lblTip.SetCaption(m_tips[m_next]);
    m_next = (m_next + 1) % m_tips.size();
}

void frmTip::Form_KeyDown(Key key, int /*shift*/) {
    if (key == Key::Enter || key == Key::Escape)
        Unload();
}

} // namespace quillon
