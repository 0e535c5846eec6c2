// The public faces of all classes of the model; include this to hand an object of the model to scripts.
#pragma once

#include "model/AuditObj.h"
#include "model/faces/Face.h"
#include "model/mdTemplate.h"

namespace quillon {

template <>
const FaceClass& FaceClassOf<AuditObj>();
template <>
const FaceClass& FaceClassOf<mdDatabase>();
template <>
const FaceClass& FaceClassOf<mdTables>();
template <>
const FaceClass& FaceClassOf<mdTable>();
template <>
const FaceClass& FaceClassOf<mdFields>();
template <>
const FaceClass& FaceClassOf<mdField>();
template <>
const FaceClass& FaceClassOf<mdPrimaryKeyFields>();
template <>
const FaceClass& FaceClassOf<mdPrimaryKeyField>();
template <>
const FaceClass& FaceClassOf<mdTriggers>();
template <>
const FaceClass& FaceClassOf<mdTrigger>();
template <>
const FaceClass& FaceClassOf<mdStubFields>();
template <>
const FaceClass& FaceClassOf<mdStubField>();
template <>
const FaceClass& FaceClassOf<mdIncludes>();
template <>
const FaceClass& FaceClassOf<mdInclude>();
template <>
const FaceClass& FaceClassOf<mdLanguages>();
template <>
const FaceClass& FaceClassOf<mdTemplate>();

} // namespace quillon
