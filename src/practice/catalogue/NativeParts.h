// What the native procedures share. Not for other rooms.
#pragma once

#include "practice/catalogue/SystemProcedures.h"

namespace quillon::practice {

// An argument as text; empty when it is NULL or was not given.
std::string TextArgument(std::span<const Datum> arguments, std::size_t index);

// A name of up to three parts that stands for an object of the current database, with a column or index
// behind it where `hasMember`. Parts that are missing are empty.
struct NamedItem {
    std::shared_ptr<const SchemaObject> object;
    std::string member;
};
NamedItem FindNamedItem(NativeHost& host, const std::string& text, bool hasMember);

template <typename Object>
std::shared_ptr<Object> CopyOf(const std::shared_ptr<const SchemaObject>& object) {
    const auto typed = std::dynamic_pointer_cast<const Object>(object);
    return typed ? std::make_shared<Object>(*typed) : nullptr;
}

void Put(NativeHost& host, std::shared_ptr<SchemaObject> object);

int Bind(NativeHost& host, std::span<const Datum> arguments);           // BindProcedures.cpp
int ChangeProperty(NativeHost& host, std::span<const Datum> arguments); // ExtendedProperties.cpp
// MessageProcedures.cpp
int AddMessage(NativeHost& host, std::span<const Datum> arguments);
int AlterMessage(NativeHost& host, std::span<const Datum> arguments);
int DropMessage(NativeHost& host, std::span<const Datum> arguments);

} // namespace quillon::practice
