#include "practice/session/Accounts.h"

#include "practice/session/PasswordHash.h"
#include "practice/session/PrivateFile.h"
#include "practice/values/Convert.h"
#include "practice/values/SqlError.h"

#include <algorithm>
#include <ctime>
#include <sstream>
#include <stdexcept>

namespace quillon::practice {
namespace {

constexpr std::string_view administratorName = "sa";
constexpr std::int32_t administratorId = 1;
constexpr std::int32_t firstLoginId =
    260; // lower ones belong to roles and logins that a server has by itself

bool SameName(std::string_view left, std::string_view right) {
    return DefaultCollation()->Compare(left, right) == 0;
}

std::string Now() {
    std::time_t now = std::time(nullptr);
    std::tm utc{};
    gmtime_r(&now, &utc);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &utc);
    return text;
}

std::string FromHex(std::string_view hex) {
    std::string bytes;
    for (std::size_t index = 0; index + 1 < hex.size(); index += 2) {
        bytes.push_back(static_cast<char>(std::stoi(std::string(hex.substr(index, 2)), nullptr, 16)));
    }
    return bytes;
}

// Fields stand on one line between tabs; names may hold whatever a name may hold.
std::string Escape(std::string_view text) {
    std::string out;
    for (char character : text) {
        switch (character) {
        case '\\': out += "\\\\"; break;
        case '\t': out += "\\t"; break;
        case '\n': out += "\\n"; break;
        default: out += character;
        }
    }
    return out;
}

std::vector<std::string> SplitFields(const std::string& line) {
    std::vector<std::string> fields(1);
    for (std::size_t index = 0; index < line.size(); ++index) {
        char character = line[index];
        if (character == '\t') {
            fields.emplace_back();
        } else if (character == '\\' && index + 1 < line.size()) {
            char escaped = line[++index];
            fields.back() += escaped == 't' ? '\t' : escaped == 'n' ? '\n' : escaped;
        } else {
            fields.back() += character;
        }
    }
    return fields;
}

void RequirePassword(std::string_view password) {
    if (password.empty())
        throw SqlError(15116);
}

} // namespace

Accounts::Accounts(std::filesystem::path file)
    : m_file(std::move(file)) {
    if (std::filesystem::exists(m_file)) {
        Load();
    }
}

void Accounts::Load() {
    constexpr std::size_t fieldCount = 10;
    std::istringstream lines(ReadPrivateFile(m_file));
    std::string line;
    while (std::getline(lines, line)) {
        std::vector<std::string> fields = SplitFields(line);
        if (fields.size() != fieldCount) {
            throw std::runtime_error(m_file.string() + " is no list of logins");
        }
        Entry entry;
        entry.account.name = fields[0];
        entry.account.principalId = std::stoi(fields[1]);
        entry.account.sid = FromHex(fields[2]);
        entry.account.defaultDatabase = fields[3];
        entry.account.defaultLanguage = fields[4];
        entry.account.disabled = fields[5] == "1";
        entry.account.administrator = fields[6] == "1";
        entry.account.created = fields[7];
        entry.account.modified = fields[8];
        entry.hash = fields[9];
        m_entries.push_back(std::move(entry));
    }
}

void Accounts::Save(const std::vector<Entry>& entries) const {
    std::ostringstream lines;
    for (const auto& [account, hash] : entries) {
        lines << Escape(account.name) << '\t' << account.principalId << '\t' << ToHex(account.sid, false)
              << '\t' << Escape(account.defaultDatabase) << '\t' << Escape(account.defaultLanguage) << '\t'
              << account.disabled << '\t' << account.administrator << '\t' << account.created << '\t'
              << account.modified << '\t' << hash << '\n';
    }
    WritePrivateFile(m_file, lines.str());
}

void Accounts::Change(const std::function<void(std::vector<Entry>&)>& change) {
    std::lock_guard lock(m_mutex);
    std::vector<Entry> entries = m_entries;
    change(entries);
    Save(entries);
    m_entries = std::move(entries);
}

const Accounts::Entry* Accounts::Seek(const std::vector<Entry>& entries, std::string_view name) {
    auto found = std::find_if(entries.begin(), entries.end(),
                              [&](const Entry& entry) { return SameName(entry.account.name, name); });
    return found == entries.end() ? nullptr : &*found;
}

Accounts::Entry& Accounts::Require(std::vector<Entry>& entries, std::string_view name) {
    auto found = std::find_if(entries.begin(), entries.end(),
                              [&](const Entry& entry) { return SameName(entry.account.name, name); });
    if (found == entries.end()) {
        throw SqlError(15151, {"alter", "login", name});
    }
    found->account.modified = Now();
    return *found;
}

bool Accounts::Verify(std::string_view name, std::string_view password) const {
    static const std::string nobodysHash = HashPassword(RandomPassword());
    std::string hash = nobodysHash;
    bool mayEnter = false;
    {
        std::lock_guard lock(m_mutex);
        if (const Entry* entry = Seek(m_entries, name)) {
            hash = entry->hash;
            mayEnter = !entry->account.disabled;
        }
    }
    return MatchesPassword(password, hash) && mayEnter;
}

std::optional<Account> Accounts::Find(std::string_view name) const {
    std::lock_guard lock(m_mutex);
    const Entry* entry = Seek(m_entries, name);
    return entry != nullptr ? std::optional(entry->account) : std::nullopt;
}

std::vector<Account> Accounts::List() const {
    std::lock_guard lock(m_mutex);
    std::vector<Account> accounts;
    for (const Entry& entry : m_entries) {
        accounts.push_back(entry.account);
    }
    std::sort(accounts.begin(), accounts.end(),
              [](const Account& left, const Account& right) { return left.principalId < right.principalId; });
    return accounts;
}

Account Accounts::Create(std::string_view name, std::string_view password, bool administrator) {
    RequirePassword(password);
    Entry entry;
    bool isSa = SameName(name, administratorName);
    entry.account.name = name;
    entry.account.sid = isSa ? std::string(1, '\x01') : RandomBytes(16);
    entry.account.administrator = administrator || isSa;
    entry.account.created = entry.account.modified = Now();
    entry.hash = HashPassword(password);
    Change([&](std::vector<Entry>& entries) {
        if (Seek(entries, name) != nullptr) {
            throw SqlError(15025, {name});
        }
        std::int32_t next = firstLoginId;
        for (const Entry& other : entries) {
            next = std::max(next, other.account.principalId + 1);
        }
        entry.account.principalId = isSa ? administratorId : next;
        entries.push_back(entry);
    });
    return entry.account;
}

void Accounts::ChangePassword(std::string_view name, std::string_view password) {
    RequirePassword(password);
    std::string hash = HashPassword(password);
    Change([&](std::vector<Entry>& entries) { Require(entries, name).hash = hash; });
}

void Accounts::ChangeDefaults(std::string_view name, std::string_view database, std::string_view language) {
    Change([&](std::vector<Entry>& entries) {
        Account& account = Require(entries, name).account;
        account.defaultDatabase = database.empty() ? account.defaultDatabase : std::string(database);
        account.defaultLanguage = language.empty() ? account.defaultLanguage : std::string(language);
    });
}

void Accounts::Rename(std::string_view name, std::string_view newName) {
    Change([&](std::vector<Entry>& entries) {
        Entry& entry = Require(entries, name);
        const Entry* other = Seek(entries, newName);
        if (other != nullptr && other != &entry) {
            throw SqlError(15025, {newName});
        }
        entry.account.name = newName;
    });
}

void Accounts::SetDisabled(std::string_view name, bool disabled) {
    Change([&](std::vector<Entry>& entries) { Require(entries, name).account.disabled = disabled; });
}

void Accounts::SetAdministrator(std::string_view name, bool administrator) {
    Change(
        [&](std::vector<Entry>& entries) { Require(entries, name).account.administrator = administrator; });
}

void Accounts::Drop(std::string_view name) {
    if (SameName(name, administratorName)) {
        throw SqlError(15405, {name});
    }
    Change([&](std::vector<Entry>& entries) {
        if (Seek(entries, name) == nullptr) {
            throw SqlError(15151, {"drop", "login", name});
        }
        std::erase_if(entries, [&](const Entry& entry) { return SameName(entry.account.name, name); });
    });
}

} // namespace quillon::practice
