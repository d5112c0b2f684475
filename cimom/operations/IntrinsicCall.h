#pragma once

#include <string>

#include "cimom/common/CimError.h"
#include "cimom/data/NameSpace.h"
#include "cimom/operations/CimAnswer.h"
#include "cimom/operations/CimRequest.h"
#include "cimom/operations/LocalOnlyRules.h"

namespace cimom {

/// What an intrinsic operation is asked, of which data, and how the server sees it. Borrows all of it.
struct IntrinsicCall {
    const CimRequest& request;
    NameSpace& nameSpace;
    const LocalOnlyRules& localOnly;
    AnswerExtras& extras;

    /// The class of that name; throws CimError with the status `otherwise` when there is none.
    const ClassView& requireClass(const std::string& name, CimStatus otherwise) const;

    /// Likewise, or null for a name that was not given.
    const ClassView* findClass(const std::string& name, CimStatus otherwise) const;

    /// The instance of a path, whose single key may have no name. Throws CimError: `noClass` when its class
    /// does not exist, not found when it does not itself.
    Instance& requireInstance(ObjectPath path, CimStatus noClass = CimStatus::InvalidClass) const;
};

/// How an operation is carried out: appends what stands inside IRETURNVALUE, throws CimError.
using RunIntrinsic = void (*)(const IntrinsicCall& call, std::string& out);

}  // namespace cimom
