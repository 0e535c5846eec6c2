// A session over doubles: one log of everything that the spine asks of the platform and of the other rooms.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "platform/Platform.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/SessionRoads.h"
#include "shell/Trace.h"
#include "shell/frmMain.h"
#include "support/FakeCatalogue.h"
#include "support/FakeDataAccess.h"
#include "support/FaultPlan.h"
#include "support/FaultyCatalogue.h"
#include "support/FaultyDataAccess.h"
#include "support/FaultyServices.h"
#include "support/ManualClock.h"
#include "support/MemoryFiles.h"
#include "support/MemorySettings.h"
#include "support/ScriptedFrontEnd.h"

namespace quillon::tests {

// Puts into the log what the scripted front end only remembers.
class LoggingFrontEnd : public ScriptedFrontEnd {
  public:
    explicit LoggingFrontEnd(FaultPlan& plan)
        : m_plan(plan) {}
    void SetPointer(Pointer pointer) override {
        m_plan.Ask("FrontEnd.SetPointer", pointer == Pointer::Hourglass ? "Hourglass" : "Default");
        ScriptedFrontEnd::SetPointer(pointer);
    }
    void SetFocus(Control& control) override {
        m_plan.Ask("FrontEnd.SetFocus", control.Name());
        ScriptedFrontEnd::SetFocus(control);
    }
    void Repaint(Screen& screen) override {
        m_plan.Ask("FrontEnd.Repaint", screen.Name());
        ScriptedFrontEnd::Repaint(screen);
    }
    void StartProgram(const std::string& commandLine, WindowStyle style) override {
        m_plan.Ask("FrontEnd.StartProgram", style == WindowStyle::MinimisedFocus ? "minimised" : "normal");
        ScriptedFrontEnd::StartProgram(commandLine, style);
    }

  private:
    FaultPlan& m_plan;
};

// The platform's services as doubles behind wrappers, set as the platform while it lives.
struct DoubledPlatform {
    FaultPlan plan;
    LoggingFrontEnd frontEnd{plan};
    MemoryFiles memoryFiles;
    FaultyFiles files{memoryFiles, plan};
    MemorySettings memorySettings;
    FaultySettings settings{memorySettings, plan};
    ManualClock clock;
    FakeLibrary catalogue;
    FaultyLibrary faultyCatalogue{catalogue, plan};
    FakeDataAccess data;
    FaultyDataAccess faultyData{data, plan};
    Platform platform{Services()};

  private:
    PlatformServices Services() {
        PlatformServices services;
        services.frontEnd = &frontEnd;
        services.files = &files;
        services.settings = &settings;
        services.clock = &clock;
        services.dataAccess = &faultyData;
        services.catalogue = &faultyCatalogue;
        return services;
    }
};

// Every session variable back to what it is before the start.
inline void ForgetSession() {
    g_objTrace.reset();
    EndSession();
    ForgetScreen<frmMain>();
    TheRoads() = SessionRoads();
}

class SessionTest : public ::testing::Test, protected DoubledPlatform {
  protected:
    SessionTest() {
        ForgetSession();
        g_objTrace = std::make_unique<Trace>();
        OpenRoads();
    }
    ~SessionTest() override { ForgetSession(); }

    // What the login's OK does when it succeeds; a test may replace it.
    std::function<std::int32_t()> login = [this] {
        g_objSQLServer = ThePlatform().catalogue().NewServer();
        g_strServer = "PRACTICE";
        return 0;
    };
    bool modelLoads = true;
    std::int32_t tables = 3;

    void OpenRoads();
    // Logged in and remembered, as after a first login with integrated security.
    void LogIn();
    frmMain& Main() { return TheScreen<frmMain>(); }
    // A person picks a database.
    void Pick(const std::string& database);
    // The log from now on.
    void StartLog() { plan.Log.clear(); }
};

} // namespace quillon::tests
