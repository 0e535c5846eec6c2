// How the tables of the public face are written: one line a member.
//
// Included by the files that define FaceClassOf alone. Texts given by scripts convert as the host converts
// them; the failures of conversion (13, 94 ...) go to the script.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <type_traits>

#include "model/ModelCollection.h"
#include "model/faces/Face.h"
#include "platform/Conversion.h"

namespace quillon {

// A value of the model in the sub-type that scripts get.
template <class T>
Value ToValue(const T& value) {
    return Value(value);
}
template <class T>
Value ToValue(const std::shared_ptr<T>& object) {
    return FaceOf(object);
}

template <class T>
struct FaceTable {
    static T& Self(ModelObject& model) { return static_cast<T&>(model); }

    template <auto Getter>
    static Value Read(ModelObject& model, std::span<Value>) {
        return ToValue(std::invoke(Getter, Self(model)));
    }

    // Writable members are booleans or texts.
    template <auto Setter>
    static void Write(ModelObject& model, const Value& value) {
        if constexpr (std::is_invocable_v<decltype(Setter), T&, bool>)
            std::invoke(Setter, Self(model), conversion::ToBoolean(value));
        else
            std::invoke(Setter, Self(model), conversion::ToText(value));
    }

    template <auto Getter>
    static constexpr FaceMember Get(std::string_view name) {
        return {.name = name, .read = &Read<Getter>};
    }
    template <auto Getter, auto Setter>
    static constexpr FaceMember GetAndSet(std::string_view name) {
        return {.name = name, .read = &Read<Getter>, .write = &Write<Setter>};
    }
    static constexpr FaceMember Method(std::string_view name, std::uint8_t least, std::uint8_t most,
                                       FaceMember::Reader call) {
        return {.name = name, .kind = FaceMember::Kind::Method, .least = least, .most = most, .read = call};
    }

    // --- collections ---
    static Value ReadItem(ModelObject& model, std::span<Value> arguments) {
        return ToValue(Self(model).Item(arguments[0]));
    }
    static std::optional<Value> ReadElement(ModelObject& model, std::size_t position) {
        const T& collection = Self(model);
        if (position >= static_cast<std::size_t>(collection.Count()))
            return std::nullopt;
        return ToValue(collection.begin()[static_cast<std::ptrdiff_t>(position)]);
    }
    static constexpr FaceMember Item() { return {.name = "Item", .least = 1, .most = 1, .read = &ReadItem}; }
    static constexpr FaceMember NewEnum() {
        return {.name = "NewEnum", .kind = FaceMember::Kind::Enumeration};
    }
};

// The shape that the five collections share: a scratch element under its own name, then the rest.
template <class T, auto Scratch>
const FaceClass& CollectionFace(std::string_view typeName, std::string_view scratchName) {
    using Table = FaceTable<T>;
    static const FaceMember members[] = {
        Table::template Get<Scratch>(scratchName),
        Table::Item(),
        Table::template Get<&T::Count>("Count"),
        Table::NewEnum(),
    };
    static const FaceClass face{typeName, members, "Item", &Table::ReadElement};
    return face;
}

} // namespace quillon
