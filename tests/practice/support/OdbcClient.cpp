#include "practice/support/OdbcClient.h"

#include <array>
#include <stdexcept>

namespace quillon::practice::testing {
namespace {

SQLCHAR* Characters(const std::string& text) {
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

class Statement {
  public:
    explicit Statement(SQLHDBC connection) { SQLAllocHandle(SQL_HANDLE_STMT, connection, &m_handle); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement() { SQLFreeHandle(SQL_HANDLE_STMT, m_handle); }
    SQLHSTMT Handle() const { return m_handle; }

  private:
    SQLHSTMT m_handle = nullptr;
};

std::string ReadColumn(SQLHSTMT statement, SQLUSMALLINT column) {
    std::string text;
    std::array<char, 4096> buffer;
    while (true) {
        SQLLEN length = 0;
        SQLRETURN result = SQLGetData(statement, column, SQL_C_CHAR, buffer.data(), buffer.size(), &length);
        if (result == SQL_NO_DATA) {
            return text;
        }
        if (!SQL_SUCCEEDED(result)) {
            return "?";
        }
        if (length == SQL_NULL_DATA) {
            return "-";
        }
        text += buffer.data();
        if (result == SQL_SUCCESS) {
            return text;
        }
    }
}

} // namespace

OdbcClient::OdbcClient(std::uint16_t port, const std::string& tdsVersion, const std::string& password,
                       const std::string& login) {
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &m_environment);
    SQLSetEnvAttr(m_environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection);
    const std::string text =
        "Driver=/usr/lib/x86_64-linux-gnu/odbc/libtdsodbc.so;Server=127.0.0.1;Port=" + std::to_string(port) +
        ";UID=" + login + ";PWD=" + password + ";TDS_Version=" + tdsVersion + ";ClientCharset=UTF-8";
    SQLRETURN result = SQLDriverConnect(m_connection, nullptr, Characters(text), SQL_NTS, nullptr, 0, nullptr,
                                        SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(result)) {
        std::string why = Diagnostics(SQL_HANDLE_DBC, m_connection, true);
        SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
        SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
        throw std::runtime_error(why);
    }
}

OdbcClient::~OdbcClient() {
    SQLDisconnect(m_connection);
    SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
    SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
}

std::string OdbcClient::Diagnostics(SQLSMALLINT kind, SQLHANDLE handle, bool numbers) const {
    std::string all;
    std::array<SQLCHAR, 6> state{};
    std::array<SQLCHAR, 2048> text{};
    SQLINTEGER number = 0;
    for (SQLSMALLINT record = 1; SQL_SUCCEEDED(
             SQLGetDiagRec(kind, handle, record, state.data(), &number, text.data(), text.size(), nullptr));
         ++record) {
        std::string message = reinterpret_cast<const char*>(text.data());
        message = message.substr(message.rfind(']') + 1); // the driver's prefixes
        all += (all.empty() ? "" : "; ") + (numbers ? std::to_string(number) + " " : std::string()) + message;
    }
    return all;
}

void OdbcClient::CollectRows(SQLHSTMT statement, SQLSMALLINT columns,
                             std::vector<std::string>& answers) const {
    while (SQL_SUCCEEDED(SQLFetch(statement))) {
        std::string row = "row ";
        for (SQLSMALLINT column = 1; column <= columns; ++column) {
            row += (column > 1 ? "|" : "") + ReadColumn(statement, static_cast<SQLUSMALLINT>(column));
        }
        answers.push_back(row);
    }
}

void OdbcClient::Collect(SQLHSTMT statement, SQLRETURN result, std::vector<std::string>& answers) const {
    while (result != SQL_NO_DATA) {
        if (result != SQL_SUCCESS) {
            std::string diagnostics = Diagnostics(SQL_HANDLE_STMT, statement, true);
            answers.push_back((SQL_SUCCEEDED(result) ? "info " : "error ") + diagnostics);
            if (!SQL_SUCCEEDED(result) && diagnostics.empty()) {
                return;
            }
        }
        SQLSMALLINT columns = 0;
        if (SQL_SUCCEEDED(result) && SQL_SUCCEEDED(SQLNumResultCols(statement, &columns)) && columns > 0) {
            CollectRows(statement, columns, answers);
        }
        SQLLEN count = -1;
        if (SQL_SUCCEEDED(result) && columns == 0 && SQL_SUCCEEDED(SQLRowCount(statement, &count)) &&
            count >= 0) {
            answers.push_back("count " + std::to_string(count));
        }
        result = SQLMoreResults(statement);
    }
}

std::vector<std::string> OdbcClient::Run(const std::string& text) {
    Statement statement(m_connection);
    std::vector<std::string> answers;
    Collect(statement.Handle(), SQLExecDirect(statement.Handle(), Characters(text), SQL_NTS), answers);
    return answers;
}

void OdbcClient::Stream(const std::string& text, const std::function<void()>& onRow, long most) {
    Statement statement(m_connection);
    if (!SQL_SUCCEEDED(SQLExecDirect(statement.Handle(), Characters(text), SQL_NTS))) {
        throw std::runtime_error(Diagnostics(SQL_HANDLE_STMT, statement.Handle(), true));
    }
    for (long row = 0; row != most && SQL_SUCCEEDED(SQLFetch(statement.Handle())); ++row) {
        onRow();
    }
    SQLCancel(statement.Handle());
}

std::vector<std::string> OdbcClient::RunPrepared(const std::string& text, const std::vector<int>& values) {
    Statement statement(m_connection);
    std::vector<std::string> answers;
    SQLPrepare(statement.Handle(), Characters(text), SQL_NTS);
    SQLINTEGER value = 0;
    SQLLEN indicator = 0;
    SQLBindParameter(statement.Handle(), 1, SQL_PARAM_INPUT, SQL_C_LONG, SQL_INTEGER, 0, 0, &value, 0,
                     &indicator);
    for (int each : values) {
        value = each;
        Collect(statement.Handle(), SQLExecute(statement.Handle()), answers);
        SQLFreeStmt(statement.Handle(), SQL_CLOSE);
    }
    return answers;
}

std::string OdbcClient::Call(const std::string& procedure, int value) {
    Statement statement(m_connection);
    SQLINTEGER status = -1;
    SQLINTEGER out = -1;
    SQLINTEGER in = value;
    SQLLEN ok = 0;
    SQLHSTMT handle = statement.Handle();
    SQLBindParameter(handle, 1, SQL_PARAM_OUTPUT, SQL_C_LONG, SQL_INTEGER, 0, 0, &status, 0, &ok);
    SQLBindParameter(handle, 2, SQL_PARAM_INPUT, SQL_C_LONG, SQL_INTEGER, 0, 0, &in, 0, &ok);
    SQLBindParameter(handle, 3, SQL_PARAM_INPUT_OUTPUT, SQL_C_LONG, SQL_INTEGER, 0, 0, &out, 0, &ok);
    std::vector<std::string> answers;
    Collect(handle, SQLExecDirect(handle, Characters("{?=call " + procedure + "(?,?)}"), SQL_NTS), answers);
    return "status " + std::to_string(status) + ", out " + std::to_string(out);
}

void OdbcClient::SetAutocommit(bool on) {
    SQLSetConnectAttr(m_connection, SQL_ATTR_AUTOCOMMIT,
                      reinterpret_cast<SQLPOINTER>(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), 0);
}

void OdbcClient::EndTransaction(bool commit) {
    SQLEndTran(SQL_HANDLE_DBC, m_connection, commit ? SQL_COMMIT : SQL_ROLLBACK);
}

} // namespace quillon::practice::testing
