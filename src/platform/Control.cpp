#include "platform/Control.h"

#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "platform/Screen.h"

namespace quillon {

Control::Control(Screen& screen, std::string name, int index)
    : m_screen(screen)
    , m_name(std::move(name))
    , m_index(index) {
    m_screen.Register(*this);
}

Control::~Control() {
    m_screen.Forget(*this);
}

void Control::SetFocus() {
    ThePlatform().frontEnd().SetFocus(*this);
}

std::size_t Control::Observe(Observer observer) {
    m_observers.emplace_back(m_nextObserver, std::move(observer));
    return m_nextObserver++;
}

void Control::EndObservation(std::size_t number) {
    std::erase_if(m_observers, [number](const auto& entry) { return entry.first == number; });
}

void Control::Changed(ControlChange change) {
    // An observer may end its observation while it is told.
    const auto observers = m_observers;
    for (const auto& [number, observer] : observers)
        observer(change);
}

} // namespace quillon
