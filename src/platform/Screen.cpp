#include "platform/Screen.h"

#include <algorithm>

#include "platform/Control.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"

namespace quillon {
namespace {

std::vector<Screen*>& Open() {
    static std::vector<Screen*> screens;
    return screens;
}

} // namespace

Screen::Screen(std::string name)
    : m_name(std::move(name)) {}

Screen::~Screen() {
    std::erase(Open(), this);
}

void Screen::SetTitle(std::string title) {
    m_title = std::move(title);
    if (m_loaded)
        ThePlatform().frontEnd().TitleChanged(*this);
}

Control* Screen::FindControl(const std::string& name, int index) const {
    const auto found = std::ranges::find_if(m_controls, [&](const Control* control) {
        return control->Index() == index && control->Name() == name;
    });
    return found == m_controls.end() ? nullptr : *found;
}

void Screen::Load() {
    if (m_loaded)
        return;
    m_loaded = true;
    Open().push_back(this);
    Form_Load();
}

void Screen::Show() {
    Load();
    if (!m_loaded) // it unloaded itself while loading
        return;
    m_visible = true;
    ThePlatform().frontEnd().ShowScreen(*this);
}

void Screen::ShowModal() {
    Load();
    if (!m_loaded)
        return;
    m_visible = true;
    ThePlatform().frontEnd().ShowModal(*this);
    m_visible = false;
}

void Screen::Hide() {
    m_visible = false;
    ThePlatform().frontEnd().HideScreen(*this);
}

bool Screen::Unload() {
    if (!m_loaded)
        return true;
    bool cancel = false;
    Form_Unload(cancel);
    if (cancel)
        return false;
    m_loaded = false;
    m_visible = false;
    std::erase(Open(), this);
    ThePlatform().frontEnd().HideScreen(*this);
    return true;
}

void Screen::Repaint() {
    ThePlatform().frontEnd().Repaint(*this);
}

const std::vector<Screen*>& Screen::OpenScreens() {
    return Open();
}

void Screen::Forget(Control& control) {
    std::erase(m_controls, &control);
}

} // namespace quillon
