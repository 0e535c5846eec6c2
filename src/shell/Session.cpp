#include "shell/Session.h"

#include "platform/DataAccess.h"
#include "platform/Platform.h"

namespace quillon {

std::string g_strExceptionFile;
std::shared_ptr<catalogue::Library> g_objSQLDMOApp;
std::shared_ptr<catalogue::Server> g_objSQLServer;
std::string g_strServer;
std::string g_strUser;
std::string g_strPassword;
std::string g_strDatabase;
std::shared_ptr<data::Connection> g_objConnection;
bool g_bolConnected = false;
std::shared_ptr<data::Connection> g_objUndoConnection;
std::shared_ptr<AuditObj> g_objAudit;
std::shared_ptr<clsQlnTemplate> g_objArch;
std::string g_strArchFile;
std::string g_strOutputFile;
bool g_bolStop = false;
bool g_bolJScript = false;

data::Connection& SessionConnection() {
    if (!g_objConnection)
        g_objConnection = ThePlatform().dataAccess().NewConnection();
    return *g_objConnection;
}

void EndSession() {
    g_objArch.reset();
    g_objAudit.reset();
    g_objUndoConnection.reset();
    g_objConnection.reset();
    g_objSQLServer.reset();
    g_objSQLDMOApp.reset();
    g_strExceptionFile = g_strServer = g_strUser = g_strPassword = g_strDatabase = {};
    g_strArchFile = g_strOutputFile = {};
    g_bolConnected = g_bolStop = g_bolJScript = false;
}

} // namespace quillon
