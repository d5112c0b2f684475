#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "vskcore/TCIMValue.h"
#include "vskcore/TContext.h"

namespace NQELVSK20 {

class ICIMClass;
class PegClient;
class TCIMReference;

/// What a method call goes to.
struct MethodTarget {
    PegClient& client;
    const std::string& nameSpace;
    const TCIMReference& object;
    unsigned int timeout;  ///< Milliseconds.
};

/// Runs a method on a server, its arguments in the order of their names; its return value, null for a void
/// method and after a failed call, which is logged. `outputs` gains the out-parameters; keys that are there
/// stay. References are bound to the namespace of `cimClass`. A malformed path, name or argument throws the
/// remote library's exception.
TCIMValue CallMethod(const MethodTarget& target, const std::string& method, const TContext& inputs,
                     TContext& outputs, const boost::shared_ptr<ICIMClass>& cimClass);

}  // namespace NQELVSK20
