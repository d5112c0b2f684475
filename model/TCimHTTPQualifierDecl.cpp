#include "model/TCimHTTPQualifierDecl.h"

#include "model/ClassNamespace.h"
#include "namespace/names/Names.h"
#include "provider/contract/HostReport.h"

namespace NQELVSK20 {

void TCimHTTPQualifierDecl::Commit(TContext) {
    Required(ClassNamespace::Behind(namespace_.lock()), "TCimHTTPQualifierDecl::Commit")
        ->Enter(shared_from_this());
}

bool TCimHTTPQualifierDecl::operator==(const ICIMQualifierDecl& other) const {
    return EqualByName(name_, other.GetName(TContext()));
}

bool TCimHTTPQualifierDecl::operator<(const ICIMQualifierDecl& other) const {
    return LessByName(name_, other.GetName(TContext()));
}

}  // namespace NQELVSK20
