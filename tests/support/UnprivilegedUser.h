// Rights that are refused cannot be seen by the superuser, whom they do not bind: while this lives, such a
// process acts as somebody else. Anybody else stays who he is.
#pragma once

#include <unistd.h>

namespace quillon::tests {

class UnprivilegedUser {
  public:
    UnprivilegedUser()
        : m_user(geteuid()) {
        if (m_user == 0 && seteuid(Nobody) != 0)
            throw std::runtime_error("the process cannot act as an unprivileged user");
    }
    ~UnprivilegedUser() {
        if (m_user == 0 && seteuid(m_user) != 0)
            std::terminate(); // every later test would run as somebody else
    }
    UnprivilegedUser(const UnprivilegedUser&) = delete;
    UnprivilegedUser& operator=(const UnprivilegedUser&) = delete;

  private:
    static constexpr uid_t Nobody = 65534;
    uid_t m_user;
};

} // namespace quillon::tests
