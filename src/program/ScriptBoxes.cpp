#include "program/ScriptBoxes.h"

#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "platform/ScriptHost.h"

namespace quillon {
namespace {

constexpr std::int32_t ButtonBits = 0x0f;
constexpr std::int32_t IconBits = 0x70;

Buttons ButtonsOf(std::int32_t number) {
    switch (number & ButtonBits) {
    case 1: return Buttons::OkCancel;
    case 2: return Buttons::AbortRetryIgnore;
    case 3: return Buttons::YesNoCancel;
    case 4: return Buttons::YesNo;
    case 5: return Buttons::RetryCancel;
    default: return Buttons::Ok;
    }
}

Icon IconOf(std::int32_t number) {
    switch (number & IconBits) {
    case 16: return Icon::Critical;
    case 32: return Icon::Question;
    case 48: return Icon::Warning;
    case 64: return Icon::Information;
    default: return Icon::None;
    }
}

class Boxes final : public ScriptSite {
  public:
    std::int32_t ScriptMessage(const std::string& prompt, std::int32_t buttons,
                               const std::string& title) override {
        return static_cast<std::int32_t>(
            ThePlatform().frontEnd().Message(prompt, title, IconOf(buttons), ButtonsOf(buttons)));
    }
    std::string ScriptInput(const std::string& prompt, const std::string& title,
                            const std::string& defaultText) override {
        return ThePlatform().frontEnd().AskText(prompt, title, defaultText);
    }
};

} // namespace

ScriptSite& TheScriptBoxes() {
    static Boxes boxes;
    return boxes;
}

} // namespace quillon
