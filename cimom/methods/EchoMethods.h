#pragma once

#include "cimom/methods/MethodCall.h"

namespace cimom {

/// Every method of OMC_EchoService. An in-and-out parameter comes back under its own name; an
/// out-parameter "<Name>Echo" carries what came in as "<Name>". The return value is that of the parameter
/// "Value" when it has the method's type; else 0. `Silence` returns nothing at all.
MethodResult echo(const MethodCall& call);

}  // namespace cimom
