// Runs the scripts of tests/conformance/vbscript; their README.md says how they state what they expect.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "HostObjects.h"
#include "platform/Conversion.h"
#include "vbscript/VbScriptHost.h"
#include "vbscript/machine/Heap.h"

namespace quillon::vbscript::tests {
namespace {

namespace fs = std::filesystem;

const fs::path& ScriptsFolder() {
    static const fs::path folder = fs::path(QUILLON_SOURCE_DIR) / "tests/conformance/vbscript";
    return folder;
}

std::vector<std::string> ScriptNames() {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(ScriptsFolder()))
        if (entry.path().extension() == ".vbs")
            names.push_back(fs::relative(entry.path(), ScriptsFolder()).generic_string());
    std::ranges::sort(names);
    return names;
}

struct ExpectedError {
    std::int32_t line = 0; // 0: none
    std::int32_t number = 0;
    std::string description;
};

// What the comments of a script expect: texts by line, and at most one error that ends the script.
struct Expectations {
    std::map<std::int32_t, std::vector<std::string>> said;
    ExpectedError error;
};

std::string Trimmed(std::string text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\r' || c == '\t'; };
    while (!text.empty() && isBlank(text.back()))
        text.pop_back();
    while (!text.empty() && isBlank(text.front()))
        text.erase(0, 1);
    return text;
}

// A text may stand in quotes, for the blanks at its ends.
std::string Unquoted(const std::string& text) {
    const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    return quoted ? text.substr(1, text.size() - 2) : text;
}

std::vector<std::string> PartsOf(const std::string& list) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t bar = list.find(" | "); bar != std::string::npos; bar = list.find(" | ", start)) {
        parts.push_back(Unquoted(Trimmed(list.substr(start, bar - start))));
        start = bar + 3;
    }
    parts.push_back(Unquoted(Trimmed(list.substr(start))));
    return parts;
}

Expectations ExpectationsIn(const std::string& script) {
    Expectations expected;
    std::istringstream lines(script);
    std::string line;
    for (std::int32_t number = 1; std::getline(lines, line); ++number) {
        if (const std::size_t at = line.rfind("'= "); at != std::string::npos)
            expected.said[number] = PartsOf(line.substr(at + 3));
        if (const std::size_t at = line.rfind("'! "); at != std::string::npos) {
            std::istringstream rest(line.substr(at + 3));
            expected.error.line = number;
            rest >> expected.error.number;
            std::getline(rest, expected.error.description);
            expected.error.description = Trimmed(expected.error.description);
        }
    }
    return expected;
}

// What Say shows of a value: Empty, Null and Nothing by name.
std::string Shown(const Value& value) {
    switch (value.Type()) {
    case ValueType::Empty: return "Empty";
    case ValueType::Null: return "Null";
    case ValueType::Object: return value.As<ObjectRef>() ? "Object" : "Nothing";
    case ValueType::Array: return "Array";
    default: return conversion::ToText(value);
    }
}

// Collects what a script says, by the line that said it.
class Listener : public ScriptSite {
  public:
    explicit Listener(VbScriptHost*& host)
        : m_host(host) {}
    void Hear(const std::string& text) { said[m_host->CurrentLine()].push_back(text); }
    std::int32_t ScriptMessage(const std::string& prompt, std::int32_t buttons,
                               const std::string& title) override {
        Hear(prompt + "/" + std::to_string(buttons) + "/" + title);
        return 6;
    }
    std::string ScriptInput(const std::string& prompt, const std::string& title,
                            const std::string& text) override {
        Hear(prompt + "/" + title + "/" + text);
        return "typed";
    }
    std::map<std::int32_t, std::vector<std::string>> said;

  private:
    VbScriptHost*& m_host;
};

ObjectRef MakeSay(Listener& listener) {
    auto* object = new FreeObject("Say");
    ObjectRef reference(object);
    object->Add("Say", [&listener](InvokeKind, std::span<Value> arguments) {
        std::string text;
        for (const Value& argument : arguments)
            text += (text.empty() ? "" : " ") + Shown(argument);
        listener.Hear(text);
        return Value();
    });
    return reference;
}

class Conformance : public testing::TestWithParam<std::string> {};

TEST_P(Conformance, Script) {
    std::ifstream file(ScriptsFolder() / GetParam(), std::ios::binary);
    const std::string script{std::istreambuf_iterator<char>(file), {}};
    const Expectations expected = ExpectationsIn(script);
    ASSERT_TRUE(!expected.said.empty() || expected.error.line != 0) << "the script expects nothing";

    Heap::SetLimit(std::size_t{64} << 20); // for the scripts that run into it
    VbScriptHost* running = nullptr;
    Listener listener(running);
    VbScriptHost host(&listener);
    running = &host;
    host.SetLanguage("VBScript");
    host.AddObject("Talk", MakeSay(listener), true);
    host.AddObject("Host", MakeHostObject());
    host.SetStepLimit(50'000'000);
    try {
        host.AddCode(script);
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number(), host.Error().Number);
    }
    const ScriptError& error = host.Error();
    EXPECT_EQ(error.Number, expected.error.number) << error.Description << " in line " << error.Line;
    if (error.Number != 0 && expected.error.number != 0) {
        EXPECT_EQ(error.Line, expected.error.line) << error.Description;
        if (!expected.error.description.empty()) {
            EXPECT_EQ(error.Description, expected.error.description);
        }
    }
    for (const auto& [line, texts] : expected.said)
        EXPECT_EQ(listener.said[line], texts) << "in line " << line;
    for (const auto& [line, texts] : listener.said)
        EXPECT_TRUE(expected.said.contains(line)) << "unexpected in line " << line << ": " << texts.front();
}

std::string TestName(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param.substr(0, info.param.size() - 4);
    for (char& c : name)
        c = std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
    return name;
}

INSTANTIATE_TEST_SUITE_P(Scripts, Conformance, testing::ValuesIn(ScriptNames()), TestName);

} // namespace
} // namespace quillon::vbscript::tests
