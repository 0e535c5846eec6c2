// The public face of a table and what belongs to it.
#include "model/faces/FaceTable.h"
#include "model/faces/ModelFaces.h"

namespace quillon {

template <>
const FaceClass& FaceClassOf<mdTable>() {
    using Table = FaceTable<mdTable>;
    static const FaceMember members[] = {
        Table::Get<&mdTable::IsFirstAuditedTable>("IsFirstAuditedTable"),
        Table::Get<&mdTable::Script>("Script"),
        Table::Get<&mdTable::IsAudited>("IsAudited"),
        Table::Get<&mdTable::CreateDate>("CreateDate"),
        Table::Get<&mdTable::IsSelectedForAudit>("IsSelectedForAudit"),
        Table::Get<&mdTable::IsOneAuditOperationSelected>("IsOneAuditOperationSelected"),
        Table::Get<&mdTable::IsOneFieldSelectedForAudit>("IsOneFieldSelectedForAudit"),
        Table::Get<&mdTable::IsActiveTable>("IsActiveTable"),
        Table::Get<&mdTable::Audit4Insert>("Audit4Insert"),
        Table::Get<&mdTable::Audit4Update>("Audit4Update"),
        Table::Get<&mdTable::Audit4Delete>("Audit4Delete"),
        Table::Get<&mdTable::Name>("Name"),
        Table::Get<&mdTable::Owner>("Owner"),
        Table::Get<&mdTable::PrimaryKeyFields>("PrimaryKeyFields"),
        Table::Get<&mdTable::Fields>("Fields"),
        Table::Get<&mdTable::Triggers>("Triggers"),
    };
    static const FaceClass face{"mdTable", members};
    return face;
}

template <>
const FaceClass& FaceClassOf<mdField>() {
    using Table = FaceTable<mdField>;
    static const FaceMember members[] = {
        Table::Get<&mdField::IsInPrimaryKey>("IsInPrimaryKey"),
        Table::Get<&mdField::ParentName>("ParentName"),
        Table::Get<&mdField::ParentOwner>("ParentOwner"),
        Table::Get<&mdField::IsChecked>("IsChecked"),
        Table::Get<&mdField::IsGUID>("IsGUID"),
        Table::Get<&mdField::Default>("Default"),
        Table::Get<&mdField::SQL_Datatype_And_Length>("SQL_Datatype_And_Length"),
        Table::Get<&mdField::IsIdentity>("IsIdentity"),
        Table::Get<&mdField::IsTimeStamp>("IsTimeStamp"),
        Table::Get<&mdField::IsKey>("IsKey"),
        Table::Get<&mdField::SQL_Datatype>("SQL_Datatype"),
        Table::Get<&mdField::NumericScale>("NumericScale"),
        Table::Get<&mdField::NumericPrecision>("NumericPrecision"),
        Table::Get<&mdField::Ordinal_Position>("Ordinal_Position"),
        Table::Get<&mdField::Name>("Name"),
        Table::Get<&mdField::Length>("Length"),
        Table::Get<&mdField::IsNullable>("IsNullable"),
    };
    static const FaceClass face{"mdField", members};
    return face;
}

template <>
const FaceClass& FaceClassOf<mdPrimaryKeyField>() {
    using Key = mdPrimaryKeyField;
    using Table = FaceTable<Key>;
    static const FaceMember members[] = {
        Table::Get<&Key::Keys>("Keys"),
        Table::Get<&Key::ParentName>("ParentName"),
        Table::Get<&Key::ParentOwner>("ParentOwner"),
        Table::Get<&Key::IsGUID>("IsGUID"),
        Table::Get<&Key::Default>("Default"),
        Table::Get<&Key::SQL_Datatype_And_Length>("SQL_Datatype_And_Length"),
        Table::Get<&Key::IsIdentity>("IsIdentity"),
        Table::Get<&Key::IsTimeStamp>("IsTimeStamp"),
        Table::Get<&Key::SQL_Datatype>("SQL_Datatype"),
        Table::Get<&Key::NumericScale>("NumericScale"),
        Table::Get<&Key::NumericPrecision>("NumericPrecision"),
        Table::Get<&Key::Ordinal_Position>("Ordinal_Position"),
        Table::Get<&Key::Name>("Name"),
        Table::Get<&Key::Length>("Length"),
        Table::Get<&Key::IsNullable>("IsNullable"),
    };
    static const FaceClass face{"mdPrimaryKeyField", members};
    return face;
}

template <>
const FaceClass& FaceClassOf<mdTrigger>() {
    using Table = FaceTable<mdTrigger>;
    static const FaceMember members[] = {
        Table::Get<&mdTrigger::Script>("Script"),
        Table::Get<&mdTrigger::Text>("Text"),
        Table::Get<&mdTrigger::QuotedIdentifierStatus>("QuotedIdentifierStatus"),
        Table::Get<&mdTrigger::AnsiNULLsStatus>("AnsiNULLsStatus"),
        Table::Get<&mdTrigger::ParentName>("ParentName"),
        Table::Get<&mdTrigger::ParentOwner>("ParentOwner"),
        Table::Get<&mdTrigger::Name>("Name"),
        Table::Get<&mdTrigger::Owner>("Owner"),
        Table::Get<&mdTrigger::CreateDate>("CreateDate"),
        Table::Get<&mdTrigger::Enabled>("Enabled"),
        Table::Get<&mdTrigger::TypeOfTrigger>("TypeOfTrigger"),
        Table::Get<&mdTrigger::IsInsert>("IsInsert"),
        Table::Get<&mdTrigger::IsUpdate>("IsUpdate"),
        Table::Get<&mdTrigger::IsDelete>("IsDelete"),
    };
    static const FaceClass face{"mdTrigger", members};
    return face;
}

template <>
const FaceClass& FaceClassOf<mdStubField>() {
    using Table = FaceTable<mdStubField>;
    static const FaceMember members[] = {Table::Get<&mdStubField::Name>("Name")};
    static const FaceClass face{"mdStubField", members};
    return face;
}

} // namespace quillon
