// Late-bound objects for the tests of the script host: a library with shelves of books.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Object.h"

namespace quillon::jscript {

inline bool SameName(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](char a, char b) {
        return (a >= 'A' && a <= 'Z' ? a | 0x20 : a) == (b >= 'A' && b <= 'Z' ? b | 0x20 : b);
    });
}

// An object whose members are a list of names, numbered from 1.
class Named : public Object {
  public:
    std::optional<MemberId> FindMember(std::string_view name) const override {
        for (std::size_t i = 0; i < m_names.size(); ++i) {
            if (SameName(m_names[i], name))
                return static_cast<MemberId>(i + 1);
        }
        return std::nullopt;
    }

  protected:
    explicit Named(std::vector<std::string> names)
        : m_names(std::move(names)) {}

    static bool Writes(InvokeKind kind) { return kind == InvokeKind::Let || kind == InvokeKind::Set; }
    static void Require(bool condition, std::int32_t number) {
        if (!condition)
            throw Failure(number);
    }

  private:
    std::vector<std::string> m_names;
};

// Title (default), Pages (written and read), Open: a method that counts its calls; Added: a date.
class Book final : public Named {
  public:
    explicit Book(std::string title)
        : Named({"Title", "Pages", "Open", "Opened", "Added", "Extra"})
        , m_title(std::move(title)) {}

    std::string TypeName() const override { return "Book"; }
    Value Invoke(MemberId member, InvokeKind kind, std::span<Value> arguments) override {
        switch (member) {
        case DefaultMemberId:
        case 1:
            if (Writes(kind))
                throw Failure(numbers::NotACollection, "Object not a collection: 'Title'");
            Require(arguments.empty(), numbers::WrongArgumentCount);
            return Value(m_title);
        case 2:
            if (Writes(kind)) {
                m_pages = arguments[0];
                return {};
            }
            return m_pages;
        case 3: Require(arguments.size() <= 1, numbers::WrongArgumentCount); return ++m_opened;
        case 4: return m_opened;
        case 5: return DateValue{38045.5};
        default:
            throw Failure(static_cast<std::int32_t>(0x80040E21), "link broken: \xC3\xA9\xF0\x9F\x93\x9A");
        }
    }

  private:
    std::string m_title;
    Value m_pages = std::int32_t{100};
    std::int32_t m_opened = 0;
};

// Count, Item (default, by number from 1; written to with another book).
class Shelf final : public Named {
  public:
    explicit Shelf(std::vector<ObjectRef> books)
        : Named({"Count", "Item"})
        , m_books(std::move(books)) {}

    std::string TypeName() const override { return "Shelf"; }
    Value Invoke(MemberId member, InvokeKind kind, std::span<Value> arguments) override {
        if (member == 1)
            return static_cast<std::int32_t>(m_books.size());
        Require(arguments.size() == (Writes(kind) ? 2 : 1), numbers::WrongArgumentCount);
        const auto* const index = arguments[0].If<std::int32_t>();
        Require(index != nullptr, numbers::TypeMismatch);
        Require(*index >= 1 && static_cast<std::size_t>(*index) <= m_books.size(),
                numbers::SubscriptOutOfRange);
        ObjectRef& book = m_books[static_cast<std::size_t>(*index) - 1];
        if (Writes(kind)) {
            Require(arguments[1].IsObject(), numbers::ObjectRequired);
            book = arguments[1].As<ObjectRef>();
        }
        return book;
    }
    std::unique_ptr<ObjectEnumerator> Enumerate() override {
        class Walk final : public ObjectEnumerator {
          public:
            explicit Walk(std::vector<ObjectRef> books)
                : m_books(std::move(books)) {}
            std::optional<Value> Next() override {
                return m_next == m_books.size() ? std::nullopt : std::optional<Value>(m_books[m_next++]);
            }

          private:
            std::vector<ObjectRef> m_books;
            std::size_t m_next = 0;
        };
        return std::make_unique<Walk>(m_books);
    }

  private:
    std::vector<ObjectRef> m_books;
};

// Of(key), the default: a number that is read and written, 0 at first.
class Tally final : public Named {
  public:
    Tally()
        : Named({"Of"}) {}

    std::string TypeName() const override { return "Tally"; }
    Value Invoke(MemberId, InvokeKind kind, std::span<Value> arguments) override {
        Require(arguments.size() == (Writes(kind) ? 2 : 1), numbers::WrongArgumentCount);
        Value& number = m_numbers.try_emplace(arguments[0].As<std::string>(), std::int32_t{0}).first->second;
        if (Writes(kind))
            number = arguments[1];
        return number;
    }

  private:
    std::map<std::string, Value> m_numbers;
};

// Books; Keep(value) remembers and gives back; Kept; Do(action) runs what the test set.
class Library final : public Named {
  public:
    Library()
        : Named({"Books", "Keep", "Kept", "Do", "Grid"})
        , books(MakeObject<Shelf>(std::vector{MakeObject<Book>("Emma"), MakeObject<Book>("Ulysses")})) {}

    std::string TypeName() const override { return "Library"; }
    Value Invoke(MemberId member, InvokeKind kind, std::span<Value> arguments) override {
        switch (member) {
        case 1:
            Require(arguments.size() == (Writes(kind) ? 1 : 0), numbers::WrongArgumentCount);
            if (Writes(kind))
                throw Failure(numbers::NotACollection, "Object not a collection: 'Books'");
            return books;
        case 2: Require(arguments.size() == 1, numbers::WrongArgumentCount); return kept = arguments[0];
        case 3:
            if (Writes(kind))
                kept = arguments[0];
            return kept;
        case 4: return action ? action() : Value();
        case 5: {
            const auto grid = std::make_shared<ArrayValue>();
            grid->upperBounds = {1, 2};
            for (std::int32_t i = 0; i < 6; ++i)
                grid->elements.emplace_back(i);
            return Value(std::shared_ptr<const ArrayValue>(grid));
        }
        default: throw Failure(numbers::MemberNotSupported);
        }
    }

    ObjectRef books;
    Value kept;
    std::function<Value()> action;
};

} // namespace quillon::jscript
