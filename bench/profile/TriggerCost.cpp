// What an audit trigger costs: the default profile's beside the tersest one written by hand that logs the
// same, and beside no trigger at all, on one server in one run.
//
// A table of 20 columns; an update changes 3 of them. The hand-written trigger keeps @@IDENTITY too, since it
// has to do the same work; what that part alone costs is told in a column of its own, against a trigger
// without it.
#include "practice/support/OdbcClient.h"
#include "practice/support/ServerProcess.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace quillon::bench {
namespace {

using practice::testing::OdbcClient;
using practice::testing::ServerProcess;

struct Column {
    std::string name, type, value, form; // `form`: the value as text, # for the column
};

std::vector<Column> Columns() {
    std::vector<Column> columns{{"ID", "int NOT NULL PRIMARY KEY", "n", "CONVERT(nvarchar(max), #)"}};
    for (const char* number : {"1", "2", "3", "4", "5", "6", "7"})
        columns.push_back({std::string("N") + number, "int NULL", "n", "CONVERT(nvarchar(max), #)"});
    for (const char* number : {"1", "2", "3", "4", "5", "6"})
        columns.push_back({std::string("T") + number, "nvarchar(40) NULL", "N'a text of middling length'",
                           "CONVERT(nvarchar(max), #)"});
    for (const char* number : {"1", "2", "3"})
        columns.push_back(
            {std::string("M") + number, "decimal(12, 2) NULL", "1.25", "CONVERT(nvarchar(max), #)"});
    for (const char* number : {"1", "2"})
        columns.push_back(
            {std::string("D") + number, "datetime NULL", "'20240229'", "CONVERT(nvarchar(40), #, 121)"});
    columns.push_back({"B1", "bit NULL", "1", "CONVERT(nvarchar(max), #)"});
    return columns;
}

std::string Joined(const std::string& separator, const auto& part) {
    std::string text;
    for (const Column& column : Columns())
        text += (text.empty() ? "" : separator) + part(column);
    return text;
}

std::string Form(const Column& column, const std::string& row) {
    std::string form = column.form;
    return form.replace(form.find('#'), 1, row + "." + column.name);
}

constexpr const char* IsChanged =
    " WHERE v.o <> v.n COLLATE Latin1_General_BIN2 OR DATALENGTH(v.o) <> DATALENGTH(v.n) "
    "OR v.o IS NULL AND v.n IS NOT NULL OR v.o IS NOT NULL AND v.n IS NULL";

std::string HandWritten(const std::string& table, int action, bool keepsIdentity) {
    static constexpr const char* names[] = {"", "UPDATE", "INSERT", "DELETE"};
    const std::string row = action == 3 ? "d" : "i";
    const std::string values = Joined(", ", [&](const Column& column) {
        return "(N'" + column.name + "', " + (action == 2 ? "NULL" : Form(column, "d")) + ", " +
               (action == 3 ? "NULL" : Form(column, "i")) + ")";
    });
    return "CREATE TRIGGER dbo.By" + table + names[action] + " ON dbo." + table + " AFTER " + names[action] +
           " AS SET NOCOUNT ON DECLARE @t int" +
           (keepsIdentity ? ", @i numeric(38, 0) SET @i = @@IDENTITY" : "") +
           " INSERT AUDIT_LOG_TRANSACTIONS SELECT OBJECT_ID('dbo." + table + "'), " + std::to_string(action) +
           ", HOST_NAME(), APP_NAME(), ORIGINAL_LOGIN(), GETDATE(), COUNT(*) FROM " +
           (action == 3 ? "deleted" : "inserted") +
           " SET @t = SCOPE_IDENTITY() INSERT AUDIT_LOG_DATA SELECT @t, " + std::to_string(action) +
           ", N'[ID]=' + CONVERT(nvarchar(max), " + row + ".ID), v.* FROM " +
           (action == 1   ? "inserted i JOIN deleted d ON d.ID = i.ID"
            : action == 2 ? "inserted i"
                          : "deleted d") +
           " CROSS APPLY (VALUES " + values + ") v(c, o, n)" + (action == 1 ? IsChanged : "") +
           (keepsIdentity ? " IF @i IS NOT NULL EXEC dbo.AUDIT_prc_KeepIdentity @i" : "");
}

// A statement's time, and what it is told by.
std::string Statement(int action, const std::string& table, int rows) {
    const std::string those = " WHERE ID <= " + std::to_string(rows);
    switch (action) {
    case 1: return "UPDATE dbo." + table + " SET N1 = N1 + 1, T1 = T1 + N'!', M1 = M1 + 1" + those;
    case 2: return "INSERT INTO dbo." + table + " SELECT * FROM dbo.Source" + those;
    default: return "DELETE FROM dbo." + table + those;
    }
}

double Seconds(OdbcClient& client, const std::string& statement) {
    const auto begin = std::chrono::steady_clock::now();
    for (const std::string& answer : client.Run(statement))
        if (answer.starts_with("error"))
            throw std::runtime_error(statement + ": " + answer);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

void Console(const ServerProcess& server, const std::filesystem::path& home, const std::filesystem::path& bin,
             const std::string& command) {
    std::ofstream(home / "password") << server.Password();
    const std::string line = "QUILLON_HOME='" + home.string() + "' XDG_CONFIG_HOME='" + home.string() +
                             "' '" + (bin / "quillon-console").string() + "' --server 127.0.0.1," +
                             std::to_string(server.Port()) + " --user sa --password-file '" +
                             (home / "password").string() + "' --database Sales " + command + " >/dev/null";
    if (std::system(line.c_str()) != 0)
        throw std::runtime_error(command);
}

double Median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

constexpr const char* Tables[] = {"Ours", "Hand", "Log", "Bare"};

void Prepare(OdbcClient& client, const ServerProcess& server, const std::filesystem::path& bin) {
    const std::string declared =
        Joined(", ", [](const Column& column) { return column.name + " " + column.type; });
    client.Run("USE Sales CREATE TABLE dbo.Source (" + declared + ")");
    for (const char* table : Tables)
        client.Run(std::string("CREATE TABLE dbo.") + table + " (" + declared + ")");
    client.Run(
        "SET NOCOUNT ON DECLARE @n int SET @n = 1 WHILE @n <= 10000 BEGIN INSERT INTO dbo.Source SELECT " +
        Joined(", ", [](const Column& column) { return column.value == "n" ? "@n" : column.value; }) +
        " SET @n = @n + 1 END");
    const practice::testing::TemporaryFolder home;
    Console(server, home.Path(), bin, "install --profile '" + (bin / "Harrowgate.qlnx").string() + "'");
    Console(server, home.Path(), bin,
            "generate --table dbo.Ours --operations insert,update,delete --execute");
    for (const int action : {1, 2, 3}) {
        Seconds(client, HandWritten("Hand", action, true));
        Seconds(client, HandWritten("Log", action, false));
    }
}

constexpr int RepeatsOfFew = 61, RepeatsOfMany = 5;

bool Measure(OdbcClient& client, int rows) {
    static constexpr const char* names[] = {"", "update", "insert", "delete"};
    bool isWithin = true;
    std::vector<double> times[4][4];
    for (int repeat = 0; repeat < (rows > 1000 ? RepeatsOfMany : RepeatsOfFew); ++repeat) {
        for (const int action : {2, 1, 3})
            for (int i = 0; i < 4; ++i) {
                const int table = (i + repeat) % 4;
                times[action][table].push_back(Seconds(client, Statement(action, Tables[table], rows)));
            }
        client.Run("DELETE FROM AUDIT_LOG_DATA DELETE FROM AUDIT_LOG_TRANSACTIONS");
    }
    for (const int action : {2, 1, 3}) {
        const double ours = Median(times[action][0]);
        const double ratio = ours / Median(times[action][1]);
        isWithin = isWithin && ratio <= 1.2;
        std::printf("%-7s %6d rows %10.3f ms %8.2f by hand %8.2f log alone %9.1f no trigger\n", names[action],
                    rows, ours * 1000, ratio, ours / Median(times[action][2]),
                    ours / Median(times[action][3]));
        std::fflush(stdout);
    }
    return isWithin;
}

int Main() {
    const std::filesystem::path bin = std::filesystem::canonical("/proc/self/exe").parent_path();
    const ServerProcess server(bin, {}, {"--sample"});
    OdbcClient client(server.Port(), "7.4", server.Password());
    Prepare(client, server, bin);
    // An application has an identity value of its own to lose.
    client.Run("CREATE TABLE #own (ID int IDENTITY(5, 1), X int) INSERT INTO #own (X) VALUES (1)");
    std::puts(
        "Time of the profile's trigger, and times as long as with another or none; at most 1.20 by hand.");
    bool isWithin = true;
    for (const int rows : {1, 100, 10000})
        isWithin = Measure(client, rows) && isWithin;
    return isWithin ? 0 : 1;
}

} // namespace
} // namespace quillon::bench

int main() {
    return quillon::bench::Main();
}
