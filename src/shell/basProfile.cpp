#include "shell/basProfile.h"

#include <vector>

#include "model/AuditObj.h"
#include "model/ServerObjects.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "shell/frmMain.h"
#include "template/basStringFunctions.h"

namespace quillon::basProfile {
namespace {

std::string PathOf(const char* ending) {
    if (g_strDatabase.find_first_of("\\/:*?\"<>|") != std::string::npos)
        throw Failure(numbers::BadFileNameOrNumber,
                      "The selection cannot be kept: no file can bear the name of database " + g_strDatabase);
    return ThePlatform().files().ApplicationFolder() + "\\" + g_strDatabase + ending;
}

std::string FieldFile() {
    return PathOf("_FieldSel.apr");
}
std::string AuditFile() {
    return PathOf("_AuditSel.apr");
}

std::string Quoted(const std::string& text) {
    return '"' + text + '"';
}

// The fields of a line: a text up to its closing quote, a number up to the comma.
std::vector<std::string> FieldsOf(const std::string& line) {
    std::vector<std::string> fields;
    std::size_t at = 0;
    while (at < line.size()) {
        const bool isQuoted = line[at] == '"';
        const std::size_t start = at + (isQuoted ? 1 : 0);
        std::size_t end = line.find(isQuoted ? '"' : ',', start);
        if (end == std::string::npos)
            end = line.size();
        fields.push_back(line.substr(start, end - start));
        const std::size_t comma = line.find(',', end);
        at = comma == std::string::npos ? line.size() : comma + 1;
    }
    return fields;
}

// Reads the records of a file, if there is one; those with fewer fields than `width` are passed over.
template <class Take>
void ReadRecords(const std::string& path, std::size_t width, Take take) {
    Files& files = ThePlatform().files();
    if (!files.Exists(path))
        return;
    const auto input = files.OpenInput(path);
    for (std::string line; input->ReadLine(line);)
        if (const auto fields = FieldsOf(line); fields.size() >= width)
            IgnoringFailures([&] { take(fields); });
}

bool IsOne(const std::string& field) {
    return basStringFunctions::Trim(field) == "1";
}

void WriteTable(mdTable& table, FileWriter& fields, FileWriter& operations) {
    const std::string key = Quoted(QualifiedName(table.Owner(), table.Name()));
    const auto digit = [](bool isTicked) { return isTicked ? ",1" : ",0"; };
    if (table.IsOneAuditOperationSelected())
        operations.WriteLine(key + digit(table.Audit4Insert()) + digit(table.Audit4Update()) +
                             digit(table.Audit4Delete()));
    for (const auto& field : *table.Fields())
        if (field->IsChecked())
            fields.WriteLine(key + "," + Quoted(field->Name()));
}

} // namespace

void SaveProfile() {
    g_objTrace->Procedure("basProfile.SaveProfile", [] {
        if (!g_bolConnected || !g_objAudit)
            return;
        Files& files = ThePlatform().files();
        const auto fields = files.OpenOutput(FieldFile());
        const auto operations = files.OpenOutput(AuditFile());
        for (const auto& table : *g_objAudit->Database()->Tables())
            WriteTable(*table, *fields, *operations);
        operations->Close();
        fields->Close();
    });
}

bool RetrieveProfile() {
    return g_objTrace->Procedure("basProfile.RetrieveProfile", [] {
        const auto& tables = g_objAudit->Database()->Tables();
        ReadRecords(FieldFile(), 2, [&](const std::vector<std::string>& record) {
            tables->Item(record[0])->Fields()->Item(record[1])->SetIsChecked(true);
        });
        ReadRecords(AuditFile(), 4, [&](const std::vector<std::string>& record) {
            const auto table = tables->Item(record[0]);
            table->SetAudit4Insert(IsOne(record[1]));
            table->SetAudit4Update(IsOne(record[2]));
            table->SetAudit4Delete(IsOne(record[3]));
        });
        TheScreen<frmMain>().grxFields.Refetch();
        TheScreen<frmMain>().grxTables.Refetch();
        return true;
    });
}

} // namespace quillon::basProfile
