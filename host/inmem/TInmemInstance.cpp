#include "inmem/TInmemInstance.h"

#include <boost/make_shared.hpp>
#include <utility>

#include "inmem/TInmemProperties.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/ICIMNamespace.h"

namespace NQELVSK20 {

namespace {

/// The path of any instance. The contract's GetReference changes nothing, but is not declared const.
std::string PathOf(const ICIMInstance& instance) {
    return const_cast<ICIMInstance&>(instance).GetReference({}).GetPath();
}

}  // namespace

TInmemInstance::TInmemInstance(boost::shared_ptr<ICIMClass> cimClass, int /*unused*/)
    : class_(std::move(cimClass)) {}

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
    TCIMReference reference(class_->GetNamespace(std::move(context)), {});
    reference.SetPath(Path());
    return reference;
}

TCIMReference TInmemInstance::GetInstanceReference(TContext context) {
    return GetReference(std::move(context));
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
    const boost::shared_ptr<TInmemProperties> properties = Properties();
    if (TInmemProperty* property = properties->Find(name)) {
        return {properties, property};
    }
    const auto apart = boost::make_shared<TInmemProperties>(properties->Layout());
    apart->Set(name, TCIMValue());
    return {apart, apart->Find(name)};
}

void TInmemInstance::SetPropertyValue(const std::string& name, const TCIMValue& value, TContext /*context*/) {
    Properties()->Set(name, value);
}

void TInmemInstance::EnumerateProperties(const PropertyCallback& callback, TContext /*context*/) const {
    const boost::shared_ptr<TInmemProperties> properties = Properties();
    for (TInmemProperty* property : properties->InOrder()) {
        if (!callback({properties, property})) {
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

/// The properties that were set. The class's layout is taken when it is first needed.
const boost::shared_ptr<TInmemProperties>& TInmemInstance::Properties() const {
    if (!properties_) {
        properties_ = boost::make_shared<TInmemProperties>(TClassLayout::Of(class_));
    }
    return properties_;
}

std::string TInmemInstance::Path() const {
    std::string path = class_->GetName({});
    Properties()->AppendKeys(path);
    return path;
}

}  // namespace NQELVSK20
