#include "model/mdTemplate.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "shell/Session.h"
#include "template/basStringFunctions.h"

namespace quillon {
namespace {

void RequireText(const std::string& text, const char* property) {
    if (text.empty())
        throw Failure(numbers::ModelPathEmpty, std::string(property) + " property can not be empty",
                      "Quillon Object Model");
}

} // namespace

const std::string& mdTemplate::FilePathAndName() const noexcept {
    return g_strArchFile;
}

void mdTemplate::SetFileNameOnly(const std::string& name) {
    RequireText(name, "FileNameOnly");
    m_fileName = name;
    PublishPath();
}

void mdTemplate::SetPathNameOnly(const std::string& folder) {
    RequireText(folder, "PathNameOnly");
    m_folder = folder;
    PublishPath();
}

void mdTemplate::SetFilePathAndName(const std::string& path) {
    m_fileName = basStringFunctions::JustFileName(path);
    m_folder = basStringFunctions::JustFilePath(path);
    g_strArchFile = path;
}

void mdTemplate::PublishPath() const {
    g_strArchFile = m_folder + "\\" + m_fileName;
}

} // namespace quillon
