// The state of the session: one instance for the process, read by every room, each variable written only by
// the owners named beside it.
//
// The shell defines the variables; the classes belong to other rooms and are only named here, so that this
// header costs nothing. An empty reference means "nothing".
#pragma once

#include <memory>
#include <string>

namespace quillon {

namespace catalogue {
class Library;
class Server;
} // namespace catalogue
namespace data {
class Connection;
} // namespace data
class AuditObj;
class clsQlnTemplate;

// Application folder + "\exception.txt". Nothing reads it. Owner: basMain::Main.
extern std::string g_strExceptionFile;

// --- the server ---
// Created when servers are listed. Owner: frmODBCLogon::AvailableServers.
extern std::shared_ptr<catalogue::Library> g_objSQLDMOApp;
// The catalogue connection. Owners: frmODBCLogon's OK action makes it, frmMain::cboDatabase_Click connects it
// anew.
extern std::shared_ptr<catalogue::Server> g_objSQLServer;
// Owner of all three: frmODBCLogon's OK action. An empty user means integrated security.
extern std::string g_strServer;
extern std::string g_strUser;
extern std::string g_strPassword;

// --- the database ---
// As the opened connection names it. Owner: frmMain::cboDatabase_Click.
extern std::string g_strDatabase;
// The one data connection; nothing before its first use (SessionConnection creates it). Owner:
// frmMain::cboDatabase_Click; released by frmMain::Form_Unload.
extern std::shared_ptr<data::Connection> g_objConnection;
// g_objConnection is open. Owner: frmMain::cboDatabase_Click.
extern bool g_bolConnected;
// A connection of the undo screens' own. Owner: the undo screens.
extern std::shared_ptr<data::Connection> g_objUndoConnection;

// --- what is audited ---
// The object model of the selected database, `objAudit` in scripts. Owners: basMain::Main makes an empty one,
// CreateObjectHeirarchy replaces it, frmMain::mnuFileConnect_Click releases it.
extern std::shared_ptr<AuditObj> g_objAudit;
// The architecture profile in memory; nothing before its first use. Owner: mnuManageArchitecture_Click
// replaces it.
extern std::shared_ptr<clsQlnTemplate> g_objArch;
// Full path of the selected profile file; empty means none. Owners: frmMain::Form_Load, the profile
// selection.
extern std::string g_strArchFile;

// --- the generation run ---
// Finally application folder + "\triggers.sql". Owners: Process, CreateOutput.
extern std::string g_strOutputFile;
// The user asked the running long operation to stop. Owners: the stop commands set it at any time, also while
// an operation works; cboDatabase_Click and the end of Process clear it.
extern bool g_bolStop;
// Templates are translated into JScript. Nothing in the session assigns it; `translate --jscript` at the
// command line does.
extern bool g_bolJScript;

// g_objConnection, created if this is its first use.
data::Connection& SessionConnection();

// Every variable back to what it is before the start. Connections go while what carries them is still there.
void EndSession();

} // namespace quillon
