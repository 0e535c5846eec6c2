#include "shell/basProfile.h"

#include <algorithm>
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

bool CanNameAFile(const std::string& name) {
    return name.find_first_of("\\/:*?\"<>|") == std::string::npos;
}

std::string PathOf(const char* ending) {
    if (!CanNameAFile(g_strDatabase))
        throw Failure(numbers::BadFileNameOrNumber,
                      "The selection cannot be kept: no file can bear the name of database " + g_strDatabase);
    return ThePlatform().files().ApplicationFolder() + "\\" + g_strDatabase + ending;
}

constexpr const char* FieldFile = "_FieldSel.apr";
constexpr const char* AuditFile = "_AuditSel.apr";

std::string Quoted(const std::string& text) {
    return '"' + text + '"';
}

using Record = std::vector<std::string>;

// The field at `at`: a text up to its closing quote, line ends and commas in it being part of it, or a number
// up to the comma. `at` then stands on the comma or the line end behind it.
std::string TakeField(const std::string& text, std::size_t& at) {
    const bool isQuoted = at < text.size() && text[at] == '"';
    const std::size_t start = at + (isQuoted ? 1 : 0);
    const std::size_t end = std::min(text.find_first_of(isQuoted ? "\"" : ",\r\n", start), text.size());
    at = std::min(text.find_first_of(",\r\n", end), text.size());
    return text.substr(start, end - start);
}

Record TakeRecord(const std::string& text, std::size_t& at) {
    Record record{TakeField(text, at)};
    while (at < text.size() && text[at] == ',')
        record.push_back(TakeField(text, ++at));
    at = std::min(text.find_first_not_of("\r\n", at), text.size());
    return record;
}

// Reads the records of a file, if there is one; those with fewer fields than `width` are passed over.
template <class Take>
void ReadRecords(const char* ending, std::size_t width, Take take) {
    Files& files = ThePlatform().files();
    if (!CanNameAFile(g_strDatabase) || !files.Exists(PathOf(ending)))
        return;
    const std::string text = files.ReadAll(PathOf(ending));
    for (std::size_t at = 0; at < text.size();)
        if (const Record record = TakeRecord(text, at); record.size() >= width)
            IgnoringFailures([&] { take(record); });
}

bool IsOne(const std::string& field) {
    return basStringFunctions::Trim(field) == "1";
}

bool HasQuote(const std::string& name) {
    return name.find('"') != std::string::npos;
}

// What the two files are to hold.
struct Selection {
    std::string fields;
    std::string operations;
    std::string unfit; // names that the files' form has no place for

    void Add(mdTable& table);
};

void Selection::Add(mdTable& table) {
    const std::string name = QualifiedName(table.Owner(), table.Name());
    if (HasQuote(name)) {
        if (table.IsOneAuditOperationSelected() || table.IsOneFieldSelectedForAudit())
            unfit += "\r\n" + name;
        return;
    }
    const auto digit = [](bool isTicked) { return isTicked ? ",1" : ",0"; };
    if (table.IsOneAuditOperationSelected())
        operations += Quoted(name) + digit(table.Audit4Insert()) + digit(table.Audit4Update()) +
                      digit(table.Audit4Delete()) + "\r\n";
    for (const auto& field : *table.Fields())
        if (field->IsChecked() && HasQuote(field->Name()))
            unfit += "\r\n" + name + ", " + field->Name();
        else if (field->IsChecked())
            fields += Quoted(name) + "," + Quoted(field->Name()) + "\r\n";
}

} // namespace

void SaveProfile() {
    g_objTrace->Procedure("basProfile.SaveProfile", [] {
        if (!g_bolConnected || !g_objAudit)
            return;
        Selection selection;
        for (const auto& table : *g_objAudit->Database()->Tables())
            selection.Add(*table);
        // Each file whole or not at all: a full disk must not cost the user the selection of last time.
        Files& files = ThePlatform().files();
        files.Replace(PathOf(FieldFile), selection.fields);
        files.Replace(PathOf(AuditFile), selection.operations);
        g_objAudit->SetHasStoredSelection();
        g_objTrace->SetNote("");
        if (!selection.unfit.empty())
            throw Failure(numbers::InvalidCall, "A name with a double quote cannot be kept in the selection "
                                                "files.  All ticks are saved but those of:" +
                                                    selection.unfit);
    });
}

void SaveOnLeaving() {
    if (g_objAudit && g_objAudit->HasStoredSelection())
        SaveProfile();
}

bool RetrieveProfile() {
    return g_objTrace->Procedure("basProfile.RetrieveProfile", [] {
        const mdTables& tables = *TheModel().Database()->Tables();
        ReadRecords(FieldFile, 2, [&](const Record& record) {
            tables.Named(record[0])->Fields()->Named(record[1])->SetIsChecked(true);
        });
        ReadRecords(AuditFile, 4, [&](const Record& record) {
            mdTable& table = *tables.Named(record[0]);
            table.SetAudit4Insert(IsOne(record[1]));
            table.SetAudit4Update(IsOne(record[2]));
            table.SetAudit4Delete(IsOne(record[3]));
        });
        TheModel().SetHasStoredSelection();
        TheScreen<frmMain>().grxFields.Refetch();
        TheScreen<frmMain>().grxTables.Refetch();
        return true;
    });
}

} // namespace quillon::basProfile
