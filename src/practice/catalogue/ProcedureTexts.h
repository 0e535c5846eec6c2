// The texts of the system's procedures, by subject. Not for other rooms. They raise messages of the table by
// EXEC sys.q_raise number, parameters: what is an error ends the procedure by the RETURN behind it.
#pragma once

#include "practice/catalogue/SystemProcedures.h"

namespace quillon::practice {

std::span<const SystemProcedure>
DriverProcedures(); // what ODBC drivers ask: sp_columns, sp_tables, sp_pkeys ...
std::span<const SystemProcedure> TypeProcedures();     // types, parameters, privileges
std::span<const SystemProcedure> ServerProcedures();   // over a whole server or database
std::span<const SystemProcedure> HelpProcedures();     // what people ask: sp_help, sp_helptext ...
std::span<const SystemProcedure> SecurityProcedures(); // logins, users, roles
std::span<const SystemProcedure> ChangeProcedures();   // sp_rename, sp_settriggerorder, sp_bindefault ...
std::span<const SystemProcedure> MessageProcedures();  // sp_addmessage and its kin

} // namespace quillon::practice
