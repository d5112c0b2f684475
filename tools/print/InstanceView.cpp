#include "tools/print/InstanceView.h"

#include <algorithm>

#include "tools/common/Names.h"
#include "tools/values/ValueText.h"
#include "vskcore/ICIMClass.h"

namespace tool {

using namespace NQELVSK20;

namespace {

// The plug-in marks it: what stands there is the mark, and no null any more.
bool isMarked(const std::string& property) {
    return property.find("InstanceID") != std::string::npos;
}

}  // namespace

InstanceView::InstanceView(ICIMInstance& instance, const NullCells* nullCells)
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
    if (nullCells != nullptr) {
        const std::vector<std::string> names = nullCells->of(cimClass, path, node);
        nulls.insert(names.begin(), names.end());
    }
}

const TCIMValue& InstanceView::valueOf(const ICIMProperty& property) const {
    static const TCIMValue null;
    const std::string& name = property.GetName(TContext());
    return nulls.count(name) != 0 && !isMarked(name) ? null : property.GetValue(TContext());
}

const TCIMValue* InstanceView::value(const std::string& property) const {
    const auto found = std::find_if(properties.begin(), properties.end(), [&](const auto& candidate) {
        return sameName(candidate->GetName(TContext()), property);
    });
    return found == properties.end() ? nullptr : &valueOf(**found);
}

}  // namespace tool
