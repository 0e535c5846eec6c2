#include "practice/tds/Inbox.h"

#include <utility>

namespace quillon::practice::tds {

void Inbox::Put(ClientMessage message) {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return m_waiting.empty() || m_closed; });
    if (!m_closed) {
        m_waiting.push_back(std::move(message));
        m_changed.notify_all();
    }
}

void Inbox::PutAttention() {
    std::lock_guard lock(m_mutex);
    m_attention = true;
    for (ClientMessage& message : m_waiting) {
        message.ignored = true;
    }
    CancelRunning();
    m_changed.notify_all();
}

void Inbox::Close() {
    std::lock_guard lock(m_mutex);
    m_closed = true;
    CancelRunning();
    m_changed.notify_all();
}

void Inbox::CancelRunning() {
    if (m_running != nullptr) {
        m_running->Cancel();
    }
}

std::optional<ClientMessage> Inbox::Take() {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return m_attention || !m_waiting.empty() || m_closed; });
    if (m_waiting.empty()) {
        if (!std::exchange(m_attention, false)) {
            return std::nullopt;
        }
        ClientMessage attention;
        attention.type = PacketType::Attention;
        return attention;
    }
    ClientMessage message = std::move(m_waiting.front());
    m_waiting.pop_front();
    m_changed.notify_all();
    return message;
}

bool Inbox::BeginRequest(SqlSession& session) {
    std::lock_guard lock(m_mutex);
    if (m_attention || m_closed) {
        return false;
    }
    session.PrepareRequest();
    m_running = &session;
    return true;
}

bool Inbox::EndRequest() {
    std::lock_guard lock(m_mutex);
    m_running = nullptr;
    return std::exchange(m_attention, false);
}

} // namespace quillon::practice::tds
