// The logins of the server: names, salted password hashes, and what the catalogue tells of them. Kept in one
// small file that only its user can read, replaced as a whole at every change, so that a crash leaves the old
// one or the new one.
//
// Logins are not part of a transaction: a change holds once the function returns.
// All functions may be called from any thread. Names compare without regard to case.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::practice {

struct Account {
    std::string name;
    std::int32_t principalId = 0; // sys.server_principals; sa is 1
    std::string sid;              // bytes: 0x01 for sa, 16 random bytes for others
    std::string defaultDatabase = "master";
    std::string defaultLanguage = "us_english";
    bool disabled = false;
    bool administrator = false; // member of sysadmin
    std::string created;        // UTC, yyyy-mm-dd hh:mm:ss
    std::string modified;
};

class Accounts {
  public:
    // Reads `file`; one that does not exist yet means no logins. Throws std::runtime_error when the file
    // cannot be understood or when others than its user may read it.
    explicit Accounts(std::filesystem::path file);

    // Whether the name exists, is enabled, and has this password. Takes as long for a name that does not
    // exist.
    bool Verify(std::string_view name, std::string_view password) const;

    std::optional<Account> Find(std::string_view name) const;
    std::vector<Account> List() const; // by principalId

    // An empty password is refused with SqlError 15116, here and in ChangePassword.
    // Throws SqlError 15025 when the name exists already. A login made with `administrator` may do
    // everything; the name sa is always one of those.
    Account Create(std::string_view name, std::string_view password, bool administrator = false);
    // The others throw SqlError 15151 when the login does not exist.
    void ChangePassword(std::string_view name, std::string_view password);
    void ChangeDefaults(std::string_view name, std::string_view database,
                        std::string_view language);               // empty: as it was
    void Rename(std::string_view name, std::string_view newName); // and 15025 when newName exists
    void SetDisabled(std::string_view name, bool disabled);
    void SetAdministrator(std::string_view name, bool administrator);
    void Drop(std::string_view name); // sa is refused with 15405

  private:
    struct Entry {
        Account account;
        std::string hash;
    };

    // Applies `change` to a copy of the entries, writes the copy, and only then makes it the truth.
    void Change(const std::function<void(std::vector<Entry>&)>& change);
    static Entry& Require(std::vector<Entry>& entries, std::string_view name);
    static const Entry* Seek(const std::vector<Entry>& entries, std::string_view name);
    void Load();
    void Save(const std::vector<Entry>& entries) const;

    std::filesystem::path m_file;
    mutable std::mutex m_mutex;
    std::vector<Entry> m_entries;
};

} // namespace quillon::practice
