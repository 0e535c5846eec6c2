// What the screens ask of whoever shows them. One seam: the desktop implements it with widgets, the console
// with text, the tests with a script that fails on anything not expected.
//
// Used by: screens and modules of the system, always through ThePlatform().frontEnd().
// All calls come on the interface thread. Only DoEvents, ShowModal, Message and ChooseFile turn the event
// loop.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillon {

class Control;
class Editor;
class Menu;
class Screen;
struct PrintedReport;

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, AbortRetryIgnore, RetryCancel };
enum class Icon { None, Critical, Question, Warning, Information };
// Numbered as scripts number them.
enum class Answer { Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };
enum class Pointer { Default, Hourglass };
enum class WindowStyle { Normal, MinimisedFocus };

struct FileDialog {
    std::string Title;
    bool Save = false;
    std::string FileName;         // suggested name
    std::string Filter;           // "Text|*.txt|All|*.*|"
    int FilterIndex = 1;          // entry preselected, from 1
    std::string DefaultExtension; // without a dot
};

// A failure as the trace tells it to the user.
struct FailureReport {
    std::string Description;
    double Number = 0;
    std::int32_t SourceLine = 0;
    std::vector<std::string> Procedures; // the chain, outermost first
    std::string Note;                    // the last note set, empty if none
};

// Ends the process from anywhere: EndProcess throws it, the composition root catches it. No procedure's error
// path may stop it, so it is no std::exception.
struct ProcessEnded {};

class FrontEnd {
  public:
    virtual ~FrontEnd() = default;

    // --- screens ---
    virtual void ShowScreen(Screen& screen) = 0;
    // Returns when the screen was hidden or unloaded. Closing the window asks Screen::Unload.
    virtual void ShowModal(Screen& screen) = 0;
    virtual void HideScreen(Screen& screen) = 0;
    virtual void TitleChanged(Screen& screen) = 0;
    virtual void Repaint(Screen& screen) = 0;
    virtual void SetFocus(Control& control) = 0;
    // The screen that has the focus, none if none has.
    virtual Screen* ActiveScreen() = 0;

    // --- dialogues ---
    virtual Answer Message(const std::string& text, const std::string& title, Icon icon,
                           Buttons buttons = Buttons::Ok) = 0;
    // The path chosen, in the system's form; none after Cancel.
    virtual std::optional<std::string> ChooseFile(const FileDialog& dialog) = 0;
    virtual std::string AskText(const std::string& prompt, const std::string& title,
                                const std::string& defaultText) = 0;
    virtual void ReportFailure(const FailureReport& report) = 0;
    // Pops up a context menu at the pointer.
    virtual void PopUpMenu(Menu& menu) = 0;

    // --- the person and the machine ---
    virtual void DoEvents() = 0;
    // Does work that blocks and touches no control: a server's answer. A front end with windows may do it on
    // another thread and paint meanwhile, but takes no act of a person. What the work throws comes back.
    virtual void WaitFor(const std::function<void()>& work) { work(); }
    virtual void SetPointer(Pointer pointer) = 0;
    virtual Pointer CurrentPointer() const = 0;
    virtual void Beep() = 0;
    virtual void SetClipboard(const std::string& text) = 0;
    // Does not wait. Raises 53 when the program cannot be found.
    virtual void StartProgram(const std::string& commandLine, WindowStyle style) = 0;
    virtual void OpenDocument(const std::string& path) = 0;
    virtual void OpenWebPage(const std::string& address) = 0;
    // Opens a help topic such as "login.htm"; an empty topic opens the contents.
    virtual void Help(const std::string& topic) = 0;
    virtual void Print(Editor& editor, const std::string& title) = 0;
    virtual void ShowReport(const PrintedReport& report) = 0;

    [[noreturn]] virtual void EndProcess() { throw ProcessEnded{}; }
};

} // namespace quillon
