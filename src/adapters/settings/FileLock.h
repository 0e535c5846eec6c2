// A lock between programs: held while the object lives, let go by the operating system when a program dies.
#pragma once

#include <chrono>
#include <string>

#include "adapters/files/Descriptor.h"

namespace quillon::adapters {

class FileLock {
  public:
    // Makes the file, private to its user, when it is missing. Raises 70 when another program still holds the
    // lock after `wait`.
    FileLock(const std::string& nativePath, std::chrono::milliseconds wait);

  private:
    Descriptor m_file; // closing it unlocks
};

} // namespace quillon::adapters
