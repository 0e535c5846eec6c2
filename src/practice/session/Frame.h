// Frame: one running batch, dynamic text, procedure, function or trigger: its variables, its cursors, its
// caught errors, and what it must give back when it ends. Frames form a stack; the Session owns it.
#pragma once

#include "practice/session/Cursor.h"
#include "practice/statements/ExecutionContext.h"
#include "practice/tsql/Tree.h"

#include <list>

namespace quillon::practice {

enum class FrameKind { Batch, Text, Procedure, Function, Trigger };

/// Who the session is for the time being: EXECUTE AS changes it, REVERT gives it back.
struct Impersonation {
    std::string login;       // empty: of a user without one
    DatabaseId database = 0; // of the user; 0: the login itself, with its user in whatever database
    PrincipalId user = 0;

    bool IsUser() const { return database != 0; }
};

struct Frame {
    FrameKind kind = FrameKind::Batch;
    std::shared_ptr<const Module> module; // none for batches, texts and procedures of the system
    std::shared_ptr<const tsql::Batch> tree;
    std::string name; // of the module, as messages tell it

    std::unordered_map<std::string, Variable> variables; // by folded name
    std::unordered_map<std::string, const tsql::DeclareTableStatement*> tableDeclarations;
    std::vector<std::shared_ptr<const Table>> ownTables; // of table variables, dropped with the frame
    std::unordered_map<std::string, std::shared_ptr<Cursor>> cursors; // local ones, and variables by @name

    const TriggerFrame* trigger = nullptr;
    Datum scopeIdentity;
    std::optional<Datum> returned; // the value of RETURN
    int failure = 0;               // the severity of the last error of a statement that was not caught
    bool finished = false;
    std::list<CaughtError> caught; // of the CATCH blocks that run, the innermost last
    bool guarded = false;          // the running step stands in a TRY block of this frame
    bool guardedOutside = false;   // one of the frames around has such a step
    int nestLevel = 0;
    std::size_t identities = 0; // impersonations that REVERT leaves alone: they were there before the body
    std::optional<Impersonation> caller; // where the module runs as somebody else
    int line = 1;                        // of the running statement
};

} // namespace quillon::practice
