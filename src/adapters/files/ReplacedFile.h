// Puts new contents in place of a file whole or not at all.
//
// The contents go to a temporary file beside it, to the disk, and only then under the file's name. Whatever
// stops the work before Commit has ended, a crash included, leaves the former file as it was. Used by: the
// files and settings adapters.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "adapters/files/Descriptor.h"

namespace quillon::adapters {

class ReplacedFile {
  public:
    // A private file can be read and written by its owner alone; any other keeps the rights of the former
    // file. A symbolic link stays, and its target is replaced. Raises 75 for a file marked read-only.
    ReplacedFile(const std::string& nativePath, bool isPrivate);
    // Without a Commit the temporary file goes and the former one stays.
    ~ReplacedFile();
    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;

    void Write(std::string_view bytes) { m_temporary->Write(bytes); }
    void Commit();

  private:
    void MakeTemporary(bool isPrivate);

    std::string m_target;
    std::unique_ptr<Descriptor> m_temporary;
    bool m_committed = false;
};

} // namespace quillon::adapters
