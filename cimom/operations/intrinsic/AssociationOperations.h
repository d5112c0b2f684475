#pragma once

#include <string>

#include "cimom/associations/Associations.h"
#include "cimom/operations/IntrinsicArguments.h"
#include "cimom/operations/IntrinsicCall.h"

namespace cimom {

// The operations that follow associations of an instance or a class (DSP0200), as RunIntrinsic.
void associators(const IntrinsicCall& call, std::string& out);
void associatorNames(const IntrinsicCall& call, std::string& out);
void references(const IntrinsicCall& call, std::string& out);
void referenceNames(const IntrinsicCall& call, std::string& out);

/// The arguments AssocClass, ResultClass, Role and ResultRole.
AssociationFilter readAssociatorFilter(const IntrinsicCall& call, const IntrinsicArguments& arguments);

/// The arguments ResultClass and Role of an operation whose results are the associations themselves.
AssociationFilter readReferenceFilter(const IntrinsicCall& call, const IntrinsicArguments& arguments);

}  // namespace cimom
