#include "model/ServerObjects.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "shell/Session.h"

namespace quillon {

catalogue::Table& TableOnServer(const std::string& owner, const std::string& name) {
    if (!g_objSQLServer)
        throw Failure(numbers::ObjectNotSet);
    return g_objSQLServer->DatabaseNamed(g_strDatabase).TableNamed(QualifiedName(owner, name));
}

catalogue::Trigger& TriggerOnServer(const std::string& tableOwner, const std::string& tableName,
                                    const std::string& triggerOwner, const std::string& triggerName) {
    return TableOnServer(tableOwner, tableName).TriggerNamed(QualifiedName(triggerOwner, triggerName));
}

std::string QualifiedName(const std::string& owner, const std::string& name) {
    return owner + "." + name;
}

} // namespace quillon
