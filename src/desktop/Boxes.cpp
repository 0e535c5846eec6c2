#include "desktop/Boxes.h"

#include <QDesktopServices>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QUrl>

#include "adapters/files/NativePath.h"
#include "desktop/Icons.h"
#include "desktop/bind/Text.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "shell/FailureReport.h"

namespace quillon::desktop {
namespace {

const char* PictureFor(Icon icon) {
    switch (icon) {
    case Icon::Critical: return "box-critical";
    case Icon::Question: return "box-question";
    case Icon::Warning: return "box-warning";
    case Icon::Information: return "box-information";
    default: return "";
    }
}

void Dress(QMessageBox& box, const char* name, Icon icon) {
    box.setObjectName(name);
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setIconPixmap(IconOf(PictureFor(icon)).pixmap(QSize(36, 36), box.devicePixelRatio()));
}

QMessageBox::StandardButtons ButtonsFor(Buttons buttons) {
    switch (buttons) {
    case Buttons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::YesNo: return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Buttons::AbortRetryIgnore: return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
    case Buttons::RetryCancel: return QMessageBox::Retry | QMessageBox::Cancel;
    default: return QMessageBox::Ok;
    }
}

// Leaving a box by Escape or its corner is its most cautious button.
Answer AnswerFor(int button) {
    switch (button) {
    case QMessageBox::Ok: return Answer::Ok;
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::No: return Answer::No;
    case QMessageBox::Abort: return Answer::Abort;
    case QMessageBox::Retry: return Answer::Retry;
    case QMessageBox::Ignore: return Answer::Ignore;
    default: return Answer::Cancel;
    }
}

// "Text|*.txt|All|*.*|" as a list of Qt's filters.
QStringList Filters(const std::string& filter) {
    const QStringList parts = Text(filter).split('|', Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern = parts[i + 1] == "*.*" ? QString("*") : parts[i + 1];
        filters << parts[i].section('(', 0, 0).trimmed() + " (" + pattern + ")";
    }
    return filters;
}

} // namespace

Answer ShowMessage(QWidget* parent, const QString& text, const QString& title, Icon icon, Buttons buttons) {
    QMessageBox box(QMessageBox::NoIcon, title, QString(text).remove('\r'), ButtonsFor(buttons), parent);
    Dress(box, "message", icon);
    return AnswerFor(box.exec());
}

std::optional<std::string> ShowFileDialog(QWidget* parent, const FileDialog& dialog) {
    QFileDialog shown(parent, Text(dialog.Title));
    shown.setObjectName("fileDialog");
    shown.setAcceptMode(dialog.Save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    shown.setFileMode(dialog.Save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    const QStringList filters = Filters(dialog.Filter);
    shown.setNameFilters(filters);
    if (dialog.FilterIndex >= 1 && dialog.FilterIndex <= filters.size())
        shown.selectNameFilter(filters[dialog.FilterIndex - 1]);
    shown.setDefaultSuffix(Text(dialog.DefaultExtension).remove('.'));
    if (!dialog.FileName.empty())
        shown.selectFile(Text(adapters::ToNative(dialog.FileName)));
    if (shown.exec() != QDialog::Accepted || shown.selectedFiles().isEmpty())
        return std::nullopt;
    return adapters::FromNative(Text(shown.selectedFiles().front()));
}

std::optional<QString> ShowTextQuestion(QWidget* parent, const QString& prompt, const QString& title,
                                        const QString& defaultText) {
    QInputDialog question(parent);
    question.setObjectName("question");
    question.setWindowTitle(title);
    question.setLabelText(prompt);
    question.setTextValue(defaultText);
    return question.exec() == QDialog::Accepted ? std::optional(question.textValue()) : std::nullopt;
}

void ShowFailure(QWidget* parent, const FailureReport& report) {
    QMessageBox box(QMessageBox::NoIcon, "Quillon could not go on with this",
                    Text(report.Description).remove('\r'), QMessageBox::Ok, parent);
    Dress(box, "failureReport", Icon::Critical);
    QString what = "Number " + Text(FailureNumberText(report.Number));
    if (!report.Note.empty())
        what += "\n" + Text(report.Note).remove('\r');
    box.setInformativeText(what);
    QStringList chain;
    for (const std::string& procedure : report.Procedures)
        chain << Text(procedure);
    box.setDetailedText("Where it happened, outermost first:\n" + chain.join('\n'));
    box.exec();
}

void StartDetached(const QString& commandLine) {
    QStringList parts = QProcess::splitCommand(commandLine);
    if (parts.isEmpty() || !QProcess::startDetached(parts.takeFirst(), parts))
        throw Failure(numbers::FileNotFound, "The program cannot be started: " + Text(commandLine));
}

void OpenFile(const std::string& path) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(Text(adapters::ToNative(path))));
}

void OpenAddress(const QString& address) {
    QDesktopServices::openUrl(QUrl(address));
}

} // namespace quillon::desktop
