#include "console/ConsoleFrontEnd.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Screen.h"
#include "shell/FailureReport.h"

namespace quillon::console {
namespace {

[[noreturn]] void Refuse(const char* what) {
    throw Failure(numbers::ActionNotSupported, std::string(what) + " is not available at the command line");
}

Answer CautiousAnswer(Buttons buttons) {
    switch (buttons) {
    case Buttons::Ok: return Answer::Ok;
    case Buttons::YesNo: return Answer::No;
    case Buttons::AbortRetryIgnore: return Answer::Abort;
    default: return Answer::Cancel;
    }
}

// Boxes separate their lines as the system's texts do; a terminal wants the line feed alone.
std::string TerminalLines(std::string text) {
    std::erase(text, '\r');
    return text;
}

std::string Chain(const std::vector<std::string>& procedures) {
    std::string chain;
    for (const auto& procedure : procedures)
        chain += (chain.empty() ? "" : " > ") + procedure;
    return chain;
}

} // namespace

void ConsoleFrontEnd::Print(const std::string& line) {
    std::fputs((TerminalLines(line) + "\n").c_str(), m_errors);
}

Answer ConsoleFrontEnd::Message(const std::string& text, const std::string& title, Icon, Buttons buttons) {
    Print(title + ": " + text);
    return CautiousAnswer(buttons);
}

void ConsoleFrontEnd::ReportFailure(const FailureReport& report) {
    ++m_failures;
    Print("Failure " + FailureNumberText(report.Number) + ": " + report.Description);
    if (!report.Note.empty())
        Print("  " + report.Note);
    Print("  in " + Chain(report.Procedures));
}

void ConsoleFrontEnd::InPlaceOf(const std::string& screen, std::function<void(Screen&)> act) {
    m_inPlace[screen] = std::move(act);
}

void ConsoleFrontEnd::ShowModal(Screen& screen) {
    const auto act = m_inPlace.find(screen.Name());
    if (act == m_inPlace.end())
        Refuse("A screen");
    screen.Activate();
    act->second(screen);
    screen.Unload();
}

void ConsoleFrontEnd::DoEvents() {
    if (OnTurn)
        OnTurn();
}
std::optional<std::string> ConsoleFrontEnd::ChooseFile(const FileDialog&) {
    Refuse("A file dialogue");
}
std::string ConsoleFrontEnd::AskText(const std::string&, const std::string&, const std::string&) {
    Refuse("An input box");
}
void ConsoleFrontEnd::PopUpMenu(Menu&) {
    Refuse("A menu");
}
void ConsoleFrontEnd::SetClipboard(const std::string&) {
    Refuse("The clipboard");
}
void ConsoleFrontEnd::StartProgram(const std::string&, WindowStyle) {
    Refuse("Starting a program");
}
void ConsoleFrontEnd::OpenDocument(const std::string&) {
    Refuse("Opening a document");
}
void ConsoleFrontEnd::OpenWebPage(const std::string&) {
    Refuse("Opening a web page");
}
void ConsoleFrontEnd::Help(const std::string&) {
    Refuse("Help");
}
void ConsoleFrontEnd::Print(Editor&, const std::string&) {
    Refuse("Printing");
}
void ConsoleFrontEnd::ShowReport(const PrintedReport&) {
    Refuse("A report preview");
}

} // namespace quillon::console
