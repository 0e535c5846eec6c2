// The front end of the command line: boxes and failure reports become lines on the standard error stream.
//
// Questions take their cautious answer (Cancel or No), since nobody is there to ask. What only a window can
// do (screens, file dialogues, printing) raises 445, so that a command which needs it fails aloud.
#pragma once

#include <cstdio>
#include <functional>
#include <map>
#include <string>

#include "platform/FrontEnd.h"

namespace quillon::console {

class ConsoleFrontEnd : public FrontEnd {
  public:
    // `errors` must outlive this.
    explicit ConsoleFrontEnd(std::FILE* errors)
        : m_errors(errors) {}

    // Failures reported so far; a command that has one did not succeed.
    int Failures() const noexcept { return m_failures; }

    // What a command does in place of showing a screen modally.
    void InPlaceOf(const std::string& screen, std::function<void(Screen&)> act);
    // Runs at every event-loop turn.
    std::function<void()> OnTurn;

    // Screens that nobody waits for need nobody to look at them.
    void ShowScreen(Screen&) override {}
    void ShowModal(Screen& screen) override;
    void HideScreen(Screen&) override {}
    void TitleChanged(Screen&) override {}
    void Repaint(Screen&) override {}
    void SetFocus(Control&) override {}
    Screen* ActiveScreen() override { return nullptr; }

    Answer Message(const std::string& text, const std::string& title, Icon icon, Buttons buttons) override;
    std::optional<std::string> ChooseFile(const FileDialog& dialog) override;
    std::string AskText(const std::string& prompt, const std::string& title,
                        const std::string& defaultText) override;
    void ReportFailure(const FailureReport& report) override;
    void PopUpMenu(Menu& menu) override;

    void DoEvents() override;
    void SetPointer(Pointer pointer) override { m_pointer = pointer; }
    Pointer CurrentPointer() const override { return m_pointer; }
    void Beep() override {}
    void SetClipboard(const std::string& text) override;
    void StartProgram(const std::string& commandLine, WindowStyle style) override;
    void OpenDocument(const std::string& path) override;
    void OpenWebPage(const std::string& address) override;
    void Help(const std::string& topic) override;
    void Print(Editor& editor, const std::string& title) override;
    void ShowReport(const PrintedReport& report) override;

  private:
    void Print(const std::string& line);

    std::FILE* m_errors;
    Pointer m_pointer = Pointer::Default;
    std::map<std::string, std::function<void(Screen&)>> m_inPlace;
    int m_failures = 0;
};

} // namespace quillon::console
