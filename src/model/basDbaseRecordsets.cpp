// The part of basDbaseFunctions that asks the server: queries, lists filled from them, the databases.
#include "model/basDbaseFunctions.h"
#include "platform/Catalogue.h"
#include "platform/Conversion.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/FrontEnd.h"
#include "platform/ListControls.h"
#include "platform/Object.h"
#include "platform/Platform.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/Trace.h"
#include "shell/frmMain.h"

namespace quillon::basDbaseFunctions {
namespace {

constexpr int MostRetries = 3;
constexpr std::int32_t AllItemData = -999;

// Compared as text, so "10.0" would count as older than "2.6".
constexpr const char* OldestVersion = "2.6";
constexpr const char* VersionNote =
    "ALERT:  ADO version must be 2.6 or greater.  Please download MDAC 2.6 or greater from Microsoft "
    "https://www.microsoft.com/download";
constexpr const char* ProcedureNote =
    "Note: An error may be raised by a stored procedure, itself, that has syntax errors.  Please check the "
    "procedure, if this the case, to see that it does not have errors";

// Opens the connection again with its last string.
void Reconnect() {
    SessionConnection().Close();
    SessionConnection().Open("");
}

void OpenWithRetries(const std::string& sql, data::Recordset& recordset, data::CursorType cursor,
                     data::LockType lock) {
    for (int retries = 0;; ++retries) {
        try {
            recordset.Open(sql, g_objConnection, cursor, lock);
            return;
        } catch (const Failure& failure) {
            if (failure.number() != numbers::LinkBroken || retries == MostRetries)
                throw;
        }
        Reconnect();
    }
}

std::string WithoutTrailingBlanks(std::string text) {
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

// The entry at the running position gets the row's number; NULL moves the position back.
void AddRows(ComboBox& list, data::Recordset& recordset) {
    const bool hasNumbers = recordset.FieldCount() > 1;
    for (std::int32_t position = 1; !recordset.Eof(); recordset.MoveNext()) {
        const Value text = recordset.FieldAt(0).Value;
        if (text.IsNull()) {
            --position;
            continue;
        }
        list.AddItem(WithoutTrailingBlanks(conversion::ToText(text)));
        const Value number = hasNumbers ? recordset.FieldAt(1).Value : Value();
        if (hasNumbers && conversion::IsNumeric(number))
            list.SetItemData(static_cast<std::size_t>(position), conversion::ToLong(number));
        ++position;
    }
}

bool Fill(ComboBox& list, const data::RecordsetRef& recordset, bool clearFirst) {
    if (!recordset)
        return true;
    if (clearFirst)
        list.Clear();
    if (recordset->Eof())
        return true;
    list.AddItem("{All}", AllItemData);
    AddRows(list, *recordset);
    recordset->Close();
    list.SetListIndex(0);
    return true;
}

} // namespace

void OpenRecordset(const std::string& sql, data::RecordsetRef& recordset, data::CursorType cursor,
                   data::LockType lock) {
    g_objTrace->Procedure("basDbaseFunctions OpenRecordset " + sql, [&] {
        g_objTrace->SetNote("Attempting to execute the following SQL: " + sql);
        data::Connection& connection = SessionConnection();
        recordset = ThePlatform().dataAccess().NewRecordset();
        try {
            OpenWithRetries(sql, *recordset, cursor, lock);
        } catch (const Failure& failure) {
            const bool isOld = connection.Version() < OldestVersion;
            g_objTrace->Report(failure.description(), failure.number(), failure.line(),
                               isOld ? VersionNote : ProcedureNote);
            return;
        }
        g_objTrace->SetNote("");
    });
}

std::int32_t GetRecordCount(data::Recordset& recordset) {
    return g_objTrace->Procedure("basDbaseFunctions.GetRecordCount", [&] {
        std::int32_t count = 0;
        if (recordset.Bof() && recordset.Eof())
            return count;
        if (!recordset.Bof())
            recordset.MoveFirst();
        for (; !recordset.Eof(); recordset.MoveNext())
            ++count;
        recordset.MoveFirst();
        return count;
    });
}

bool pub_FillComboFromSQL(ComboBox& list, const std::string& sql, bool clearFirst) {
    return g_objTrace->Procedure("basDbaseFunctions.pub_FillComboFromSQL", [&] {
        data::RecordsetRef recordset;
        OpenRecordset(sql, recordset, data::CursorType::ForwardOnly, data::LockType::ReadOnly);
        return Fill(list, recordset, clearFirst);
    });
}

bool pub_FillComboFromSQL(ComboBox& list, const data::RecordsetRef& recordset, bool clearFirst) {
    return g_objTrace->Procedure("basDbaseFunctions.pub_FillComboFromSQL",
                                 [&] { return Fill(list, recordset, clearFirst); });
}

void AvailableDatabases() {
    g_objTrace->Procedure("basDbaseFunctions.AvailableDatabases", [] {
        g_objTrace->SetNote("Attempting to use SQLDMO (sqldmo.dll) Component.  SQLDMO is a required "
                            "prerequisite of this product");
        const bool excludesSystem = settings::ReadBoolean(settings::ExcludeSysTables);
        ComboBox& list = TheScreen<frmMain>().cboDatabase;
        list.SetText(frmMain::SelectADatabase);
        list.Clear();
        if (!g_objSQLServer)
            throw Failure(numbers::ObjectNotSet);
        for (std::size_t index = 0; index < g_objSQLServer->DatabaseCount(); ++index) {
            const catalogue::Database& database = g_objSQLServer->DatabaseAt(index);
            if (!database.SystemObject() || !excludesSystem)
                list.AddItem(database.Name(), 0, "database");
        }
        g_objTrace->SetNote("");
        ThePlatform().frontEnd().SetPointer(Pointer::Default);
        list.SetFocus();
        list.DropDown();
    });
}

} // namespace quillon::basDbaseFunctions
