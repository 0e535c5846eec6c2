// How the answers about definitions are put together: one small table a family. Not for other rooms.
#pragma once

#include "practice/catalogue/Metadata.h"
#include "practice/values/Convert.h"

namespace quillon::practice {

// One question: the function's arguments and what they are asked about.
class Question {
  public:
    Question(std::span<const Datum> arguments, const MetadataSurroundings& surroundings)
        : here(surroundings)
        , m_arguments(arguments) {}

    std::size_t Count() const { return m_arguments.size(); }
    bool IsNull(std::size_t index) const {
        return index >= m_arguments.size() || m_arguments[index].IsNull();
    }
    std::string Text(std::size_t index) const;
    std::int64_t Number(std::size_t index) const;
    const Datum& Value(std::size_t index) const { return m_arguments[index]; }

    const Database& Current() const;
    // The object or constraint of that number in the current database, or a temporary table.
    std::optional<Catalogue::Named> Named(std::int64_t id) const;
    std::shared_ptr<const Table> FindTable(std::int64_t id) const;
    // What an object's name in a text stands for: database, schema and temporary tables as documented; 0 for
    // none.
    ObjectId ObjectByName(const std::string& name) const;

    const MetadataSurroundings& here;

  private:
    std::span<const Datum> m_arguments;
};

// Answers of each family; `answered` false when the function is not of the family.
struct MetadataAnswer {
    std::string_view function;
    Datum (*answer)(const Question& question);
};
std::span<const MetadataAnswer> NameAnswers();     // DB_ID, SCHEMA_NAME, USER_ID, TYPE_NAME ...
std::span<const MetadataAnswer> ObjectAnswers();   // OBJECT_ID, OBJECT_NAME, COL_LENGTH, IDENT_CURRENT ...
std::span<const MetadataAnswer> PropertyAnswers(); // OBJECTPROPERTY, COLUMNPROPERTY, INDEXPROPERTY
std::span<const MetadataAnswer> ServerAnswers();   // SERVERPROPERTY, DATABASEPROPERTYEX, IS_MEMBER ...

// Whether the login is a member of sysadmin; nothing where there is no such login.
std::optional<bool> IsAdministrator(const Question& question, const std::string& loginName);

Datum NameDatum(std::string_view text); // sysname
Datum Flag(bool value);                 // int 1 or 0
std::string UpperName(std::string_view text);

} // namespace quillon::practice
