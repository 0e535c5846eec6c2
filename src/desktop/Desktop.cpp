#include "desktop/Desktop.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <cstdio>

#include "desktop/Icons.h"
#include "desktop/Memory.h"
#include "desktop/PracticeServer.h"
#include "desktop/QtFrontEnd.h"
#include "desktop/Theme.h"
#include "desktop/bind/Act.h"
#include "platform/Failure.h"
#include "program/Program.h"
#include "shell/Application.h"
#include "shell/basMain.h"

namespace quillon::desktop {
namespace {

// Beside the sources of a build, or where an installation puts it.
QString GuideFolder() {
    const QDir programs(QCoreApplication::applicationDirPath());
    for (const char* place : {"../share/doc/quillon", "../../../docs", "../docs"})
        if (QFile::exists(programs.filePath(place) + "/guide.md"))
            return QDir::cleanPath(programs.filePath(place));
    return "/usr/share/doc/quillon";
}

void ReadCommandLine(const QCoreApplication& application) {
    QCommandLineParser line;
    line.setApplicationDescription("Audit triggers for SQL Server databases.");
    const QCommandLineOption practice("practice", "Log in to a practice server, which is started for it.");
    line.addOption(practice);
    line.addHelpOption();
    line.addVersionOption();
    line.process(application);
    if (line.isSet(practice))
        PractiseFirst();
}

} // namespace

int Main(int& argc, char** argv) {
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName("quillon");
    QGuiApplication::setDesktopFileName("quillon");
    ReadCommandLine(application);
    Theme::Apply(application, Memory::Instance().Appearance());
    QGuiApplication::setWindowIcon(IconOf("quillon"));
    QtFrontEnd frontEnd;
    frontEnd.SetGuideFolder(GuideFolder());
    try {
        const Program program(frontEnd);
        Act([] { basMain::Main(); });
        if (!IsEnded())
            QCoreApplication::exec();
        frontEnd.CloseAll();
    } catch (const Failure& failure) {
        std::fprintf(stderr, "quillon: %s\n", failure.description().c_str());
        return 1;
    }
    return 0;
}

} // namespace quillon::desktop
