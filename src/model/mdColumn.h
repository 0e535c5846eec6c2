// What a column is, whether it is seen as one of a table's fields or as one of its primary key's.
//
// Filled by the metadata loader through the setters; read by screens, and by templates through the public
// face. Texts are interned: a model of thousands of tables repeats most of them.
#pragma once

#include <cstdint>
#include <string>

#include "model/InternedText.h"
#include "model/ModelObject.h"

namespace quillon {

struct ColumnProperties {
    InternedText name{};
    InternedText parentName{};  // of the table
    InternedText parentOwner{}; // of the table
    InternedText defaultText{};
    InternedText sqlDatatype{};          // bare type name
    InternedText sqlDatatypeAndLength{}; // as written in a CREATE TABLE
    double length = 0;                   // in characters
    std::int32_t numericScale = 0;
    std::int32_t numericPrecision = 0;
    std::int16_t ordinalPosition = 0; // in the table, from 0
    bool isGUID = false;              // the table's row GUID column
    bool isIdentity = false;
    bool isTimeStamp = false;
    bool isNullable = false;
};

class mdColumn : public ModelObject {
  public:
    const std::string& Name() const noexcept { return m_column.name.str(); }
    const std::string& ParentName() const noexcept { return m_column.parentName.str(); }
    const std::string& ParentOwner() const noexcept { return m_column.parentOwner.str(); }
    const std::string& Default() const noexcept { return m_column.defaultText.str(); }
    const std::string& SQL_Datatype() const noexcept { return m_column.sqlDatatype.str(); }
    const std::string& SQL_Datatype_And_Length() const noexcept {
        return m_column.sqlDatatypeAndLength.str();
    }
    double Length() const noexcept { return m_column.length; }
    std::int32_t NumericScale() const noexcept { return m_column.numericScale; }
    std::int32_t NumericPrecision() const noexcept { return m_column.numericPrecision; }
    std::int16_t Ordinal_Position() const noexcept { return m_column.ordinalPosition; }
    bool IsGUID() const noexcept { return m_column.isGUID; }
    bool IsIdentity() const noexcept { return m_column.isIdentity; }
    bool IsTimeStamp() const noexcept { return m_column.isTimeStamp; }
    bool IsNullable() const noexcept { return m_column.isNullable; }

    void SetName(InternedText name) { m_column.name = std::move(name); }
    void SetParentName(InternedText name) { m_column.parentName = std::move(name); }
    void SetParentOwner(InternedText owner) { m_column.parentOwner = std::move(owner); }
    void SetDefault(InternedText text) { m_column.defaultText = std::move(text); }
    void SetSQL_Datatype(InternedText type) { m_column.sqlDatatype = std::move(type); }
    void SetSQL_Datatype_And_Length(InternedText type) { m_column.sqlDatatypeAndLength = std::move(type); }
    void SetLength(double characters) { m_column.length = characters; }
    void SetNumericScale(std::int32_t scale) { m_column.numericScale = scale; }
    void SetNumericPrecision(std::int32_t precision) { m_column.numericPrecision = precision; }
    void SetOrdinal_Position(std::int16_t position) { m_column.ordinalPosition = position; }
    void SetIsGUID(bool value) { m_column.isGUID = value; }
    void SetIsIdentity(bool value) { m_column.isIdentity = value; }
    void SetIsTimeStamp(bool value) { m_column.isTimeStamp = value; }
    void SetIsNullable(bool value) { m_column.isNullable = value; }

    // The name as the key that collections keep.
    const InternedText& Key() const noexcept { return m_column.name; }

  protected:
    mdColumn() = default;
    explicit mdColumn(ColumnProperties column)
        : m_column(std::move(column)) {}
    ~mdColumn() = default;

  private:
    ColumnProperties m_column;
};

} // namespace quillon
