#include "cimom/operations/IntrinsicOperations.h"

#include <array>
#include <string_view>

#include "cimom/common/CimError.h"
#include "cimom/common/Text.h"
#include "cimom/operations/IntrinsicCall.h"
#include "cimom/operations/intrinsic/AssociationOperations.h"
#include "cimom/operations/intrinsic/ClassOperations.h"
#include "cimom/operations/intrinsic/InstanceChanges.h"
#include "cimom/operations/intrinsic/InstanceOperations.h"
#include "cimom/operations/intrinsic/PullOperations.h"
#include "cimom/operations/intrinsic/QualifierOperations.h"
#include "cimom/operations/intrinsic/QueryOperations.h"

namespace cimom {
namespace {

struct Operation {
    std::string_view name;
    RunIntrinsic run;
};

constexpr std::array<Operation, 34> kOperations{{{"GetClass", getClass},
                                                 {"EnumerateClasses", enumerateClasses},
                                                 {"EnumerateClassNames", enumerateClassNames},
                                                 {"CreateClass", createClass},
                                                 {"ModifyClass", modifyClass},
                                                 {"DeleteClass", deleteClass},
                                                 {"GetInstance", getInstance},
                                                 {"EnumerateInstances", enumerateInstances},
                                                 {"EnumerateInstanceNames", enumerateInstanceNames},
                                                 {"GetProperty", getProperty},
                                                 {"CreateInstance", createInstance},
                                                 {"ModifyInstance", modifyInstance},
                                                 {"DeleteInstance", deleteInstance},
                                                 {"SetProperty", setProperty},
                                                 {"GetQualifier", getQualifier},
                                                 {"EnumerateQualifiers", enumerateQualifiers},
                                                 {"SetQualifier", setQualifier},
                                                 {"DeleteQualifier", deleteQualifier},
                                                 {"Associators", associators},
                                                 {"AssociatorNames", associatorNames},
                                                 {"References", references},
                                                 {"ReferenceNames", referenceNames},
                                                 {"ExecQuery", execQuery},
                                                 {"OpenEnumerateInstances", openEnumerateInstances},
                                                 {"OpenEnumerateInstancePaths", openEnumerateInstancePaths},
                                                 {"OpenReferenceInstances", openReferenceInstances},
                                                 {"OpenReferenceInstancePaths", openReferenceInstancePaths},
                                                 {"OpenAssociatorInstances", openAssociatorInstances},
                                                 {"OpenAssociatorInstancePaths", openAssociatorInstancePaths},
                                                 {"OpenQueryInstances", openQueryInstances},
                                                 {"PullInstancesWithPath", pullInstancesWithPath},
                                                 {"PullInstancePaths", pullInstancePaths},
                                                 {"PullInstances", pullInstances},
                                                 {"CloseEnumeration", closeEnumeration}}};

}  // namespace

AnswerExtras runIntrinsicOperation(const CimRequest& request, NameSpace& nameSpace, std::string& out,
                                   const LocalOnlyRules& localOnly) {
    for (const Operation& operation : kOperations) {
        if (sameName(operation.name, request.operation)) {
            AnswerExtras extras;
            operation.run({request, nameSpace, localOnly, extras}, out);
            return extras;
        }
    }
    throw CimError(CimStatus::NotSupported, "the operation '" + request.operation + "' is not supported");
}

}  // namespace cimom
