// Any program runs, for a limited time and in limited memory, to its end or to a failure, and leaves no
// late-bound object held; afterwards the host goes on as before.

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <string_view>
#include <thread>

#include "jscript/JScriptHost.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace {

using namespace quillon;

void Require(bool condition) {
    if (!condition)
        std::abort();
}

// Of(key), the default, and Kept: one value that is read and written; Items, a collection of two; Make,
// another such object; Grid, an array; Fail; Echo(value).
class Library final : public Object {
  public:
    Library() { ++alive; }
    ~Library() override { --alive; }

    std::string TypeName() const override { return "Library"; }
    std::optional<MemberId> FindMember(std::string_view name) const override {
        const auto* const found = std::find(std::begin(Names), std::end(Names), name);
        return found == std::end(Names) ? std::nullopt : std::optional(static_cast<MemberId>(found - Names));
    }
    Value Invoke(MemberId member, InvokeKind kind, std::span<Value> arguments) override {
        const bool writes = kind == InvokeKind::Let || kind == InvokeKind::Set;
        const std::size_t wanted = (member == 0 || member == 6 ? 1 : 0) + (writes ? 1 : 0);
        if (arguments.size() != wanted)
            throw Failure(numbers::WrongArgumentCount);
        if (writes && member > 1)
            throw Failure(numbers::MemberNotSupported);
        switch (member) {
        case 0:
        case 1:
            if (writes && !arguments.back().IsObject()) // no circles, which counting cannot end
                m_kept = arguments.back();
            return m_kept;
        case 2: return ObjectRef(this);
        case 3: return MakeObject<Library>();
        case 4: {
            const auto grid = std::make_shared<ArrayValue>();
            grid->upperBounds = {1, 0};
            grid->elements = {Value(std::int32_t{1}), Value("two")};
            return Value(std::shared_ptr<const ArrayValue>(grid));
        }
        case 5: throw Failure(numbers::SubscriptOutOfRange);
        default: return arguments[0];
        }
    }
    std::unique_ptr<ObjectEnumerator> Enumerate() override {
        class Walk final : public ObjectEnumerator {
          public:
            std::optional<Value> Next() override {
                return m_left-- > 0 ? std::optional<Value>(MakeObject<Library>()) : std::nullopt;
            }

          private:
            int m_left = 2;
        };
        return std::make_unique<Walk>();
    }

    static inline int alive = 0;

  private:
    static constexpr std::string_view Names[] = {"Of", "Kept", "Items", "Make", "Grid", "Fail", "Echo"};
    Value m_kept;
};

// Stops the host's script when its time is over, and what it may have begun by then.
class TimeLimit {
  public:
    explicit TimeLimit(jscript::JScriptHost& host)
        : m_watch([this, &host] {
            std::unique_lock lock(m_mutex);
            while (!m_ended.wait_for(lock, std::chrono::milliseconds(50), [this] { return m_over; }))
                host.Stop();
        }) {}
    ~TimeLimit() {
        {
            const std::lock_guard lock(m_mutex);
            m_over = true;
        }
        m_ended.notify_one();
        m_watch.join();
    }

  private:
    std::mutex m_mutex;
    std::condition_variable m_ended;
    bool m_over = false;
    std::thread m_watch;
};

template <class Entry>
void Enter(jscript::JScriptHost& host, Entry entry) {
    try {
        entry();
    } catch (const Failure& failure) {
        const ScriptError& error = host.Error();
        Require(error.Number == 0 || error.Number == failure.number());
        Require(error.Line >= 0 && error.Column >= 0);
    }
}

void RunOnce(jscript::JScriptHost& host, std::string_view program) {
    const TimeLimit limit(host);
    Enter(host, [&] { host.AddCode(program); });
    Enter(host, [&] { (void)host.Eval("result"); });
    Enter(host, [&] { (void)host.Run("main"); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static jscript::JScriptHost host({}, std::size_t{16} << 20);
    const std::string_view program(reinterpret_cast<const char*>(data), size);
    {
        const ObjectRef library = MakeObject<Library>();
        host.AddObject("library", library, true);
        RunOnce(host, program);
        RunOnce(host, program);
        host.Reset();
    }
    Require(Library::alive == 0);
    Require(host.Eval("1 + 1") == Value(std::int32_t{2}));
    return 0;
}
