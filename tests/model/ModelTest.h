// What tests of the model share: the platform of doubles, a model of one database, and late-bound calls by
// name.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "model/faces/ModelFaces.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "support/MemorySettings.h"
#include "support/ScriptedFrontEnd.h"

namespace quillon::tests {

class ModelTest : public testing::Test {
  protected:
    ModelTest() { g_objTrace = std::make_unique<Trace>(); }
    ~ModelTest() override {
        g_objTrace.reset();
        g_objSQLServer.reset();
        g_strDatabase.clear();
        g_strArchFile.clear();
        mdLanguages::Hooks() = {};
    }

    static std::shared_ptr<mdField> Field(const char* name, const char* type = "int") {
        auto field = std::make_shared<mdField>();
        field->SetName(name);
        field->SetSQL_Datatype(type);
        return field;
    }

    // A table dbo.NAME with the columns id and note.
    static std::shared_ptr<mdTable> AddTable(AuditObj& audit, const char* name) {
        auto table = audit.Database()->Tables()->Add(name, "dbo", DateValue{36526});
        table->Fields()->Add(Field("id"));
        table->Fields()->Add(Field("note", "nvarchar"));
        return table;
    }

    // --- as a script does it ---
    static Value Invoke(const ObjectRef& object, InvokeKind kind, const char* name,
                        std::initializer_list<Value> arguments) {
        const auto member = object->FindMember(name);
        if (!member)
            throw Failure(numbers::MemberNotSupported);
        std::vector<Value> passed(arguments);
        return object->Invoke(*member, kind, passed);
    }
    static Value Get(const ObjectRef& object, const char* name, std::initializer_list<Value> arguments = {}) {
        return Invoke(object, InvokeKind::Get, name, arguments);
    }
    static ObjectRef GetObject(const ObjectRef& object, const char* name,
                               std::initializer_list<Value> arguments = {}) {
        return Get(object, name, arguments).As<ObjectRef>();
    }

    // Number of the failure, 0 when there is none; its description in `description`.
    template <class Body>
    std::int32_t FailureOf(Body&& body) {
        try {
            body();
            return 0;
        } catch (const Failure& failure) {
            description = failure.description();
            source = failure.source();
            return failure.number();
        }
    }

    std::string description;
    std::string source;
    ScriptedFrontEnd frontEnd;
    MemorySettings settings;
    Platform platform{{.frontEnd = &frontEnd, .settings = &settings}};
    std::shared_ptr<AuditObj> audit = std::make_shared<AuditObj>();
};

} // namespace quillon::tests
