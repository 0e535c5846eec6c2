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

} // namespace quillon
