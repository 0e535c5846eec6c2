// The practice server as a child of the program: started when a person asks for it, ended with the program. Its data
// stay in the user's own folder.
#pragma once

#include <QString>

#include <optional>

namespace quillon::desktop {

struct PracticeLogin {
    QString server; // HOST,PORT
    QString user;
    QString password;
};

// Starts it unless it runs, and waits until it listens. Nothing when it cannot be started; `reason` says why.
std::optional<PracticeLogin> StartPracticeServer(QString& reason);

} // namespace quillon::desktop
