#include "adapters/files/DiskFiles.h"

#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "adapters/files/FileState.h"
#include "adapters/files/LineFile.h"
#include "adapters/files/NativePath.h"
#include "adapters/files/ReadBytes.h"
#include "adapters/files/ReplacedFile.h"
#include "adapters/files/SystemFailure.h"
#include "adapters/files/UserFolders.h"

namespace quillon::adapters {
namespace {

std::string ChooseApplicationFolder(const std::string& executableFolder, const std::string& dataFolder) {
    if (IsWritableFolder(executableFolder))
        return executableFolder;
    MakePrivateFolder(dataFolder);
    return dataFolder;
}

// A program that the system installed shares its folder with others, whoever may write there.
bool IsSystemFolder(const std::string& folder) {
    return folder.starts_with("/usr/");
}

std::string PreferredFolder() {
    const std::string wanted = WantedApplicationFolder();
    if (wanted.empty())
        return IsSystemFolder(ExecutableFolder()) ? std::string() : ExecutableFolder();
    MakePrivateFolder(wanted);
    return wanted;
}

} // namespace

DiskFiles::DiskFiles(const std::string& executableFolder, const std::string& dataFolder)
    : m_applicationFolder(FromNative(ChooseApplicationFolder(executableFolder, dataFolder))) {}

DiskFiles::DiskFiles()
    : DiskFiles(PreferredFolder(), UserDataFolder()) {}

bool DiskFiles::Exists(const std::string& path) const {
    return !path.empty() && IsFile(ToNative(path));
}

bool DiskFiles::IsReadOnly(const std::string& path) const {
    const std::string native = ToNative(path);
    if (!IsFile(native))
        RaiseSystemFailure(ENOENT, native);
    return IsMarkedReadOnly(native);
}

std::string DiskFiles::CurrentFolder() const {
    std::error_code error;
    const auto folder = std::filesystem::current_path(error);
    if (error)
        RaiseSystemFailure(error.value(), ".");
    return FromNative(folder.string());
}

void DiskFiles::ChangeFolder(const std::string& folder) {
    // The folder part of a file at the top is empty.
    const std::string native = folder.empty() ? "/" : ToNative(folder);
    if (chdir(native.c_str()) == 0)
        return;
    const int error = errno;
    RaiseSystemFailure(error == ENOENT ? ENOTDIR : error, native);
}

std::unique_ptr<LineReader> DiskFiles::OpenInput(const std::string& path) {
    return std::make_unique<BufferedLineReader>(ToNative(path));
}

std::unique_ptr<FileWriter> DiskFiles::OpenOutput(const std::string& path) {
    return std::make_unique<BufferedFileWriter>(ToNative(path), BufferedFileWriter::Start::Afresh);
}

std::unique_ptr<FileWriter> DiskFiles::OpenAppend(const std::string& path) {
    return std::make_unique<BufferedFileWriter>(ToNative(path), BufferedFileWriter::Start::AtEnd);
}

std::string DiskFiles::ReadAll(const std::string& path) {
    return ReadBytes(ToNative(path));
}

void DiskFiles::Replace(const std::string& path, std::string_view contents, bool isPrivate) {
    ReplacedFile file(ToNative(path), isPrivate);
    file.Write(contents);
    file.Commit();
}

void DiskFiles::Delete(const std::string& path) {
    const std::string native = ToNative(path);
    if (unlink(native.c_str()) < 0)
        RaiseSystemFailure(errno, native);
}

} // namespace quillon::adapters
