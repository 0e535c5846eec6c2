// The catalogue's objects behind the model's, found by name in the session's database.
//
// Raise 91 when no server is connected, the catalogue's own failures for unknown names. The references are
// the catalogue's and good until it refreshes the database.
#pragma once

#include <string>

#include "platform/Catalogue.h"

namespace quillon {

catalogue::Table& TableOnServer(const std::string& owner, const std::string& name);
catalogue::Trigger& TriggerOnServer(const std::string& tableOwner, const std::string& tableName,
                                    const std::string& triggerOwner, const std::string& triggerName);

// Two names joined as the catalogue and the model's keys join them.
std::string QualifiedName(const std::string& owner, const std::string& name);

} // namespace quillon
