#include "tools/print/InstanceView.h"

#include <algorithm>

#include "tools/common/Names.h"
#include "tools/values/ValueText.h"
#include "vskcore/ICIMClass.h"

namespace tool {

using namespace NQELVSK20;

InstanceView::InstanceView(ICIMInstance& instance)
    : cimClass(instance.GetClass(TContext())), path(instance.GetReference(TContext()).GetPath()) {
    className = cimClass->GetName(TContext());
    instance.EnumerateProperties(
        [this](const boost::shared_ptr<ICIMProperty>& property) {
            if (sameName(property->GetName(TContext()), "NodeID")) {
                node = plainText(property->GetValue(TContext()));
            } else {
                properties.push_back(property);
            }
            return true;
        },
        TContext());
}

const TCIMValue* InstanceView::value(const std::string& property) const {
    const auto found = std::find_if(properties.begin(), properties.end(), [&](const auto& candidate) {
        return sameName(candidate->GetName(TContext()), property);
    });
    return found == properties.end() ? nullptr : &(*found)->GetValue(TContext());
}

}  // namespace tool
