// The guide in a window of its own: the same pages that stand in docs/.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMainWindow>
#include <QPointer>
#include <QTextBrowser>

#include "desktop/Boxes.h"
#include "desktop/Icons.h"

namespace quillon::desktop {
namespace {

// Topics whose page is a section of the guide.
struct Topic {
    const char* topic;
    const char* heading;
};
constexpr Topic topics[] = {
    {"login.htm", "Log in"},          {"Includes.htm", "Include files"}, {"Install.htm", "Install"},
    {"Create Query.htm", "Generate"}, {"options.htm", "Options"},
};

QString HeadingOf(const QString& topic) {
    for (const Topic& known : topics)
        if (topic.compare(QLatin1String(known.topic), Qt::CaseInsensitive) == 0)
            return QLatin1String(known.heading);
    return {};
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
    }
    auto* browser = static_cast<QTextBrowser*>(window->centralWidget());
    browser->setSearchPaths({folder});
    browser->setMarkdown(QString::fromUtf8(page.readAll()));
    window->show();
    window->raise();
    if (const QString heading = HeadingOf(topic); !heading.isEmpty()) {
        browser->moveCursor(QTextCursor::Start);
        browser->find(heading);
        browser->ensureCursorVisible();
    }
}

} // namespace quillon::desktop
