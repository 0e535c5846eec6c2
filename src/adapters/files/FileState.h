// What the operating system says of a file, by its native path.
#pragma once

#include <string>

namespace quillon::adapters {

bool IsFile(const std::string& nativePath); // exists and is no folder
bool IsFolder(const std::string& nativePath);
// Nobody may write it, or this user may not. False for a file that does not exist.
bool IsMarkedReadOnly(const std::string& nativePath);
// A folder in which this user may make files.
bool IsWritableFolder(const std::string& nativePath);
// Makes the folder, and those above it, for this user alone where they are missing. Raises 70, 75, 76 ...
void MakePrivateFolder(const std::string& nativePath);
// Takes the rights of others from a folder that may have been made with more; one of another owner stays.
void TakeFolderFromOthers(const std::string& nativePath);

} // namespace quillon::adapters
