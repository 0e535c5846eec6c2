// What the tests of the script host start from: a host that knows a library.
#pragma once

#include <gtest/gtest.h>

#include "jscript/JScriptHost.h"
#include "jscript/Library.h"
#include "platform/Conversion.h"

namespace quillon::jscript {

class JScriptHostTest : public testing::Test {
  protected:
    JScriptHostTest() { host.AddObject("library", library); }
    ~JScriptHostTest() override { Lib().kept = {}; } // it may have been given itself to keep

    // The value as text; "#number description" for a failure.
    std::string Evaluate(std::string_view expression) {
        try {
            return TextOf(host.Eval(expression));
        } catch (const Failure& failure) {
            return "#" + std::to_string(failure.number()) + " " + failure.description();
        }
    }
    static std::string TextOf(const Value& value) {
        if (value.IsEmpty())
            return "undefined";
        if (value.IsNull())
            return "null";
        if (const auto* object = value.If<ObjectRef>())
            return (*object)->TypeName();
        return conversion::ToText(value);
    }
    // The number that adding and then running the code fails with, 0 if neither does.
    std::int32_t NumberOf(std::string_view code) {
        try {
            host.AddCode(code);
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.number(), host.Error().Number);
            return failure.number();
        }
        return 0;
    }
    Library& Lib() { return static_cast<Library&>(*library); }

    ObjectRef library = MakeObject<Library>();
    JScriptHost host;
};

} // namespace quillon::jscript
