#include "desktop/PracticeServer.h"

#include <sys/prctl.h>

#include <csignal>

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTimer>

namespace quillon::desktop {
namespace {

constexpr int Patience = 20000; // milliseconds until it must listen

bool g_practiseFirst = false;

QString DataFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/quillon/practice";
}

QString ProgramPath() {
    const QString beside = QDir(QCoreApplication::applicationDirPath()).filePath("quillon-practice");
    return QFile::exists(beside) ? beside : QStandardPaths::findExecutable("quillon-practice");
}

QString PasswordIn(const QString& file) {
    QFile password(file);
    return password.open(QIODevice::ReadOnly) ? QString::fromUtf8(password.readLine()).trimmed() : QString();
}

// Turns the event loop until the server says where it listens, ends, or takes too long.
QString AwaitPort(QProcess& server) {
    QString said;
    QEventLoop loop;
    QTimer::singleShot(Patience, &loop, &QEventLoop::quit);
    QObject::connect(&server, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&server, &QProcess::readyReadStandardOutput, &loop, [&] {
        said += QString::fromUtf8(server.readAllStandardOutput());
        if (said.contains('\n'))
            loop.quit();
    });
    if (server.state() != QProcess::NotRunning)
        loop.exec();
    return QRegularExpression("listening on 127\\.0\\.0\\.1:(\\d+)").match(said).captured(1);
}

} // namespace

void PractiseFirst() {
    g_practiseFirst = true;
}

bool TakePractiseFirst() {
    return std::exchange(g_practiseFirst, false);
}

std::optional<PracticeLogin> StartPracticeServer(QString& reason) {
    static auto* server = new QProcess(QCoreApplication::instance());
    static QString port;
    const QString folder = DataFolder(), passwordFile = folder + "/password";
    if (server->state() == QProcess::NotRunning) {
        if (ProgramPath().isEmpty()) {
            reason = "quillon-practice is not installed beside this program.";
            return std::nullopt;
        }
        QDir().mkpath(folder);
        QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, server, [] {
            server->terminate();
            server->waitForFinished(5000);
        });
        // However this program ends, the server goes with it and lets its data folder go.
        server->setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
        server->start(ProgramPath(), {"--port", "0", "--data", folder + "/data", "--sample",
                                      "--password-file", passwordFile});
        server->waitForStarted();
        port = AwaitPort(*server);
    }
    if (port.isEmpty()) {
        reason = QString::fromUtf8(server->readAllStandardError()).trimmed();
        server->kill();
        return std::nullopt;
    }
    return PracticeLogin{"127.0.0.1," + port, "sa", PasswordIn(passwordFile)};
}

} // namespace quillon::desktop
