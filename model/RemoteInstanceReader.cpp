#include "model/RemoteInstanceReader.h"

#include <Pegasus/Common/CIMObjectPath.h>

#include <utility>

#include "connection/Log.h"
#include "connection/PegText.h"
#include "connection/TCimHTTPNamespace.h"
#include "convert/ToCore.h"
#include "model/RemoteNode.h"
#include "model/TCimHTTPClass.h"
#include "vskcore/ICIMProperty.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

namespace {

bool Contains(const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
}

void LogUnreadable(const std::string& property) {
    LogTrace("4TCimHTTPClass::EnumerateInstances - Unable to retrieve property: " + property);
}

// The class name in the value of a reference key: after the key's name in the path, between the colon that
// ends the namespace and the full stop before the keys. Empty when the path is not of that form.
std::string ReferencedClassName(const std::string& path, const std::string& key) {
    const std::size_t keyAt = path.find(key);
    if (keyAt == std::string::npos) {
        return {};
    }
    const std::size_t colon = path.find(':', keyAt + 1);
    if (colon == std::string::npos) {
        return {};
    }
    const std::size_t stop = path.find('.', colon + 1);
    return stop == std::string::npos ? std::string() : path.substr(colon + 1, stop - colon - 1);
}

}  // namespace

RemoteInstanceReader::RemoteInstanceReader(boost::shared_ptr<TCimHTTPNamespace> nameSpace,
                                           boost::shared_ptr<TCimHTTPClass> cimClass, const RemoteNode& node)
    : namespace_(std::move(nameSpace)),
      class_(std::move(cimClass)),
      mark_(namespace_->getfCimHTTPNamespaceName(), node.key, class_->IsMultiNode()),
      convertsNulls_(Contains(namespace_->getfCimHTTPNamespaceName(), "root/cimv2")),
      isSlotClass_(class_->GetName(TContext()) == "OMC_ProcessorSlot"),
      dropsRemoteEvents_(node.index == 0 && class_->GetName(TContext()) == "QEL_StandardMessageLogEntry") {
    nodeNumber_.Set(mark_.NodeNumber());
}

boost::shared_ptr<ICIMInstance> RemoteInstanceReader::Read(const Pegasus::CIMInstance& remote) {
    auto instance = class_->AllocateInstance(TContext());
    const Pegasus::Uint32 count = remote.getPropertyCount();
    for (Pegasus::Uint32 i = 0; i < count; ++i) {
        ReadProperty(remote, i, *instance);
    }
    instance->SetPropertyValue("nodeid", nodeNumber_, TContext());
    if (dropsRemoteEvents_ && IsForAnotherNode(*instance)) {
        return {};
    }
    return instance;
}

void RemoteInstanceReader::ReadProperty(const Pegasus::CIMInstance& remote, Pegasus::Uint32 index,
                                        ICIMInstance& instance) {
    const Pegasus::CIMConstProperty property = remote.getProperty(index);
    PropertyName& name = NameAt(index, property.getName().getString());
    try {
        StoreProperty(remote, property, name, instance);
    } catch (const TVSKException&) {
        LogUnreadable(name.text);
    } catch (const Pegasus::Exception&) {
        // A server's mistake in one value costs that value only.
        LogUnreadable(name.text);
    }
}

RemoteInstanceReader::PropertyName& RemoteInstanceReader::NameAt(Pegasus::Uint32 index,
                                                                 const Pegasus::String& remote) {
    if (index >= names_.size()) {
        names_.resize(index + 1);
    }
    PropertyName& name = names_[index];
    if (name.text.empty() || name.remote != remote) {
        name.remote = remote;
        name.text = ToText(remote);
        name.stored.clear();
        name.isInstanceId = Contains(name.text, "InstanceID");
        name.isSlotNumber = isSlotClass_ && name.text == "Number";
    }
    return name;
}

void RemoteInstanceReader::StoreProperty(const Pegasus::CIMInstance& remote,
                                         const Pegasus::CIMConstProperty& property, PropertyName& name,
                                         ICIMInstance& instance) {
    if (name.stored.empty()) {
        name.stored = TCimHTTPNamespace::NormalizeName(name.text);
    }
    boost::shared_ptr<ICIMClass> referenced;
    if (property.getType() == Pegasus::CIMTYPE_REFERENCE) {
        referenced = ReferencedClass(remote, name.text);
    }
    TCIMValue value;
    const Pegasus::CIMValue remoteValue = property.getValue();
    if (convertsNulls_ || !remoteValue.isNull()) {
        ConvertToCoreValue(name.text, remoteValue, property.getType(), property.isArray(), value, class_);
    }
    if (referenced) {
        value.SetReferencedClass(referenced);
    }
    if (name.isInstanceId) {
        mark_.MarkInstanceId(value);
    }
    if (name.isSlotNumber) {
        instance.GetProperty("Number", TContext());  // an undeclared one is refused here
        value = TCIMValue(static_cast<unsigned short>(value.operator int()));
    }
    instance.SetPropertyValue(name.stored, value, TContext());
}

boost::shared_ptr<ICIMClass> RemoteInstanceReader::ReferencedClass(const Pegasus::CIMInstance& remote,
                                                                   const std::string& property) {
    const std::string className = ReferencedClassName(ToText(remote.getPath().toString()), property);
    if (className.empty()) {
        return {};
    }
    const auto known = referencedClasses_.find(className);
    if (known != referencedClasses_.end()) {
        return known->second;
    }
    return referencedClasses_.emplace(className, namespace_->GetClass(className, TContext())).first->second;
}

// Log entries come from every node; the first node's log also holds those of the others, which then say that
// they are not local.
bool RemoteInstanceReader::IsForAnotherNode(const ICIMInstance& instance) const {
    try {
        const auto isLocal = instance.GetProperty("IsLocalEvent", TContext());
        const TCIMValue& value = isLocal->GetValue(TContext());
        return !value.IsNull() && !value.operator bool();
    } catch (const TVSKException&) {
        return false;  // the server's class has no such property
    }
}

}  // namespace NQELVSK20
