#include "runner/Script.h"

#include <fstream>
#include <stdexcept>

namespace quillon::conformance {

namespace {

constexpr const char* mark = "--> ";
constexpr const char* switchMark = "--@ ";

bool IsBlank(const std::string& text) {
    return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

class Reader {
  public:
    void Line(const std::string& line) {
        ++m_line;
        if (line.starts_with(mark)) {
            m_batch.isChecked = true;
            if (line.substr(4) != "nothing")
                m_batch.expected.push_back(ReadExpected(line.substr(4)));
            return;
        }
        if (m_batch.isChecked)
            Finish();
        if (line.starts_with(switchMark)) {
            Finish();
            SwitchTo(line.substr(4));
        } else if (line == "GO") {
            Finish();
        } else {
            if (m_batch.text.empty() && (IsBlank(line) || line.starts_with("--")))
                return; // what stands before a batch does not count among its lines
            if (m_batch.text.empty())
                m_batch.firstLine = m_line;
            m_batch.text += line + "\n";
        }
    }

    std::vector<ScriptBatch> End() {
        Finish();
        return std::move(m_batches);
    }

  private:
    void SwitchTo(std::string name) {
        m_goesOn = name.ends_with(" &");
        if (m_goesOn)
            name.resize(name.size() - 2);
        m_connection = name == "first" ? std::string() : name;
    }

    void Finish() {
        if (!IsBlank(m_batch.text)) {
            m_batch.connection = m_connection;
            m_batch.goesOn = m_goesOn;
            m_goesOn = false;
            m_batches.push_back(std::move(m_batch));
        } else if (m_batch.isChecked) {
            throw std::runtime_error("line " + std::to_string(m_line) + ": an expectation without a batch");
        }
        m_batch = {};
    }

    std::vector<ScriptBatch> m_batches;
    ScriptBatch m_batch;
    std::string m_connection;
    bool m_goesOn = false;
    int m_line = 0;
};

} // namespace

std::vector<ScriptBatch> ReadScript(const std::filesystem::path& file) {
    std::ifstream input(file);
    if (!input)
        throw std::runtime_error("cannot read " + file.string());
    Reader reader;
    for (std::string line; std::getline(input, line);) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        reader.Line(line);
    }
    return reader.End();
}

} // namespace quillon::conformance
