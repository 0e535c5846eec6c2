// How types and dates of definitions are coded in the definition tables; shared by reading and writing.
#pragma once

#include "practice/storage/Definitions.h"
#include "practice/storage/Sqlite.h"

namespace quillon::practice {

void BindMoment(Prepared& statement, int index, const Moment& moment);
Moment LoadMoment(const Prepared& statement, int column);

// system_type_id, max_length, precision and scale from `index` on; the collation is written apart.
void BindType(Prepared& statement, int index, const SqlType& type);
SqlType LoadType(const Prepared& statement, int column, const std::string& collation);

// sys.columns.user_type_id: that of the alias or table type, 256 sysname, 189 timestamp, else the system
// type.
std::int64_t UserTypeId(const SqlType& type, ObjectId userType, bool sysName);

} // namespace quillon::practice
