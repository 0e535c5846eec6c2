#include "bench/practice/SoakClient.h"

#include "practice/support/OdbcClient.h"

#include <chrono>
#include <memory>
#include <random>
#include <thread>
#include <vector>

#include <unistd.h>

namespace quillon::practice::bench {
namespace {

class Client {
  public:
    Client(std::uint16_t port, const std::string& password, int number, Promise& promise)
        : m_port(port)
        , m_password(password)
        , m_number(std::to_string(number))
        , m_random(static_cast<unsigned>(number))
        , m_promise(promise) {
        Connect();
    }

    void Step() {
        switch (m_random() % 8) {
        case 0: RollBack(); return;
        case 1: Read(); return;
        case 2: AbandonResult(); return;
        default: Write(1 + static_cast<int>(m_random() % 4));
        }
    }

  private:
    using Answers = std::vector<std::string>;

    // The server may be down for a moment: it is killed as well.
    void Connect() {
        for (int attempt = 0; attempt < mostAttempts; ++attempt) {
            try {
                m_odbc = std::make_unique<testing::OdbcClient>(m_port, "7.4", m_password);
                return;
            } catch (const std::exception&) {
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
            }
        }
        Fail();
    }

    void Fail() { m_promise.failures = m_promise.failures + 1; }

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
        const Answers answers = m_odbc->Run("SET NOCOUNT ON SET XACT_ABORT ON BEGIN TRANSACTION " +
                                            Inserts(count) + "COMMIT SELECT @@TRANCOUNT");
        if (answers == Answers{"row 0"}) {
            m_promise.promised = m_promise.promised + count;
        } else {
            Recover();
        }
        m_promise.pending = 0;
    }

    void RollBack() { m_odbc->Run("SET NOCOUNT ON BEGIN TRANSACTION " + Inserts(3) + "ROLLBACK"); }

    Answers CountOwn() { return m_odbc->Run("SELECT COUNT(*) FROM soak WHERE client = " + m_number); }

    void Read() {
        if (CountOwn() != Answers{"row " + std::to_string(m_promise.promised)}) {
            Recover();
        }
    }

    // An answer was not the one expected: right only when the server has gone. Then all of what it had
    // promised is there once it is back, and what was pending is there as a whole or not at all.
    void Recover() {
        if (m_odbc->Run("SELECT 1") == Answers{"row 1"}) {
            Fail();
            return;
        }
        Answers found;
        do {
            Connect();
            found = CountOwn();
        } while (found.empty() || !found.front().starts_with("row "));
        const std::int64_t all = m_promise.promised + m_promise.pending;
        if (found == Answers{"row " + std::to_string(all)}) {
            m_promise.promised = all;
        } else if (found != Answers{"row " + std::to_string(m_promise.promised)}) {
            Fail();
        }
    }

    // Reads a few rows of a large result and then cancels it, as a person who has seen enough.
    void AbandonResult() {
        try {
            m_odbc->Stream(
                "SELECT a.number, b.note FROM soak a CROSS JOIN soak b", [] {}, 10);
        } catch (const std::exception&) {
            Recover();
        }
    }

    static constexpr int mostAttempts = 600;

    std::uint16_t m_port;
    std::string m_password;
    std::string m_number;
    std::mt19937 m_random;
    Promise& m_promise;
    std::unique_ptr<testing::OdbcClient> m_odbc;
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
