#include "support/ScriptedFrontEnd.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/Bars.h"
#include "platform/Control.h"
#include "platform/Editor.h"
#include "platform/Screen.h"

namespace quillon::tests {
namespace {

std::string Box(const std::string& text, const std::string& title, Icon icon, Buttons buttons) {
    static constexpr const char* icons[] = {"no", "critical", "question", "warning", "information"};
    static constexpr const char* choices[] = {"OK",
                                              "OK and Cancel",
                                              "Yes and No",
                                              "Yes, No and Cancel",
                                              "Abort, Retry and Ignore",
                                              "Retry and Cancel"};
    return "box \"" + title + "\" with " + icons[static_cast<int>(icon)] + " icon and " +
           choices[static_cast<int>(buttons)] + ": " + text;
}

} // namespace

ScriptedFrontEnd::~ScriptedFrontEnd() {
    for (const auto& expectation : m_expected)
        ADD_FAILURE() << "never asked: " << expectation.what;
}

ScriptedFrontEnd::Expectation ScriptedFrontEnd::Asked(const std::string& what) {
    if (m_expected.empty()) {
        ADD_FAILURE() << "not expected: " << what;
        return {};
    }
    Expectation next = std::move(m_expected.front());
    m_expected.pop_front();
    EXPECT_EQ(what, next.what);
    return next;
}

void ScriptedFrontEnd::ExpectMessage(std::string text, std::string title, Icon icon, Buttons buttons,
                                     Answer answer) {
    m_expected.push_back({Box(text, title, icon, buttons), answer, {}, {}});
}

void ScriptedFrontEnd::ExpectModal(std::string screen, std::function<void(Screen&)> act) {
    m_expected.push_back({"modal " + screen, {}, {}, std::move(act)});
}

void ScriptedFrontEnd::ExpectShow(std::string screen) {
    m_expected.push_back({"show " + screen, {}, {}, {}});
}

void ScriptedFrontEnd::ExpectFile(std::string title, std::optional<std::string> answer) {
    m_expected.push_back({"file dialog " + title, {}, std::move(answer), {}});
}

void ScriptedFrontEnd::ExpectFailure(std::string part) {
    m_expected.push_back({"failure", {}, std::move(part), {}});
}

void ScriptedFrontEnd::ExpectProgram(std::string commandLine) {
    m_expected.push_back({"program " + commandLine, {}, {}, {}});
}

void ScriptedFrontEnd::ExpectDocument(std::string path) {
    m_expected.push_back({"document " + path, {}, {}, {}});
}

void ScriptedFrontEnd::ExpectHelp(std::string topic) {
    m_expected.push_back({"help " + topic, {}, {}, {}});
}

void ScriptedFrontEnd::ExpectPopUp(std::string menu) {
    m_expected.push_back({"pop-up " + menu, {}, {}, {}});
}

void ScriptedFrontEnd::ShowScreen(Screen& screen) {
    Asked("show " + screen.Name());
    m_shown.push_back(&screen);
    screen.Activate();
}

void ScriptedFrontEnd::ShowModal(Screen& screen) {
    const auto expectation = Asked("modal " + screen.Name());
    m_shown.push_back(&screen);
    screen.Activate();
    if (expectation.act)
        expectation.act(screen);
    if (screen.IsVisible())
        screen.Unload();
    std::erase(m_shown, &screen);
}

void ScriptedFrontEnd::HideScreen(Screen& screen) {
    std::erase(m_shown, &screen);
}

void ScriptedFrontEnd::SetFocus(Control& control) {
    m_focus = control.Name();
}

Answer ScriptedFrontEnd::Message(const std::string& text, const std::string& title, Icon icon,
                                 Buttons buttons) {
    return Asked(Box(text, title, icon, buttons)).answer;
}

std::optional<std::string> ScriptedFrontEnd::ChooseFile(const FileDialog& dialog) {
    m_lastFileDialog = dialog;
    return Asked("file dialog " + dialog.Title).file;
}

std::string ScriptedFrontEnd::AskText(const std::string& prompt, const std::string& title,
                                      const std::string&) {
    return Asked("question \"" + title + "\": " + prompt).file.value_or("");
}

void ScriptedFrontEnd::ReportFailure(const FailureReport& report) {
    m_failures.push_back(report);
    if (m_expected.empty() || m_expected.front().what != "failure") {
        ADD_FAILURE() << "failure not expected: " << report.Description << " (" << report.Number << ") in "
                      << (report.Procedures.empty() ? "?" : report.Procedures.back());
        return;
    }
    EXPECT_NE(report.Description.find(*m_expected.front().file), std::string::npos)
        << report.Description << " does not say: " << *m_expected.front().file;
    m_expected.pop_front();
}

void ScriptedFrontEnd::PopUpMenu(Menu& menu) {
    Asked("pop-up " + menu.Name());
}

void ScriptedFrontEnd::DoEvents() {
    ++m_turns;
    if (OnDoEvents)
        OnDoEvents();
}

void ScriptedFrontEnd::StartProgram(const std::string& commandLine, WindowStyle) {
    Asked("program " + commandLine);
}

void ScriptedFrontEnd::OpenDocument(const std::string& path) {
    Asked("document " + path);
}

void ScriptedFrontEnd::OpenWebPage(const std::string& address) {
    Asked("web page " + address);
}

void ScriptedFrontEnd::Help(const std::string& topic) {
    Asked("help " + topic);
}

void ScriptedFrontEnd::Print(Editor& editor, const std::string& title) {
    Asked("print " + editor.Name() + " as " + title);
}

void ScriptedFrontEnd::ShowReport(const PrintedReport&) {
    Asked("printed report");
}

} // namespace quillon::tests
