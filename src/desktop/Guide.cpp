// The guide in a window of its own: the same pages that stand in docs/.
#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMainWindow>
#include <QPointer>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>

#include "desktop/Boxes.h"
#include "desktop/Icons.h"

namespace quillon::desktop {
namespace {

// The section of the guide for a Help button's topic, and for F1 on a screen.
struct Topic {
    const char* topic;
    const char* heading;
};
constexpr Topic topics[] = {
    {"login.htm", "Log in"},
    {"Includes.htm", "Include files"},
    {"Install.htm", "Install"},
    {"Create Query.htm", "Generate"},
    {"options.htm", "Options"},
    {"frmMain", "Select"},
    {"frmODBCLogon", "Log in"},
    {"frmIncludes", "Include files"},
    {"frmInstall", "Install"},
    {"frmOptions", "Options"},
    {"frmResults", "Script editor"},
    {"frmScriptResults", "Results"},
    {"frmDDL", "Select"},
};

QString HeadingOf(const QString& topic) {
    for (const Topic& known : topics)
        if (topic.compare(QLatin1String(known.topic), Qt::CaseInsensitive) == 0)
            return QLatin1String(known.heading);
    return {};
}

void Turn(QTextBrowser& browser, const QString& heading) {
    const QTextDocument& page = *browser.document();
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next())
        if (block.blockFormat().headingLevel() > 0 && block.text() == heading) {
            const double top = page.documentLayout()->blockBoundingRect(block).top();
            browser.verticalScrollBar()->setValue(static_cast<int>(top) - 12);
            return;
        }
}

} // namespace

void ShowGuide(QWidget* parent, const QString& folder, const QString& topic) {
    QFile page(QDir(folder).filePath("guide.md"));
    if (!page.open(QIODevice::ReadOnly)) {
        ShowMessage(parent, "The guide is not where it should be: " + page.fileName(), "Help", Icon::Warning,
                    Buttons::Ok);
        return;
    }
    static QPointer<QMainWindow> window;
    // A modal screen must not lock the help away that it asked for: the guide is its child then.
    QWidget* modal = QApplication::activeModalWidget();
    if (window != nullptr && modal != nullptr && window->parentWidget() != modal)
        delete window;
    if (window == nullptr) {
        window = new QMainWindow(modal);
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->setWindowTitle("Quillon guide");
        window->setWindowIcon(IconOf("quillon"));
        window->resize(860, 700);
        auto* browser = new QTextBrowser;
        browser->setObjectName("guide");
        browser->setOpenExternalLinks(true);
        browser->document()->setDocumentMargin(24);
        window->setCentralWidget(browser);
        auto* leave = new QShortcut(Qt::Key_Escape, window);
        QObject::connect(leave, &QShortcut::activated, window, &QWidget::close);
        if (const QWidget* asking = QApplication::activeWindow())
            window->move(asking->geometry().center() - window->rect().center());
    }
    auto* browser = static_cast<QTextBrowser*>(window->centralWidget());
    browser->setSearchPaths({folder});
    browser->setMarkdown(QString::fromUtf8(page.readAll()));
    window->show();
    window->raise();
    if (const QString heading = HeadingOf(topic); !heading.isEmpty())
        Turn(*browser, heading);
}

} // namespace quillon::desktop
