// Message boxes, file dialogs, the failure report, help, printing, programs: what the front end shows or
// starts for a moment. Each returns when the person has answered; `parent` may be none.
#pragma once

#include <QString>

#include <optional>
#include <string>

#include "platform/FrontEnd.h"

class QWidget;

namespace quillon::desktop {

Answer ShowMessage(QWidget* parent, const QString& text, const QString& title, Icon icon, Buttons buttons);
// Paths in the system's form.
std::optional<std::string> ShowFileDialog(QWidget* parent, const FileDialog& dialog);
// Nothing after Cancel.
std::optional<QString> ShowTextQuestion(QWidget* parent, const QString& prompt, const QString& title,
                                        const QString& defaultText);
void ShowFailure(QWidget* parent, const FailureReport& report);
// The page of the guide for a help topic such as "login.htm"; its contents for a topic that has none.
void ShowGuide(QWidget* parent, const QString& folder, const QString& topic);
void PrintText(QWidget* parent, const QString& text, const QString& title);
void PrintReport(QWidget* parent, const PrintedReport& report);
// Raises 53 when the program cannot be started.
void StartDetached(const QString& commandLine);
void OpenFile(const std::string& path);
void OpenAddress(const QString& address);

} // namespace quillon::desktop
