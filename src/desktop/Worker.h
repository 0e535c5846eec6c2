// One thread beside the window's own, for work that blocks. It takes one piece of work at a time.
#pragma once

#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

namespace quillon::desktop {

class Worker {
  public:
    Worker();
    ~Worker();

    // The work must outlive its end, which AwaitEnd tells.
    void Start(const std::function<void()>& work);
    bool AwaitEnd(std::chrono::milliseconds patience);
    // Throws what the work threw.
    void Rethrow();

  private:
    void Run();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    const std::function<void()>* m_work = nullptr; // under way or about to be
    std::exception_ptr m_failure;
    bool m_isEnding = false;
    std::thread m_thread;
};

} // namespace quillon::desktop
