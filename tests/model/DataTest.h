// What tests of login, loader and database helpers share: the platform of doubles behind wrappers that fail
// as planned.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/AuditObj.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Platform.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "shell/frmMain.h"
#include "support/FakeCatalogue.h"
#include "support/FakeDataAccess.h"
#include "support/FaultyCatalogue.h"
#include "support/FaultyDataAccess.h"
#include "support/MemorySettings.h"
#include "support/ScriptedFrontEnd.h"

namespace quillon::tests {

using Lines = std::vector<std::string>;

class DataTest : public testing::Test {
  protected:
    DataTest() {
        Forget();
        g_objTrace = std::make_unique<Trace>();
    }
    ~DataTest() override { Forget(); }

    static frmMain& Main() { return TheScreen<frmMain>(); }
    static Lines Texts(const ComboBox& list) {
        Lines texts;
        for (const auto& item : list.Items())
            texts.push_back(item.Text);
        return texts;
    }
    // The note that went with the last failure.
    std::string LastNote() const {
        return frontEnd.Failures().empty() ? "" : frontEnd.Failures().back().Note;
    }

    FaultPlan plan;
    ScriptedFrontEnd frontEnd;
    MemorySettings settings;
    FakeLibrary catalogue;
    FaultyLibrary faultyCatalogue{catalogue, plan};
    FakeDataAccess data;
    FaultyDataAccess faultyData{data, plan};
    Platform platform{{.frontEnd = &frontEnd,
                       .settings = &settings,
                       .dataAccess = &faultyData,
                       .catalogue = &faultyCatalogue}};

  private:
    static void Forget() {
        g_objTrace.reset();
        g_objSQLDMOApp.reset();
        g_objSQLServer.reset();
        g_objConnection.reset();
        g_objAudit.reset();
        g_objArch.reset();
        g_strServer = g_strUser = g_strPassword = g_strDatabase = {};
        g_bolStop = g_bolConnected = false;
        ForgetScreen<frmMain>();
    }
};

} // namespace quillon::tests
