// Reading a million rows through a recordset, beside a bare loop over the same driver: processor time of this
// process, the lesser of three goes each, in one run. Promised: at most 1.3 times. Exit 1 when it is more.
#include <sql.h>
#include <sqlext.h>
#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <stdexcept>

#include "adapters/odbc/ConnectionText.h"
#include "adapters/odbc/Link.h"
#include "adapters/odbc/OdbcDataAccess.h"
#include "platform/Object.h"
#include "practice/support/ServerProcess.h"

namespace {

using namespace quillon;

constexpr double MostTimes = 1.3;
constexpr int Goes = 3;
constexpr std::size_t Rows = 1000000;

// As a log of changes has them.
constexpr const char* Fill =
    "CREATE TABLE half (id int NOT NULL, name nvarchar(50), old varchar(100) NULL, moment datetime, "
    "amount decimal(12, 2))\n"
    "SET NOCOUNT ON DECLARE @n int SET @n = 0 WHILE @n < 1000 BEGIN INSERT half VALUES (@n, N'column ' + "
    "STR(@n), "
    "'some former value', GETDATE(), @n / 7.0) SET @n = @n + 1 END";
constexpr const char* Query = "SELECT a.id, a.name, b.old, b.moment, b.amount FROM half a CROSS JOIN half b";

double ProcessorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

std::size_t ReadBare(adapters::Link& link) {
    const adapters::Handle statement(SQL_HANDLE_STMT, link.handle().get());
    SQLExecDirect(statement.get(), reinterpret_cast<SQLCHAR*>(const_cast<char*>(Query)), SQL_NTS);
    SQLINTEGER id = 0;
    char name[201], old[401], amount[40];
    SQL_TIMESTAMP_STRUCT moment{};
    SQLLEN lengths[5] = {};
    SQLBindCol(statement.get(), 1, SQL_C_SLONG, &id, sizeof id, &lengths[0]);
    SQLBindCol(statement.get(), 2, SQL_C_CHAR, name, sizeof name, &lengths[1]);
    SQLBindCol(statement.get(), 3, SQL_C_CHAR, old, sizeof old, &lengths[2]);
    SQLBindCol(statement.get(), 4, SQL_C_TYPE_TIMESTAMP, &moment, sizeof moment, &lengths[3]);
    SQLBindCol(statement.get(), 5, SQL_C_CHAR, amount, sizeof amount, &lengths[4]);
    std::size_t rows = 0;
    while (SQL_SUCCEEDED(SQLFetch(statement.get())))
        ++rows;
    return rows;
}

std::size_t ReadRecordset(data::DataAccess& access, const data::ConnectionRef& connection) {
    const auto recordset = access.NewRecordset();
    recordset->Open(Query, connection, data::CursorType::ForwardOnly, data::LockType::ReadOnly);
    std::size_t rows = 0;
    for (; !recordset->Eof(); recordset->MoveNext(), ++rows)
        for (std::size_t field = 0; field < recordset->FieldCount(); ++field)
            if (recordset->FieldAt(field).Value.IsEmpty())
                throw std::runtime_error("a value is missing");
    return rows;
}

template <class Read>
double SecondsOf(Read&& read) {
    const double start = ProcessorSeconds();
    if (read() != Rows)
        throw std::runtime_error("rows are missing");
    return ProcessorSeconds() - start;
}

} // namespace

int main() {
    const practice::testing::ServerProcess process(
        std::filesystem::canonical("/proc/self/exe").parent_path());
    const std::string server = "127.0.0.1," + std::to_string(process.Port());
    adapters::OdbcDataAccess access;
    const auto connection = access.NewConnection();
    connection->Open("Data Source=" + server + ";User ID=sa;Password=" + process.Password() + ";");
    const auto command = access.NewCommand();
    command->SetActiveConnection(connection);
    command->SetCommandText(Fill);
    command->Execute();
    const adapters::ConnectionParts parts{server, "", "sa", process.Password(), false};
    adapters::Link link(parts.DriverText(), 15, std::make_shared<std::vector<data::Error>>());
    double bare = 1e9, recordset = 1e9;
    for (int go = 0; go < Goes; ++go) {
        bare = std::min(bare, SecondsOf([&] { return ReadBare(link); }));
        recordset = std::min(recordset, SecondsOf([&] { return ReadRecordset(access, connection); }));
    }
    std::printf("%zu rows: bare loop %.2f s, recordset %.2f s of processor time; %.2f times\n", Rows, bare,
                recordset, recordset / bare);
    return recordset <= MostTimes * bare ? 0 : 1;
}
