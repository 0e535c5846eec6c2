#include "runner/Client.h"

#include <array>
#include <sstream>
#include <stdexcept>

namespace quillon::conformance {

namespace {

// The line of a message within its batch or module, where the driver tells it.
constexpr SQLSMALLINT lineOfMessage = -1154;

SQLCHAR* Characters(const std::string& text) {
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

bool IsBinary(SQLHSTMT statement, SQLUSMALLINT column) {
    SQLLEN type = 0;
    SQLColAttribute(statement, column, SQL_DESC_CONCISE_TYPE, nullptr, 0, nullptr, &type);
    return type == SQL_BINARY || type == SQL_VARBINARY || type == SQL_LONGVARBINARY;
}

// Bytes come as hex digits, which ODBC wants in upper case and not every driver writes so.
std::string UpperCase(std::string text) {
    for (char& c : text)
        c = c >= 'a' && c <= 'f' ? static_cast<char>(c - 32) : c;
    return text;
}

std::string ReadColumn(SQLHSTMT statement, SQLUSMALLINT column) {
    std::string text;
    int parts = 0;
    std::array<char, 4096> buffer{};
    for (;;) {
        SQLLEN length = 0;
        const SQLRETURN result = SQLGetData(statement, column, SQL_C_CHAR, buffer.data(),
                                            static_cast<SQLLEN>(buffer.size()), &length);
        if (result == SQL_NO_DATA)
            return text;
        if (!SQL_SUCCEEDED(result))
            throw std::runtime_error("the driver cannot read a column");
        if (length == SQL_NULL_DATA)
            return "NULL";
        text += buffer.data();
        if (result == SQL_SUCCESS)
            return IsBinary(statement, column) ? UpperCase(std::move(text)) : text;
        if (buffer.front() == '\0' || ++parts > 100'000)
            throw std::runtime_error("the driver gives a column in parts without an end");
    }
}

std::string NameOfColumn(SQLHSTMT statement, SQLUSMALLINT column) {
    std::array<SQLCHAR, 512> name{};
    SQLSMALLINT length = 0;
    SQLDescribeCol(statement, column, name.data(), static_cast<SQLSMALLINT>(name.size()), &length, nullptr,
                   nullptr, nullptr, nullptr);
    return reinterpret_cast<const char*>(name.data());
}

// When the first answer to a batch is an error, the driver manager believes that nothing follows, and what
// does is lost. So a row of our own goes before each batch, on its first line, so that lines keep their
// numbers.
constexpr const char* openingColumn = "opening of the batch";
const std::string opening = std::string("SELECT 0 AS [") + openingColumn + "]; ";

// Definitions of modules and schemas must be the first statement of their batch.
bool MustStandAlone(const std::string& batch) {
    std::istringstream words(batch);
    std::string verb, kind;
    words >> verb >> kind;
    if (verb != "CREATE" && verb != "ALTER")
        return false;
    if (kind == "OR") // CREATE OR ALTER
        words >> verb >> kind;
    return kind == "VIEW" || kind == "PROCEDURE" || kind == "PROC" || kind == "FUNCTION" ||
           kind == "TRIGGER" || kind == "SCHEMA" || kind == "DEFAULT" || kind == "RULE";
}

// Changes of database and language are told by every USE; drivers differ in whether they pass them on.
bool IsRoutine(int number) {
    return number == 5701 || number == 5703;
}

// Messages to which drivers give the state of the error that they stand for.
bool IsWarning(int number) {
    constexpr int overflow = 3606;
    constexpr int division = 3607;
    return number == overflow || number == division;
}

} // namespace

Client::Client(const std::string& connectionString) {
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &m_environment);
    SQLSetEnvAttr(m_environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection);
    const SQLRETURN result = SQLDriverConnect(m_connection, nullptr, Characters(connectionString), SQL_NTS,
                                              nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    if (SQL_SUCCEEDED(result))
        return;
    std::vector<Answer> answers;
    CollectMessages(SQL_HANDLE_DBC, m_connection, answers);
    SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
    SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
    throw std::runtime_error("cannot connect: " + (answers.empty() ? std::string() : answers.front().text));
}

Client::~Client() {
    SQLDisconnect(m_connection);
    SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
    SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
}

bool Client::CollectMessages(SQLSMALLINT kind, SQLHANDLE handle, std::vector<Answer>& answers) const {
    bool found = false;
    std::array<SQLCHAR, 6> state{};
    std::array<SQLCHAR, 4096> text{};
    SQLINTEGER number = 0;
    for (SQLSMALLINT record = 1;
         SQL_SUCCEEDED(SQLGetDiagRec(kind, handle, record, state.data(), &number, text.data(),
                                     static_cast<SQLSMALLINT>(text.size()), nullptr));
         ++record) {
        found = true;
        if (IsRoutine(number))
            continue;
        Answer answer;
        const std::string stateText = reinterpret_cast<const char*>(state.data());
        answer.kind =
            stateText.starts_with("01") || IsWarning(number) ? Answer::Kind::Message : Answer::Kind::Error;
        answer.number = number;
        answer.text = reinterpret_cast<const char*>(text.data());
        while (answer.text.starts_with("[") && answer.text.find(']') != std::string::npos)
            answer.text.erase(0, answer.text.find(']') + 1); // the names of driver and server
        SQLINTEGER line = 0;
        if (SQL_SUCCEEDED(SQLGetDiagField(kind, handle, record, lineOfMessage, &line, 0, nullptr)))
            answer.line = line;
        answers.push_back(std::move(answer));
    }
    return found;
}

void Client::CollectRows(SQLHSTMT statement, SQLSMALLINT columns, std::vector<Answer>& answers) const {
    Answer names;
    names.kind = Answer::Kind::Columns;
    for (SQLSMALLINT column = 1; column <= columns; ++column)
        names.text += (column > 1 ? "|" : "") + NameOfColumn(statement, static_cast<SQLUSMALLINT>(column));
    answers.push_back(std::move(names));
    SQLRETURN result = SQL_SUCCESS;
    while (SQL_SUCCEEDED(result = SQLFetch(statement))) {
        Answer row;
        for (SQLSMALLINT column = 1; column <= columns; ++column)
            row.text += (column > 1 ? "|" : "") + ReadColumn(statement, static_cast<SQLUSMALLINT>(column));
        answers.push_back(std::move(row));
    }
    if (result == SQL_ERROR)
        CollectMessages(SQL_HANDLE_STMT, statement, answers);
}

void Client::Collect(SQLHSTMT statement, SQLRETURN result, std::vector<Answer>& answers) const {
    while (result != SQL_NO_DATA) {
        const bool told = result == SQL_SUCCESS || CollectMessages(SQL_HANDLE_STMT, statement, answers);
        if (!SQL_SUCCEEDED(result) && !told)
            return;
        SQLSMALLINT columns = 0;
        SQLLEN count = -1;
        if (SQL_SUCCEEDED(result) && SQL_SUCCEEDED(SQLNumResultCols(statement, &columns)) && columns > 0) {
            CollectRows(statement, columns, answers);
        } else if (SQL_SUCCEEDED(result) && SQL_SUCCEEDED(SQLRowCount(statement, &count)) && count >= 0) {
            Answer answer;
            answer.kind = Answer::Kind::Count;
            answer.text = std::to_string(count);
            answers.push_back(std::move(answer));
        }
        result = SQLMoreResults(statement);
    }
}

std::vector<Answer> Client::Run(const std::string& batch) {
    std::vector<Answer> answers;
    const bool isOpened = !MustStandAlone(batch);
    const std::string text = isOpened ? opening + batch : batch;
    SQLHSTMT statement = nullptr;
    SQLAllocHandle(SQL_HANDLE_STMT, m_connection, &statement);
    Collect(statement, SQLExecDirect(statement, Characters(text), SQL_NTS), answers);
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    if (isOpened && answers.size() > 1 && answers[0].kind == Answer::Kind::Columns &&
        answers[0].text == openingColumn)
        answers.erase(answers.begin(), answers.begin() + 2);
    return answers;
}

} // namespace quillon::conformance
