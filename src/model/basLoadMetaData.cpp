#include "model/basLoadMetaData.h"

#include <cmath>

#include "architecture/clsQlnTemplate.h"
#include "model/AuditObj.h"
#include "model/Like.h"
#include "model/basDbaseFunctions.h"
#include "platform/Catalogue.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/Trace.h"
#include "shell/frmMain.h"
#include "template/basStringFunctions.h"

namespace quillon::basLoadMetaData {
namespace {

DateValue DayOf(DateValue date) {
    return {std::floor(date.days)};
}

catalogue::Database& CatalogueDatabase() {
    return g_objSQLServer->DatabaseNamed(g_strDatabase);
}

// What fields and key columns have in common.
ColumnProperties PropertiesOf(const catalogue::Column& column, mdTable& model, std::int16_t position) {
    ColumnProperties properties;
    properties.name = column.Name;
    properties.parentName = model.Name();
    properties.parentOwner = model.Owner();
    properties.defaultText = column.Default;
    properties.sqlDatatype = basDbaseFunctions::Trim_Identity(column.Datatype);
    properties.sqlDatatypeAndLength =
        GetSQLDataTypeName(column.Datatype, column.Length, column.NumericPrecision, column.NumericScale);
    properties.length = GetSQLDatatypeLength(column.Datatype, column.Length);
    properties.numericScale = column.NumericScale;
    properties.numericPrecision = column.NumericPrecision;
    properties.ordinalPosition = position;
    properties.isGUID = column.IsRowGuidCol;
    properties.isIdentity = column.Identity;
    properties.isTimeStamp = basStringFunctions::LeftTrim(column.Datatype) == "timestamp";
    properties.isNullable = column.AllowNulls;
    return properties;
}

// Tables begin with the profile's header; its includes are given a second time, which adds nothing.
void CopyProfile() {
    if (!g_objArch || !g_objArch->IsLoaded())
        return;
    for (std::int16_t index = 0; index < g_objArch->IncludeCount(); ++index)
        g_objAudit->Includes()->Add(g_objArch->Includes(index));
    g_objAudit->SetAuthor(g_objArch->Header_Author());
    g_objAudit->SetLegal(g_objArch->Header_Legal());
}

void FillDatabase(const catalogue::Database& database) {
    mdDatabase& model = *g_objAudit->Database();
    model.SetConnection_String(""); // from a session value that nothing fills
    model.SetName(g_strDatabase);
    model.SetOwner(database.Owner());
    model.SetServer(g_strServer);
    model.SetUser(g_strUser);
}

// Gives the user a turn. False when that turn left another model to the session, by a new login or a new pick
// of a database: whoever was at work on `model` leaves then, for the catalogue's objects have gone with it.
bool TurnKeeps(const std::shared_ptr<AuditObj>& model) {
    ThePlatform().frontEnd().DoEvents();
    return g_objAudit == model;
}

void LoadTable(catalogue::Table& table, frmMain& screen) {
    screen.stbStatus.SetPanel(frmMain::ProgressPanel,
                              "Loading MetaData for: " + table.Owner() + "." + table.Name());
    mdTable& model =
        *g_objAudit->Database()->Tables()->Add(table.Name(), table.Owner(), DayOf(table.CreateDate()));
    LoadFields(table, model);
    LoadPrimaryKeyFields(table, model);
    LoadTriggers(model);
}

bool IsLoaded(const catalogue::Table& table, const std::string& excluded) {
    return !table.SystemObject() && !Like(table.Name(), excluded);
}

// False when the user stopped it.
bool LoadTables(catalogue::Database& database, frmMain& screen) {
    const auto model = g_objAudit;
    const std::string excluded = settings::Read(settings::AuditTablePrefix) + "*";
    ProgressBar& progress = screen.ProgressBar1;
    const auto count = database.TableCount();
    progress.SetMaximum(static_cast<int>(count));
    for (std::size_t index = 0; index < count; ++index) {
        if (g_bolStop)
            return false;
        if (IsLoaded(database.TableAt(index), excluded)) {
            if (!TurnKeeps(model))
                return false;
            // Found anew: a refresh in that turn replaces the catalogue's tables.
            LoadTable(database.TableAt(index), screen);
        }
        progress.SetValue(progress.Value() + 1);
    }
    return true;
}

} // namespace

bool CreateObjectHeirarchy() {
    return g_objTrace->Procedure("basLoadMetaData.CreateObjectHeirarchy", [] {
        auto& screen = TheScreen<frmMain>();
        g_objAudit = std::make_shared<AuditObj>();
        CopyProfile();
        catalogue::Database& database = CatalogueDatabase();
        FillDatabase(database);
        const bool complete = LoadTables(database, screen);
        screen.stbStatus.SetPanel(frmMain::ProgressPanel, "");
        screen.ProgressBar1.SetValue(0);
        return complete;
    });
}

void LoadFields(catalogue::Table& table, mdTable& model) {
    g_objTrace->Procedure("basLoadMetaData.LoadFields", [&] {
        std::int16_t position = 0;
        for (const catalogue::Column& column : table.Columns()) {
            ColumnProperties properties = PropertiesOf(column, model, position++);
            if (column.Default.empty())
                properties.defaultText = column.DriDefaultText;
            auto field = std::make_shared<mdField>(std::move(properties));
            field->SetIsInPrimaryKey(column.InPrimaryKey);
            model.Fields()->Add(std::move(field));
        }
    });
}

void LoadPrimaryKeyFields(catalogue::Table& table, mdTable& model) {
    g_objTrace->Procedure("basLoadMetaData.LoadPrimaryKeyFields", [&] {
        std::int16_t position = 0;
        for (const catalogue::Column& column : table.Columns()) {
            const auto here = position++;
            if (!column.InPrimaryKey)
                continue;
            auto field = std::make_shared<mdPrimaryKeyField>(PropertiesOf(column, model, here));
            for (const auto& key : column.Keys)
                field->Keys()->Add(key);
            model.PrimaryKeyFields()->Add(std::move(field));
        }
    });
}

void LoadTriggers(mdTable& model) {
    g_objTrace->Procedure("basLoadMetaData.LoadTriggers", [&] {
        catalogue::Table& table = CatalogueDatabase().TableNamed(model.Owner() + "." + model.Name());
        const auto count = table.TriggerCount();
        for (std::size_t index = 0; index < count; ++index) {
            catalogue::Trigger& trigger = table.TriggerAt(index);
            if (trigger.Script(catalogue::ScriptDefault).find(TriggerMarker) == std::string::npos)
                continue;
            model.Triggers()->Add(trigger.Name(), trigger.Owner(), trigger.Type(),
                                  DayOf(trigger.CreateDate()), trigger.Enabled(), model.Name(),
                                  model.Owner());
        }
    });
}

void ReloadTriggers() {
    g_objTrace->Procedure("basLoadMetaData.ReloadTriggers", [] {
        FrontEnd& frontEnd = ThePlatform().frontEnd();
        auto& screen = TheScreen<frmMain>();
        frontEnd.SetPointer(Pointer::Hourglass);
        const auto tables = TheModel().Database()->Tables();
        const auto model = g_objAudit;
        screen.ProgressBar1.SetMaximum(tables->Count() == 0 ? 1 : tables->Count());
        screen.stbStatus.SetPanel(frmMain::ProgressPanel, "Reloading Triggers ...");
        CatalogueDatabase().Refresh();
        for (const auto& table : *tables) {
            if (g_bolStop || !TurnKeeps(model))
                break;
            for (auto left = table->Triggers()->Count(); left > 0; --left)
                table->Triggers()->Remove(Value(std::int32_t(1)), true);
            LoadTriggers(*table);
            screen.ProgressBar1.SetValue(screen.ProgressBar1.Value() + 1);
        }
        frontEnd.SetPointer(Pointer::Default);
        screen.ProgressBar1.SetValue(0);
        screen.stbStatus.SetPanel(frmMain::ProgressPanel, "");
        screen.ShowTriggers();
        screen.grxTables.Redraw(); // its mark of audited tables
    });
}

bool IsKey(mdTable& model, const std::string& column) {
    return g_objTrace->Procedure("basLoadMetaData.IsKey", [&] {
        for (const auto& field : *model.PrimaryKeyFields())
            if (field->Name() == column)
                return true;
        return false;
    });
}

std::string GetSQLDataTypeName(const std::string& type, std::int32_t length, std::int32_t precision,
                               std::int32_t scale) {
    const bool isDecimal = Like(type, "decimal*");
    const std::string numbers = "(" + std::to_string(precision) + "," + std::to_string(scale) + ")";
    if (Like(type, "*char"))
        return type + "(" + std::to_string(length) + ")";
    if (!isDecimal && !Like(type, "numeric*"))
        return type;
    if (Like(type, "*identity"))
        return (isDecimal ? "decimal" : "numeric") + numbers + " identity";
    return type + numbers;
}

double GetSQLDatatypeLength(const std::string& type, std::int32_t length) {
    if (type == "nchar" || type == "nvarchar")
        return length / 2.0;
    if (type == "uniqueidentifier")
        return 50;
    return length;
}

} // namespace quillon::basLoadMetaData
