#include "desktop/bind/Act.h"

#include <QCoreApplication>

#include <exception>

#include "platform/Failure.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"

namespace quillon::desktop {
namespace {

bool g_isEnded = false;

void Report(const std::string& description, double number) {
    FailureReport report;
    report.Description = description;
    report.Number = number;
    ThePlatform().frontEnd().ReportFailure(report);
}

} // namespace

void Act(const std::function<void()>& act) {
    try {
        act();
    } catch (const ProcessEnded&) {
        g_isEnded = true;
        QCoreApplication::quit();
    } catch (const Failure& failure) {
        Report(failure.what(), failure.number());
    } catch (const std::exception& failure) {
        Report(failure.what(), 0);
    }
}

bool IsEnded() {
    return g_isEnded;
}

void ThrowIfEnded() {
    if (g_isEnded)
        throw ProcessEnded{};
}

void ForgetEnd() {
    g_isEnded = false;
}

} // namespace quillon::desktop
