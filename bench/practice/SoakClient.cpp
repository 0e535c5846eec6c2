#include "bench/practice/SoakClient.h"

#include "practice/support/OdbcClient.h"

#include <random>
#include <vector>

#include <unistd.h>

namespace quillon::practice::bench {
namespace {

class Client {
  public:
    Client(std::uint16_t port, const std::string& password, int number, Promise& promise)
        : m_odbc(port, "7.4", password)
        , m_number(std::to_string(number))
        , m_random(static_cast<unsigned>(number))
        , m_promise(promise) {}

    void Step() {
        switch (m_random() % 8) {
        case 0: RollBack(); return;
        case 1: Read(); return;
        case 2: AbandonResult(); return;
        default: Write(1 + static_cast<int>(m_random() % 4));
        }
    }

  private:
    std::string Inserts(int count) {
        std::string text;
        for (int index = 1; index <= count; ++index) {
            text += "INSERT soak VALUES (" + m_number + ", " + std::to_string(m_promise.promised + index) +
                    ", REPLICATE(N'x', " + std::to_string(m_random() % 100) + ")) ";
        }
        return text + "UPDATE total SET rowsWritten = rowsWritten + " + std::to_string(count) +
               " WHERE id = 1 ";
    }

    void Write(int count) {
        m_promise.pending = count;
        std::vector<std::string> answers = m_odbc.Run("SET NOCOUNT ON SET XACT_ABORT ON BEGIN TRANSACTION " +
                                                      Inserts(count) + "COMMIT SELECT @@TRANCOUNT");
        if (answers == std::vector<std::string>{"row 0"}) {
            m_promise.promised = m_promise.promised + count;
        } else {
            ++m_failures;
            m_promise.failures = m_failures;
        }
        m_promise.pending = 0;
    }

    void RollBack() { m_odbc.Run("SET NOCOUNT ON BEGIN TRANSACTION " + Inserts(3) + "ROLLBACK"); }

    void Read() {
        std::vector<std::string> answers = m_odbc.Run("SELECT COUNT(*) FROM soak WHERE client = " + m_number);
        if (answers != std::vector<std::string>{"row " + std::to_string(m_promise.promised)}) {
            ++m_failures;
            m_promise.failures = m_failures;
        }
    }

    // Reads a few rows of a large result and then cancels it, as a person who has seen enough.
    void AbandonResult() {
        int seen = 0;
        m_odbc.Stream(
            "SELECT a.number, b.note FROM soak a CROSS JOIN soak b", [&] { ++seen; }, 10);
    }

    testing::OdbcClient m_odbc;
    std::string m_number;
    std::mt19937 m_random;
    Promise& m_promise;
    std::int64_t m_failures = 0;
};

} // namespace

void RunSoakClient(std::uint16_t port, const std::string& password, int client, Promise& promise) {
    try {
        Client worker(port, password, client, promise);
        while (true) {
            worker.Step();
        }
    } catch (const std::exception&) {
        promise.failures = promise.failures + 1;
        _exit(1);
    }
}

} // namespace quillon::practice::bench
