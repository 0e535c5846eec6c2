// The selection of a database, kept in two text files in the application's folder: which columns and which
// operations were ticked.
//
// D_FieldSel.apr has a line for each ticked column: "owner.table","column". D_AuditSel.apr has one for each
// table with a ticked operation: "owner.table",insert,update,delete with 1 or 0. D is the database's name;
// the server is not part of it, so databases of one name on two servers share their files.
#pragma once

namespace quillon::basProfile {

// Writes the selection of g_strDatabase; nothing while no database is open. Raises 52 for a database whose
// name no file can bear; existing files are then left alone.
void SaveProfile();

// The same when the database is left, but nothing for a model that never got its stored ticks because its
// load was stopped or failed: saving it would wipe them.
void SaveOnLeaving();

// Adds the stored ticks to those of the model and sets the stored operations. What is stored about tables and
// columns that are gone is passed over. The result is true unless it failed.
bool RetrieveProfile();

} // namespace quillon::basProfile
