#include "vbscript/machine/ErrObject.h"

#include "platform/FailureNumbers.h"
#include "vbscript/machine/Convert.h"

namespace quillon::vbscript {
namespace {

enum Member : MemberId { Number = 1, Description, Source, HelpFile, HelpContext, Raise, Clear };
constexpr std::string_view Members[] = {"Number",      "Description", "Source", "HelpFile",
                                        "HelpContext", "Raise",       "Clear"};

class ErrObject final : public NativeObject {
  public:
    explicit ErrObject(std::shared_ptr<ErrState> state)
        : m_state(std::move(state)) {}

    std::string TypeName() const override { return "Object"; }
    std::optional<MemberId> FindMember(std::string_view name) const override {
        return FindInTable(Members, name);
    }
    const void* Shape() const noexcept override { return Members; }

    Variant Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) override {
        if (member == DefaultMemberId)
            member = Number;
        if (member == Raise)
            RaiseError(arguments);
        if (member == Clear) {
            if (!arguments.empty())
                throw Failure(numbers::WrongArgumentCount);
            m_state->Clear();
            return {};
        }
        if (kind == InvokeKind::Let && arguments.size() == 1) {
            Write(member, arguments.front());
            return {};
        }
        if (kind == InvokeKind::Set || kind == InvokeKind::Let || !arguments.empty())
            throw Failure(numbers::WrongArgumentCount);
        return Read(member);
    }

  private:
    Variant Read(MemberId member) const {
        switch (member) {
        case Number: return m_state->number;
        case Description: return Text::FromUtf8(m_state->description);
        case Source: return Text::FromUtf8(m_state->source);
        case HelpFile: return Text::FromUtf8(m_state->helpFile);
        case HelpContext: return m_state->helpContext;
        default: throw Failure(numbers::MemberNotSupported);
        }
    }

    void Write(MemberId member, const Variant& value) {
        switch (member) {
        case Number: m_state->number = ToLong(value); break;
        case Description: m_state->description = ToText(value).ToUtf8(); break;
        case Source: m_state->source = ToText(value).ToUtf8(); break;
        case HelpFile: m_state->helpFile = ToText(value).ToUtf8(); break;
        case HelpContext: m_state->helpContext = ToLong(value); break;
        default: throw Failure(numbers::MemberNotSupported);
        }
    }

    // Err.Raise number [, source [, description [, help file [, help context]]]]
    [[noreturn]] void RaiseError(std::span<Variant> arguments) {
        if (arguments.empty() || arguments.size() > 5)
            throw Failure(numbers::WrongArgumentCount);
        const std::int32_t number = ToLong(arguments[0]);
        constexpr std::int32_t largest = 0xFFFF; // negative ones are automation errors
        if (number == 0 || number > largest)
            throw Failure(numbers::InvalidCall);
        const auto text = [&](std::size_t place, const std::string& otherwise) {
            const bool given = place < arguments.size() && !arguments[place].IsMissing();
            return given ? ToText(arguments[place]).ToUtf8() : otherwise;
        };
        const std::string source = text(1, m_state->source);
        const std::string description = text(2, m_state->description);
        const std::string helpFile = text(3, m_state->helpFile);
        if (arguments.size() > 4 && !arguments[4].IsMissing())
            m_state->helpContext = ToLong(arguments[4]);
        m_state->helpFile = helpFile;
        m_state->isRaising = true;
        throw Failure(LowNumber(number), description, source);
    }

    std::shared_ptr<ErrState> m_state;
};

} // namespace

std::string DescriptionOf(const Failure& failure) {
    if (!failure.description().empty())
        return failure.description();
    const std::string_view known = FailureText(LowNumber(failure.number()));
    return std::string(known.empty() ? "Unknown runtime error" : known);
}

void ErrState::Take(const Failure& failure) {
    number = LowNumber(failure.number());
    description = DescriptionOf(failure);
    source = failure.source().empty() ? std::string(RuntimeSource) : failure.source();
    if (!std::exchange(isRaising, false)) {
        helpFile.clear();
        helpContext = 0;
    }
}

ObjectRef MakeErr(std::shared_ptr<ErrState> state) {
    return MakeObject<ErrObject>(std::move(state));
}

bool IsErr(const Variant& value) noexcept {
    return value.kind() == Kind::ScriptObject &&
           dynamic_cast<const ErrObject*>(value.AsObject().get()) != nullptr;
}

} // namespace quillon::vbscript
