#include "vbscript/VbScriptHost.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "vbscript/machine/Convert.h"
#include "vbscript/machine/Machine.h"

namespace quillon::vbscript {
namespace {

std::string LineIn(std::string_view text, std::int32_t line) {
    for (std::size_t start = 0; line > 0; --line) {
        const std::size_t end = std::min(text.find_first_of("\r\n", start), text.size());
        if (line == 1)
            return std::string(text.substr(start, end - start));
        if (end == text.size())
            break;
        start = end + (text.substr(end, 2) == "\r\n" ? 2 : 1);
    }
    return {};
}

ScriptError ErrorOf(const ScriptFailure& failure) {
    ScriptError error;
    error.Number = LowNumber(failure.number());
    error.Description = DescriptionOf(failure);
    if (!failure.detail.empty())
        error.Description += ": '" + failure.detail + "'";
    error.Line = failure.place.line;
    error.Column = failure.place.column;
    error.Text = failure.text;
    error.Source = failure.source().empty() ? std::string(RuntimeSource) : failure.source();
    return error;
}

ScriptError ErrorOf(const CompileFailure& failure, std::string_view text) {
    ScriptError error;
    error.Number = failure.number();
    error.Description = failure.description();
    error.Line = failure.place().line;
    error.Column = failure.place().column;
    error.Text = LineIn(text, failure.place().line);
    error.Source = failure.source();
    return error;
}

ScriptError ErrorOf(const Failure& failure) {
    ScriptError error;
    error.Number = LowNumber(failure.number());
    error.Description = DescriptionOf(failure);
    error.Source = failure.source();
    return error;
}

} // namespace

VbScriptHost::VbScriptHost(ScriptSite* site)
    : m_machine(std::make_unique<Machine>()) {
    m_machine->SetSite(site);
}

VbScriptHost::~VbScriptHost() = default;

void VbScriptHost::Reset() {
    m_machine->Reset();
    m_error = {};
}

void VbScriptHost::SetLanguage(std::string_view name) {
    const std::u16string wanted(name.begin(), name.end());
    if (CompareIgnoringCase(wanted, u"VBScript") != 0)
        throw Failure(numbers::InvalidPropertyValue);
    m_hasLanguage = true;
}

void VbScriptHost::RequireLanguage() const {
    if (!m_hasLanguage)
        throw Failure(numbers::InvalidCall);
}

void VbScriptHost::AddObject(std::string_view name, ObjectRef object, bool addMembers) {
    RequireLanguage();
    m_machine->AddObject(name, object, addMembers);
}

// Runs `work`; what it raises is kept in Error and goes on to the caller.
template <class Work>
auto VbScriptHost::Guarded(std::string_view text, Work work) {
    RequireLanguage();
    const auto raise = [&](ScriptError error) {
        m_error = std::move(error);
        throw Failure(m_error.Number, m_error.Description, m_error.Source);
    };
    try {
        auto result = work();
        m_error = {};
        return result;
    } catch (const ScriptFailure& failure) {
        raise(ErrorOf(failure));
    } catch (const CompileFailure& failure) {
        raise(ErrorOf(failure, text));
    } catch (const Failure& failure) {
        raise(ErrorOf(failure));
    } catch (const ScriptStopped& stopped) {
        raise(ErrorOf(ScriptFailure(Failure(numbers::ScriptStopped), {}, stopped.place, stopped.text)));
    }
    throw Failure(numbers::InternalError);
}

void VbScriptHost::AddCode(std::string_view text) {
    Guarded(text, [&] {
        m_machine->AddCode(Text::FromUtf8(text).View());
        return true;
    });
}

Value VbScriptHost::Run(std::string_view procedure, std::span<Value> arguments) {
    RequireLanguage();
    const Code* code = m_machine->FindProcedure(procedure);
    if (code == nullptr) {
        m_error = {};
        throw Failure(numbers::InvalidCall);
    }
    return Guarded({}, [&] {
        std::vector<Variant> variants;
        variants.reserve(arguments.size());
        for (const Value& argument : arguments)
            variants.push_back(FromValue(argument));
        return ToValue(m_machine->Run(*code, variants));
    });
}

Value VbScriptHost::Eval(std::string_view expression) {
    return Guarded(expression, [&] { return ToValue(m_machine->Eval(Text::FromUtf8(expression).View())); });
}

void VbScriptHost::Stop() {
    m_machine->Stop();
}

std::int32_t VbScriptHost::CurrentLine() const noexcept {
    return m_machine->CurrentPlace().line;
}

void VbScriptHost::SetStepLimit(std::uint64_t steps) {
    m_machine->SetStepLimit(steps);
}

} // namespace quillon::vbscript
