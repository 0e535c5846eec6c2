// The main screen's progress on a terminal: one line, written over and over, gone at the end. In a pipe
// nothing.
#pragma once

#include <cstddef>
#include <cstdio>

namespace quillon::console {

class Progress {
  public:
    explicit Progress(std::FILE* terminal);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

  private:
    void Show();

    std::FILE* m_terminal; // none when it is no terminal
    std::size_t m_observation = 0;
    bool m_isShown = false;
};

} // namespace quillon::console
