// The front end of the tests: it answers what the test said it would be asked, in that order, and fails the
// test on anything else, also on expectations left over at its end.
//
//     ScriptedFrontEnd frontEnd;
//     frontEnd.ExpectMessage("Server name is required", "Missing Connection Information", Icon::Warning);
//     frontEnd.ExpectModal("frmODBCLogon", [](Screen& screen) { ... act as the person would ... });
//
// What needs no answer (pointer, focus, repaint, event-loop turns, beep, clipboard) is recorded.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/FrontEnd.h"

namespace quillon::tests {

class ScriptedFrontEnd : public FrontEnd {
  public:
    ScriptedFrontEnd() = default;
    ~ScriptedFrontEnd() override; // fails the test when expectations are left

    // --- the script ---
    void ExpectMessage(std::string text, std::string title, Icon icon, Buttons buttons = Buttons::Ok,
                       Answer answer = Answer::Ok);
    // The act runs while the screen is shown; a screen that it leaves open is then closed as by its close
    // box.
    void ExpectModal(std::string screen, std::function<void(Screen&)> act = {});
    void ExpectShow(std::string screen);
    void ExpectFile(std::string title, std::optional<std::string> answer);
    // A failure report whose description contains the text.
    void ExpectFailure(std::string part);
    void ExpectProgram(std::string commandLine);
    void ExpectDocument(std::string path);
    void ExpectHelp(std::string topic);
    void ExpectPopUp(std::string menu);
    // Runs at every event-loop turn.
    std::function<void()> OnDoEvents;

    // --- what happened ---
    const std::vector<FailureReport>& Failures() const { return m_failures; }
    const FileDialog& LastFileDialog() const { return m_lastFileDialog; }
    int Turns() const { return m_turns; }
    int Beeps() const { return m_beeps; }
    int Repaints() const { return m_repaints; }
    const std::string& Clipboard() const { return m_clipboard; }
    // Name of the control that was given the focus last.
    const std::string& Focus() const { return m_focus; }

    // --- FrontEnd ---
    void ShowScreen(Screen& screen) override;
    void ShowModal(Screen& screen) override;
    void HideScreen(Screen& screen) override;
    void TitleChanged(Screen&) override {}
    void Repaint(Screen&) override { ++m_repaints; }
    void SetFocus(Control& control) override;
    Screen* ActiveScreen() override { return m_shown.empty() ? nullptr : m_shown.back(); }
    Answer Message(const std::string& text, const std::string& title, Icon icon, Buttons buttons) override;
    std::optional<std::string> ChooseFile(const FileDialog& dialog) override;
    std::string AskText(const std::string& prompt, const std::string& title,
                        const std::string& defaultText) override;
    void ReportFailure(const FailureReport& report) override;
    void PopUpMenu(Menu& menu) override;
    void DoEvents() override;
    void SetPointer(Pointer pointer) override { m_pointer = pointer; }
    Pointer CurrentPointer() const override { return m_pointer; }
    void Beep() override { ++m_beeps; }
    void SetClipboard(const std::string& text) override { m_clipboard = text; }
    void StartProgram(const std::string& commandLine, WindowStyle style) override;
    void OpenDocument(const std::string& path) override;
    void OpenWebPage(const std::string& address) override;
    void Help(const std::string& topic) override;
    void Print(Editor& editor, const std::string& title) override;
    void ShowReport(const PrintedReport& report) override;

  private:
    struct Expectation {
        std::string what; // in the words that Asked() forms
        Answer answer = Answer::Ok;
        std::optional<std::string> file;
        std::function<void(Screen&)> act;
    };
    // The expectation for what is asked now, fails the test when it is not the next one.
    Expectation Asked(const std::string& what);

    std::deque<Expectation> m_expected;
    std::vector<Screen*> m_shown;
    std::vector<FailureReport> m_failures;
    FileDialog m_lastFileDialog;
    std::string m_clipboard;
    std::string m_focus;
    Pointer m_pointer = Pointer::Default;
    int m_turns = 0;
    int m_beeps = 0;
    int m_repaints = 0;
};

} // namespace quillon::tests
