#include "model/basDbaseFunctions.h"

#include "model/AuditObj.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Trace.h"
#include "template/basStringFunctions.h"

namespace quillon::basDbaseFunctions {
namespace {

void RemoveAll(std::string& text, std::string_view what) {
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at))
        text.erase(at, what.size());
}

} // namespace

std::string Trim_Identity(std::string type) {
    for (const char* part : {"()", " ", "identity"})
        RemoveAll(type, part);
    return type;
}

std::string RemoveTrailingComma(const std::string& text) {
    std::string trimmed(basStringFunctions::Trim(text));
    if (trimmed.ends_with(','))
        trimmed.pop_back();
    return trimmed;
}

void KillAFile(const std::string& path) {
    g_objTrace->Procedure("basDbaseFunctions.KillAFile", [&] {
        Files& files = ThePlatform().files();
        if (files.Exists(path))
            files.Delete(path);
    });
}

void Wait(std::int32_t seconds) {
    g_objTrace->Procedure("basDbaseFunctions.Wait", [&] {
        const Clock& clock = ThePlatform().clock();
        const auto end = clock.TickCount() + std::int64_t{seconds} * 1000;
        while (clock.TickCount() <= end)
            ThePlatform().frontEnd().DoEvents();
    });
}

void SetFirstLast(std::int16_t counter, mdTable& table) {
    g_objTrace->Procedure("basDbaseFunctions.SetFirstLast", [&] {
        if (mdTable::FirstAuditedTables() > 0)
            for (const auto& each : *TheModel().Database()->Tables())
                each->SetIsFirstAuditedTable(false);
        table.SetIsFirstAuditedTable(counter == 1);
    });
}

} // namespace quillon::basDbaseFunctions
