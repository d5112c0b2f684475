#include "model/TCimHTTPInstance.h"

#include <boost/pointer_cast.hpp>
#include <utility>

#include "model/TCimHTTPClass.h"
#include "provider/contract/Refuse.h"

namespace NQELVSK20 {

TCimHTTPInstance::TCimHTTPInstance(boost::shared_ptr<ICIMClass> cimClass, boost::shared_ptr<ICIMClass>)
    : TInmemInstance(std::move(cimClass), 1) {}

TCimHTTPInstance::~TCimHTTPInstance() = default;

void TCimHTTPInstance::Commit(TContext context) {
    const auto cimClass = boost::dynamic_pointer_cast<TCimHTTPClass>(GetClass(context));
    if (!PointerIsSet(cimClass != nullptr, "TCimHTTPInstance::Commit")) {
        return;
    }
    Validate(context);
    cimClass->AddInstance(shared_from_this(), std::move(context));
}

TCIMReference TCimHTTPInstance::GetInstanceReference(TContext context) {
    return GetReference(std::move(context));
}

}  // namespace NQELVSK20
