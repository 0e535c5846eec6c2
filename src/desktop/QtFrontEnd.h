// The front end of the desktop: screens become windows, boxes become dialogs.
//
// Owns the windows of the screens that are shown; a window lives while its screen is visible. One instance,
// made before the session and alive after it.
#pragma once

#include <QObject>

#include <map>
#include <memory>

#include "desktop/Worker.h"
#include "platform/FrontEnd.h"

class QKeyEvent;
class QWidget;

namespace quillon::desktop {

class ScreenWindow;

class QtFrontEnd : public QObject, public FrontEnd {
  public:
    // Watches the keys of the whole application, so that a screen sees them before its controls do.
    QtFrontEnd();
    ~QtFrontEnd() override;

    // Where the pages of the guide lie; Help opens them there.
    void SetGuideFolder(const QString& folder) { m_guide = folder; }

    // Takes all windows away; the screens behind them may end then.
    void CloseAll();

    void ShowScreen(Screen& screen) override;
    void ShowModal(Screen& screen) override;
    void HideScreen(Screen& screen) override;
    void TitleChanged(Screen& screen) override;
    void Repaint(Screen& screen) override;
    void SetFocus(Control& control) override;
    Screen* ActiveScreen() override;

    Answer Message(const std::string& text, const std::string& title, Icon icon, Buttons buttons) override;
    std::optional<std::string> ChooseFile(const FileDialog& dialog) override;
    std::string AskText(const std::string& prompt, const std::string& title,
                        const std::string& defaultText) override;
    void ReportFailure(const FailureReport& report) override;
    void PopUpMenu(Menu& menu) override;

    void DoEvents() override;
    void WaitFor(const std::function<void()>& work) override;
    void SetPointer(Pointer pointer) override;
    Pointer CurrentPointer() const override { return m_pointer; }
    void Beep() override;
    void SetClipboard(const std::string& text) override;
    void StartProgram(const std::string& commandLine, WindowStyle style) override;
    void OpenDocument(const std::string& path) override;
    void OpenWebPage(const std::string& address) override;
    void Help(const std::string& topic) override;
    void Print(Editor& editor, const std::string& title) override;
    void ShowReport(const PrintedReport& report) override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    ScreenWindow* WindowOf(const Screen& screen) const;
    QWidget* Parent() const;

    Worker m_worker;
    bool m_isWaiting = false;
    std::map<const Screen*, std::unique_ptr<ScreenWindow>> m_windows;
    Pointer m_pointer = Pointer::Default;
    QString m_guide;
    int m_boxes = 0;                      // that have waited for a person so far
    const QKeyEvent* m_seenKey = nullptr; // the key event that is on its way down
};

} // namespace quillon::desktop
