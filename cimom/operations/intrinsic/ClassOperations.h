#pragma once

#include <string>

#include "cimom/operations/IntrinsicCall.h"

namespace cimom {

// The operations on classes (DSP0200), as RunIntrinsic.
void getClass(const IntrinsicCall& call, std::string& out);
void enumerateClasses(const IntrinsicCall& call, std::string& out);
void enumerateClassNames(const IntrinsicCall& call, std::string& out);

/// A class that is there already is refused, as is a superclass that is not.
void createClass(const IntrinsicCall& call, std::string& out);

/// Only of a class that neither subclasses nor instances hold on to.
void modifyClass(const IntrinsicCall& call, std::string& out);
void deleteClass(const IntrinsicCall& call, std::string& out);

}  // namespace cimom
