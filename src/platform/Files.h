// The file system as the system sees it: paths in the form its texts show, folders joined by "\".
//
// Used by: scratch files and triggers.sql, selection files, include files, profiles, exports, the failure
// report. Implemented by: adapters/files, which turns a path into the platform's form and back
// ("\home\ann\x.qlnx" is /home/ann/x.qlnx); a relative path is taken from the current folder. Failures: 52
// (bad name), 53 (not found), 55 (already open), 61 (disk full), 70 (permission), 75, 76 (path).
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace quillon {

// A file open for reading by lines. CR LF, LF and CR all end a line; a last line need not end.
class LineReader {
  public:
    virtual ~LineReader() = default;
    // False at the end of the file.
    virtual bool ReadLine(std::string& line) = 0;
};

// A file open for writing. What was written is on disk after Close; the destructor closes and keeps silent.
class FileWriter {
  public:
    virtual ~FileWriter() = default;
    virtual void Write(std::string_view text) = 0;
    // Text and CR LF.
    virtual void WriteLine(std::string_view text) = 0;
    virtual void Close() = 0;
};

class Files {
  public:
    virtual ~Files() = default;

    // The folder of the executable, or the per-user data folder when that cannot be written; no trailing
    // separator.
    virtual std::string ApplicationFolder() const = 0;

    virtual bool Exists(const std::string& path) const = 0;
    virtual bool IsReadOnly(const std::string& path) const = 0;
    virtual std::string CurrentFolder() const = 0;
    virtual void ChangeFolder(const std::string& folder) = 0;

    virtual std::unique_ptr<LineReader> OpenInput(const std::string& path) = 0;
    virtual std::unique_ptr<FileWriter> OpenOutput(const std::string& path) = 0; // empties an existing file
    virtual std::unique_ptr<FileWriter> OpenAppend(const std::string& path) = 0;

    // Whole contents as bytes.
    virtual std::string ReadAll(const std::string& path) = 0;
    // Puts new contents in place of a user's file whole or not at all: a temporary file renamed over the old
    // one. With `isPrivate` the file can be read by its owner alone.
    virtual void Replace(const std::string& path, std::string_view contents, bool isPrivate = false) = 0;
    virtual void Delete(const std::string& path) = 0;
};

} // namespace quillon
