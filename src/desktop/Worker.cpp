#include "desktop/Worker.h"

namespace quillon::desktop {

Worker::Worker()
    : m_thread([this] { Run(); }) {}

Worker::~Worker() {
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void Worker::Start(const std::function<void()>& work) {
    {
        const std::lock_guard lock(m_mutex);
        m_work = &work;
    }
    m_changed.notify_all();
}

bool Worker::AwaitEnd(std::chrono::milliseconds patience) {
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, patience, [this] { return m_work == nullptr; });
}

void Worker::Rethrow() {
    if (const std::exception_ptr failure = std::exchange(m_failure, nullptr))
        std::rethrow_exception(failure);
}

void Worker::Run() {
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_work != nullptr || m_isEnding; });
        if (m_isEnding)
            return;
        lock.unlock();
        std::exception_ptr failure;
        try {
            (*m_work)();
        } catch (...) {
            failure = std::current_exception();
        }
        lock.lock();
        m_failure = failure;
        m_work = nullptr;
        m_changed.notify_all();
    }
}

} // namespace quillon::desktop
