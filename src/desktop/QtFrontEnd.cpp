#include "desktop/QtFrontEnd.h"

#include <QApplication>
#include <QClipboard>
#include <QEventLoop>
#include <QKeyEvent>

#include "desktop/Boxes.h"
#include "desktop/ScreenWindow.h"
#include "desktop/bind/Act.h"
#include "desktop/bind/BarWidgets.h"
#include "desktop/bind/Binding.h"
#include "desktop/bind/Text.h"
#include "platform/Bars.h"
#include "platform/Editor.h"
#include "platform/Screen.h"

namespace quillon::desktop {

QtFrontEnd::QtFrontEnd() {
    qApp->installEventFilter(this);
}

QtFrontEnd::~QtFrontEnd() = default;

ScreenWindow* QtFrontEnd::WindowOf(const Screen& screen) const {
    const auto found = m_windows.find(&screen);
    return found == m_windows.end() ? nullptr : found->second.get();
}

QWidget* QtFrontEnd::Parent() const {
    if (QWidget* active = QApplication::activeModalWidget())
        return active;
    if (QWidget* active = QApplication::activeWindow())
        return active;
    return m_windows.empty() ? nullptr : m_windows.begin()->second.get();
}

// --- screens ---

void QtFrontEnd::CloseAll() {
    m_windows.clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void QtFrontEnd::ShowScreen(Screen& screen) {
    ScreenWindow* window = WindowOf(screen);
    if (window == nullptr)
        window = (m_windows[&screen] = std::make_unique<ScreenWindow>(screen)).get();
    window->show();
    window->raise();
    window->activateWindow();
}

void QtFrontEnd::ShowModal(Screen& screen) {
    ++m_boxes;
    if (WindowOf(screen) != nullptr) // its window stands already; it is what the person is asked to look at
        return ShowScreen(screen);
    const Pointer before = m_pointer;
    SetPointer(Pointer::Default);
    ScreenWindow window(screen, Parent());
    window.setWindowModality(Qt::ApplicationModal);
    window.show();
    window.activateWindow();
    while (window.isVisible() && !IsEnded())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    SetPointer(before);
    ThrowIfEnded();
}

void QtFrontEnd::HideScreen(Screen& screen) {
    if (auto* shown = static_cast<ScreenWindow*>(screen.View))
        shown->hide();
    const auto found = m_windows.find(&screen);
    if (found == m_windows.end())
        return;
    // One of its own widgets may be the one that asks.
    found->second.release()->deleteLater();
    m_windows.erase(found);
}

void QtFrontEnd::TitleChanged(Screen& screen) {
    if (auto* window = static_cast<ScreenWindow*>(screen.View))
        window->ShowTitle();
}

void QtFrontEnd::Repaint(Screen& screen) {
    if (auto* window = static_cast<ScreenWindow*>(screen.View))
        window->repaint();
}

void QtFrontEnd::SetFocus(Control& control) {
    if (QWidget* widget = Binding::WidgetOf(control))
        widget->setFocus();
}

Screen* QtFrontEnd::ActiveScreen() {
    ScreenWindow* window = ScreenWindow::Of(QApplication::activeWindow());
    return window == nullptr ? nullptr : &window->Shown();
}

bool QtFrontEnd::eventFilter(QObject* watched, QEvent* event) {
    // A window must not go while it waits for a server: its screen would take the connection away.
    if (m_isWaiting && event->type() == QEvent::Close) {
        event->ignore();
        return true;
    }
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    auto& widget = static_cast<QWidget&>(*watched);
    // A key that its widget leaves alone goes on to the parents as the same event.
    // Without a focus it goes to the window.
    const bool isFirst = widget.hasFocus() || (widget.isWindow() && QApplication::focusWidget() == nullptr);
    if (m_seenKey == &key || !isFirst)
        return false;
    ScreenWindow* window = ScreenWindow::Of(&widget);
    if (window == nullptr)
        return false;
    m_seenKey = &key;
    const int boxes = m_boxes;
    bool taken = window->KeyPressed(widget, key);
    m_seenKey = nullptr;
    // A key that has opened a box, which is gone again, has done its work: nobody else may have it now.
    taken = taken || m_boxes != boxes;
    if (!taken && key.key() == Qt::Key_F1) {
        Help(window->Shown().Name());
        taken = true;
    }
    return taken;
}

// --- dialogues ---

Answer QtFrontEnd::Message(const std::string& text, const std::string& title, Icon icon, Buttons buttons) {
    ++m_boxes;
    const Answer answer = ShowMessage(Parent(), Text(text), Text(title), icon, buttons);
    ThrowIfEnded();
    return answer;
}

std::optional<std::string> QtFrontEnd::ChooseFile(const FileDialog& dialog) {
    ++m_boxes;
    return ShowFileDialog(Parent(), dialog);
}

std::string QtFrontEnd::AskText(const std::string& prompt, const std::string& title,
                                const std::string& defaultText) {
    ++m_boxes;
    const auto answer = ShowTextQuestion(Parent(), Text(prompt), Text(title), Text(defaultText));
    return answer ? Text(*answer) : std::string();
}

void QtFrontEnd::ReportFailure(const FailureReport& report) {
    ++m_boxes;
    const Pointer before = m_pointer;
    SetPointer(Pointer::Default);
    ShowFailure(Parent(), report);
    SetPointer(before);
}

void QtFrontEnd::PopUpMenu(Menu& menu) {
    PopUp(menu, Parent());
    ThrowIfEnded();
}

// --- the person and the machine ---

void QtFrontEnd::DoEvents() {
    QCoreApplication::processEvents();
    ThrowIfEnded();
}

void QtFrontEnd::WaitFor(const std::function<void()>& work) {
    if (m_isWaiting)
        return work();
    constexpr std::chrono::milliseconds unnoticed(80), paint(20);
    m_isWaiting = true;
    m_worker.Start(work);
    if (!m_worker.AwaitEnd(unnoticed))
        while (!m_worker.AwaitEnd(paint))
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_isWaiting = false;
    m_worker.Rethrow();
}

void QtFrontEnd::SetPointer(Pointer pointer) {
    if (pointer == m_pointer)
        return;
    m_pointer = pointer;
    if (pointer == Pointer::Hourglass)
        QApplication::setOverrideCursor(Qt::BusyCursor);
    else
        QApplication::restoreOverrideCursor();
}

void QtFrontEnd::Beep() {
    QApplication::beep();
}

void QtFrontEnd::SetClipboard(const std::string& text) {
    QApplication::clipboard()->setText(Text(text));
}

void QtFrontEnd::StartProgram(const std::string& commandLine, WindowStyle) {
    StartDetached(Text(commandLine));
}

void QtFrontEnd::OpenDocument(const std::string& path) {
    OpenFile(path);
}

void QtFrontEnd::OpenWebPage(const std::string& address) {
    OpenAddress(Text(address));
}

void QtFrontEnd::Help(const std::string& topic) {
    ShowGuide(Parent(), m_guide, Text(topic));
}

void QtFrontEnd::Print(Editor& editor, const std::string& title) {
    PrintText(Parent(), Text(editor.Text()), Text(title));
}

void QtFrontEnd::ShowReport(const PrintedReport& report) {
    PrintReport(Parent(), report);
}

} // namespace quillon::desktop
