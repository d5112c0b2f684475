#include "inmem/TInmemInstance.h"

#include <algorithm>
#include <boost/make_shared.hpp>

#include "inmem/TInmemProperty.h"
#include "vskcore/CimNames.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/ICIMNamespace.h"
#include "vskcore/KeyText.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

namespace {

/// The path of any instance. The contract's GetReference changes nothing, but is not declared const.
std::string PathOf(const ICIMInstance& instance) {
    return const_cast<ICIMInstance&>(instance).GetReference({}).GetPath();
}

}  // namespace

TInmemInstance::TInmemInstance(boost::shared_ptr<ICIMClass> cimClass, int /*unused*/) : class_(cimClass) {}

TInmemInstance::~TInmemInstance() = default;

void TInmemInstance::Validate(TContext /*context*/) {}

void TInmemInstance::Commit(TContext context) {
    Validate(context);
    class_->AddInstance(shared_from_this(), context);
}

void TInmemInstance::ModifyInstance(boost::shared_ptr<ICIMInstance> other, TContext context) {
    other->EnumerateProperties(
        [this](const boost::shared_ptr<ICIMProperty>& property) {
            SetPropertyValue(property->GetName({}), property->GetValue({}), {});
            return true;
        },
        context);
}

void TInmemInstance::Delete(TContext context) {
    class_->RemoveInstance(shared_from_this(), context);
}

TCIMReference TInmemInstance::GetReference(TContext context) {
    TCIMReference reference(class_->GetNamespace(context), {});
    reference.SetPath(Path());
    return reference;
}

TCIMReference TInmemInstance::GetInstanceReference(TContext context) {
    return GetReference(context);
}

boost::shared_ptr<ICIMClass> TInmemInstance::GetClass(TContext /*context*/) const {
    return class_;
}

std::string TInmemInstance::GetPegasusNSPStr(TContext /*context*/) const {
    return {};
}

void TInmemInstance::EnumerateAssociatedInstances(const InstanceCallback& /*callback*/,
                                                  TContext /*context*/) {}

void TInmemInstance::EnumerateAssociationInstances(const InstanceCallback& /*callback*/,
                                                   TContext /*context*/) {}

boost::shared_ptr<ICIMProperty> TInmemInstance::GetProperty(const std::string& name,
                                                            TContext /*context*/) const {
    const auto place = LowerBound(name);
    if (IsAt(place, name)) {
        return *place;
    }
    return boost::make_shared<TInmemProperty>(DeclaredName(name), TCIMValue());
}

void TInmemInstance::SetPropertyValue(const std::string& name, const TCIMValue& value, TContext /*context*/) {
    const auto place = LowerBound(name);
    if (IsAt(place, name)) {
        (*place)->SetValue(value);
    } else {
        properties_.insert(place, boost::make_shared<TInmemProperty>(DeclaredName(name), value));
    }
}

void TInmemInstance::EnumerateProperties(const PropertyCallback& callback, TContext /*context*/) const {
    // By index and with a share in the property, since the callback may set properties.
    for (std::size_t index = 0; index < properties_.size(); ++index) {  // NOLINT(modernize-loop-convert)
        const boost::shared_ptr<TInmemProperty> property = properties_[index];
        if (!callback(property)) {
            return;
        }
    }
}

void TInmemInstance::InvokeMethod(TCIMValue& result, const std::string& method, const TContext& inputs,
                                  TContext& outputs, TContext context) {
    class_->InvokeMethod(result, GetReference(context), method, inputs, outputs, context);
}

bool TInmemInstance::operator==(const ICIMInstance& other) const {
    return Path() == PathOf(other);
}

bool TInmemInstance::operator<(const ICIMInstance& other) const {
    return Path() < PathOf(other);
}

ICIMInstance& TInmemInstance::operator=(const ICIMInstance& /*other*/) {
    return *this;
}

TInmemInstance& TInmemInstance::operator=(const TInmemInstance& /*other*/) {
    return *this;
}

TClassLayout& TInmemInstance::Layout() const {
    if (!layout_) {
        layout_ = TClassLayout::Of(class_);
    }
    return *layout_;
}

/// Where the property of a name stands, or would stand.
TInmemInstance::Properties::const_iterator TInmemInstance::LowerBound(const std::string& name) const {
    return std::lower_bound(properties_.begin(), properties_.end(), name,
                            [](const boost::shared_ptr<TInmemProperty>& property, const std::string& other) {
                                return TNameLess()(property->Name(), other);
                            });
}

bool TInmemInstance::IsAt(Properties::const_iterator place, const std::string& name) const {
    return place != properties_.end() && SameName((*place)->Name(), name);
}

/// The name as the class chain declares it; throws status 15 when it does not.
TClassLayout::Name TInmemInstance::DeclaredName(const std::string& name) const {
    TClassLayout::Name declared = Layout().FindProperty(name);
    if (!declared) {
        throw TVSKException(eVSKNotFound);
    }
    return declared;
}

std::string TInmemInstance::Path() const {
    std::string path = class_->GetName({});
    bool first = true;
    for (const TClassLayout::Name& key : *Layout().Keys()) {
        const auto place = LowerBound(*key);
        if (IsAt(place, *key)) {
            AppendKey(path, first, *key, (*place)->GetValue({}));
        }
    }
    return path;
}

}  // namespace NQELVSK20
