// The path of the profile in two parts, which keeps the session's g_strArchFile in step.
//
// A word of the object model that the code assistance offers; the root holds a profile object in its place.
#pragma once

#include <string>

#include "model/ModelObject.h"

namespace quillon {

class mdTemplate : public ModelObject {
  public:
    const std::string& FileNameOnly() const noexcept { return m_fileName; }
    const std::string& PathNameOnly() const noexcept { return m_folder; }
    const std::string& FilePathAndName() const noexcept; // the session's path

    // Raise 0x80040069 with the source "Quillon Object Model" for an empty text; the path then stays.
    void SetFileNameOnly(const std::string& name);
    void SetPathNameOnly(const std::string& folder);
    void SetFilePathAndName(const std::string& path);

  private:
    void PublishPath() const;

    std::string m_fileName;
    std::string m_folder;
};

} // namespace quillon
