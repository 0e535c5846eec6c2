// Printing, with a preview first.
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTextDocument>

#include "desktop/Boxes.h"
#include "desktop/Theme.h"
#include "desktop/bind/Text.h"
#include "platform/PrintedReport.h"

namespace quillon::desktop {
namespace {

// Black on white, whatever the palette of the screen.
void Preview(QWidget* parent, const QTextDocument& document, const QString& title) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title);
    QPrintPreviewDialog dialog(&printer, parent);
    dialog.setWindowTitle(title);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested,
                     [&document](QPrinter* paper) { document.print(paper); });
    dialog.exec();
}

QString Cell(const char* tag, const std::string& text) {
    return QString("<%1>%2</%1>").arg(tag, Text(text).toHtmlEscaped());
}

} // namespace

void PrintText(QWidget* parent, const QString& text, const QString& title) {
    QTextDocument document;
    document.setDefaultFont(Theme::EditorFont());
    document.setDefaultStyleSheet("body { color: black; }");
    document.setHtml("<body><pre style=\"white-space: pre-wrap\">" + text.toHtmlEscaped() + "</pre></body>");
    Preview(parent, document, title);
}

void PrintReport(QWidget* parent, const PrintedReport& report) {
    QString html = "<body><h2>" + Text(report.Title).toHtmlEscaped() +
                   "</h2><table border=\"0\" cellspacing=\"0\" cellpadding=\"3\" width=\"100%\"><tr>";
    for (const auto& column : report.Columns)
        if (column.Visible)
            html += Cell("th", column.Caption);
    html += "</tr>";
    for (const auto& row : report.Rows) {
        html += "<tr>";
        for (const std::string& text : row)
            html += Cell("td", text);
        html += "</tr>";
    }
    QTextDocument document;
    document.setDefaultStyleSheet(
        "body { color: black; } th { text-align: left; border-bottom: 1px solid black; }");
    document.setHtml(html + "</table></body>");
    Preview(parent, document, Text(report.Title));
}

} // namespace quillon::desktop
