// A session with a database picked: three tables in a model over doubles, shown in the three grids.
#pragma once

#include "SessionFixture.h"
#include "model/AuditObj.h"

namespace quillon::tests {

class FilledSession : public SessionTest {
  protected:
    FilledSession() {
        g_objAudit = std::make_shared<AuditObj>();
        g_objSQLServer = ThePlatform().catalogue().NewServer();
        g_strDatabase = "Sales";
        g_bolConnected = true;
        AddTable("dbo", "Customer", {{"id", "int"}, {"name", "nvarchar"}, {"photo", "image"}});
        AddTable("dbo", "Order", {{"id", "int"}, {"2024", "money"}});
        AddTable("hr", "Letter", {{"body", "ntext"}, {"scan", "IMAGE"}});
        Main().Load_GridExColumns();
        Show();
    }
    FakeDatabase& sales{catalogue.Server().AddDatabase("Sales")};

    // As the end of a pick leaves the screen.
    void Show() {
        frmMain& main = Main();
        main.m_bolNoDatabase = false;
        main.grxTables.SetItemCount(Tables().Count());
        main.m_strCurrentTable = frmMain::ResetTableName;
        main.grxTables_Click();
    }

    struct Column {
        const char* name;
        const char* type;
    };
    // In the model, and on the server without its columns.
    mdTable& AddTable(const char* owner, const char* name, const std::vector<Column>& columns) {
        sales.AddTable(owner, name);
        const auto table = g_objAudit->Database()->Tables()->Add(name, owner, DateValue{36526});
        for (const Column& column : columns) {
            auto field = std::make_shared<mdField>();
            field->SetName(column.name);
            field->SetSQL_Datatype(column.type);
            table->Fields()->Add(field);
        }
        return *table;
    }
    static mdTables& Tables() { return *g_objAudit->Database()->Tables(); }
    static mdTable& Table(const char* key) { return *Tables().Named(key); }
    static mdField& Field(const char* table, const char* name) { return *Table(table).Fields()->Named(name); }

    // "Customer.id Order.2024": every column that is ticked.
    static std::string Ticked() {
        std::string names;
        for (const auto& table : Tables())
            for (const auto& field : *table->Fields())
                if (field->IsChecked())
                    names += (names.empty() ? "" : " ") + table->Name() + "." + field->Name();
        return names;
    }
    // "IUD -U-": the operations of each table.
    static std::string Operations() {
        std::string text;
        for (const auto& table : Tables()) {
            text += text.empty() ? "" : " ";
            text += table->Audit4Insert() ? 'I' : '-';
            text += table->Audit4Update() ? 'U' : '-';
            text += table->Audit4Delete() ? 'D' : '-';
        }
        return text;
    }
};

} // namespace quillon::tests
