// The include files of the profile in use, in order; only this list counts in a template run.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/ModelCollection.h"

namespace quillon {

class mdInclude : public ModelObject {
  public:
    const std::string& File() const noexcept { return m_file; }
    // A bare name is taken from the current folder, which a run sets to the profile's.
    void SetFile(std::string file) { m_file = std::move(file); }

  private:
    std::string m_file;
};

class mdIncludes : public ModelCollection<mdInclude> {
  public:
    // Nothing, and nothing is added, when exactly this file is in the list. Raises 457 for a key in use.
    Element Add(std::string file, std::string_view key = {});
    void Clear() noexcept { RemoveAll(); }
    // By position from 1. Position 0 and an empty list are accepted in silence: the profile counts from 0 and
    // hands its number on as it is. Raises 9 for any other position that is not there.
    void Remove(std::int32_t index);
};

} // namespace quillon
