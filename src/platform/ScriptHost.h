// A host that runs script code against the system's objects: the Script Control's operations.
//
// Used by: the template run, include files, the template editor, the console's script command.
// Implemented by: adapters/script (which picks the engine by Language) over vbscript/ and jscript/.
// One module: code added later joins it, a later definition of a name replaces an earlier one.
//
// Failures: compile-time errors leave from AddCode, run-time errors from Run and Eval, as Failure with the
// number that Error holds too (the low number: 13, not a code with a facility). Nothing but Language and
// Reset works before Language is set. A failed call leaves the host usable.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/ObjectRef.h"
#include "platform/Value.h"

namespace quillon {

// Details of the last failure of the host; all zero and empty after a successful AddCode, Run or Eval.
struct ScriptError {
    std::int32_t Number = 0;
    std::string Description;
    std::int32_t Line = 0;   // 1-based line of the text that was added; 0 if unknown
    std::int32_t Column = 0; // 0-based, in characters
    std::string Text;        // the source line
    std::string Source; // "Microsoft VBScript compilation error", "... runtime error", or what Err.Raise gave
};

// Boxes that script code may show.
class ScriptSite {
  public:
    virtual ~ScriptSite() = default;
    // MsgBox: buttons as the host language numbers them; the answer likewise (1 OK, 2 Cancel, 6 Yes, 7 No
    // ...).
    virtual std::int32_t ScriptMessage(const std::string& prompt, std::int32_t buttons,
                                       const std::string& title) = 0;
    // InputBox: the text typed, empty after Cancel.
    virtual std::string ScriptInput(const std::string& prompt, const std::string& title,
                                    const std::string& defaultText) = 0;
};

class ScriptHost {
  public:
    virtual ~ScriptHost() = default;

    // Forgets all code and objects; keeps the language.
    virtual void Reset() = 0;

    // "VBScript" or "JScript", without regard to case; empty at first. Setting anything else raises 380.
    virtual std::string Language() const = 0;
    virtual void SetLanguage(std::string_view name) = 0;

    // Gives the module a global name for an object. With addMembers its members become global names too.
    virtual void AddObject(std::string_view name, ObjectRef object, bool addMembers = false) = 0;

    virtual void AddCode(std::string_view text) = 0;

    // Calls a procedure. An unknown name is a failure of the call (5) that leaves Error.Number 0.
    virtual Value Run(std::string_view procedure, std::span<Value> arguments = {}) = 0;
    virtual Value Eval(std::string_view expression) = 0;

    // One object for the life of the host.
    virtual const ScriptError& Error() const = 0;

    // Ends the running script as soon as the engine can; callable from a site call or a host object's member.
    virtual void Stop() = 0;
};

} // namespace quillon
