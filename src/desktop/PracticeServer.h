// The practice server as a child of the program: started when a person asks for it, ended with the program.
// Its data stay in the user's own folder.
#pragma once

#include <QString>

#include <optional>

namespace quillon::desktop {

struct PracticeLogin {
    QString server; // HOST,PORT
    QString user;
    QString password;
};

// The program was started to practise: its first login is the practice server's.
void PractiseFirst();
// Whether that first login is now; says so once.
bool TakePractiseFirst();

// Starts it unless it runs, and waits until it listens. Nothing when it cannot be started; `reason` says why.
std::optional<PracticeLogin> StartPracticeServer(QString& reason);

} // namespace quillon::desktop
