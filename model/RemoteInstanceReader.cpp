#include "model/RemoteInstanceReader.h"

#include <Pegasus/Common/CIMObjectPath.h>

#include <utility>

#include "connection/client/Nodes.h"
#include "convert/KeyToCore.h"
#include "convert/ToCore.h"
#include "model/ClassNamespace.h"
#include "model/TCimHTTPClass.h"
#include "namespace/names/Names.h"
#include "provider/contract/HostReport.h"
#include "provider/contract/PegText.h"
#include "vskcore/ICIMProperty.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

namespace {

bool Contains(const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
}

void LogUnreadable(const std::string& property) {
    // The digit before the class is no slip of ours: kept, hosts rely on the line as it is.
    LogTrace("4TCimHTTPClass::EnumerateInstances - Unable to retrieve property: " + property);
}

// Takes a property over. The host's refusal costs that property only.
template <class TTakeOver>
void Guarded(const std::string& property, const TTakeOver& takeOver) {
    try {
        takeOver();
    } catch (const TVSKException&) {
        LogUnreadable(property);
    }
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

const std::string kControllerWord = "vqm";

bool IsController(const std::string& namespaceName) {
    return namespaceName.find(kControllerWord) != std::string::npos;
}

// The one-based number of the controller whose zero-based digit follows the word. Machines have four
// controllers at most; any other character is no count and stays as it is.
std::string ControllerNumber(const std::string& namespaceName) {
    std::string digit = namespaceName.substr(namespaceName.find(kControllerWord) + kControllerWord.size(), 1);
    if (digit >= "0" && digit <= "3") {
        ++digit.front();
    }
    return digit;
}

}  // namespace

RemoteInstanceReader::RemoteInstanceReader(boost::shared_ptr<ClassNamespace> nameSpace,
                                           boost::shared_ptr<TCimHTTPClass> cimClass, const RemoteNode& node)
    : namespace_(std::move(nameSpace)),
      class_(std::move(cimClass)),
      hostClass_(class_),
      mark_(namespace_->OwnName(), node.key, class_->IsMultiNode()),
      convertsNulls_(Contains(namespace_->OwnName(), "root/cimv2")),
      // Compared to the letter, like the names of properties below: kept, hosts rely on it.
      isSlotClass_(class_->GetName(TContext()) == "OMC_ProcessorSlot"),
      dropsRemoteEvents_(node.index == 0 && class_->GetName(TContext()) == "QEL_StandardMessageLogEntry") {
    nodeNumber_.Set(mark_.NodeNumber());
}

boost::shared_ptr<ICIMInstance> RemoteInstanceReader::Read(const Pegasus::CIMInstance& remote) {
    auto instance = class_->AllocateInstance(TContext());
    ReadProperties(remote, *instance);
    ReadMissingKeys(remote, *instance);
    Guarded(kNodeIdKey, [&] { instance->SetPropertyValue(kNodeIdKey, nodeNumber_, TContext()); });
    if (dropsRemoteEvents_ && IsForAnotherNode(*instance)) {
        return {};
    }
    return instance;
}

void RemoteInstanceReader::ReadProperties(const Pegasus::CIMInstance& remote, ICIMInstance& instance) {
    const Pegasus::Uint32 count = remote.getPropertyCount();
    for (Pegasus::Uint32 i = 0; i < count; ++i) {
        const Pegasus::CIMConstProperty property = remote.getProperty(i);
        PropertyName& name = NameAt(i, property.getName().getString());
        Guarded(name.text, [&] { Store(name, ValueOf(property, remote, name.text), instance); });
    }
}

// Only local properties are asked for, and some servers then leave out the keys that a superclass declares.
// The path tells them: without its keys an instance could not be told from the next.
void RemoteInstanceReader::ReadMissingKeys(const Pegasus::CIMInstance& remote, ICIMInstance& instance) {
    const Pegasus::Array<Pegasus::CIMKeyBinding>& keys = remote.getPath().getKeyBindings();
    for (Pegasus::Uint32 i = 0; i < keys.size(); ++i) {
        if (remote.findProperty(keys[i].getName()) == Pegasus::PEG_NOT_FOUND) {
            PropertyName& name = NameAt(remote.getPropertyCount() + i, keys[i].getName().getString());
            Guarded(name.text, [&] { Store(name, ValueOf(keys[i], remote, name.text), instance); });
        }
    }
}

RemoteInstanceReader::PropertyName RemoteInstanceReader::NameOf(const Pegasus::String& remote) const {
    PropertyName name;
    name.remote = remote;
    name.text = ToText(remote);
    name.isInstanceId = Contains(name.text, "InstanceID");
    name.isSlotNumber = isSlotClass_ && name.text == "Number";
    return name;
}

RemoteInstanceReader::PropertyName& RemoteInstanceReader::NameAt(Pegasus::Uint32 index,
                                                                 const Pegasus::String& remote) {
    if (index >= names_.size()) {
        names_.resize(index + 1);
    }
    PropertyName& name = names_[index];
    if (name.text.empty() || name.remote != remote) {
        name = NameOf(remote);
    }
    return name;
}

TCIMValue RemoteInstanceReader::ValueOf(const Pegasus::CIMConstProperty& property,
                                        const Pegasus::CIMInstance& remote, const std::string& name) {
    TCIMValue value;
    const Pegasus::CIMValue& remoteValue = property.getValue();
    const Pegasus::CIMType type = property.getType();
    if (convertsNulls_ || !remoteValue.isNull()) {
        ConvertToCoreValue(name, remoteValue, type, property.isArray(), value, hostClass_);
    }
    if (type == Pegasus::CIMTYPE_REFERENCE) {
        SetReferencedClass(value, remote, name);
    }
    return value;
}

TCIMValue RemoteInstanceReader::ValueOf(const Pegasus::CIMKeyBinding& key, const Pegasus::CIMInstance& remote,
                                        const std::string& name) {
    auto declared = keyTypes_.find(name);
    if (declared == keyTypes_.end()) {
        declared = keyTypes_.emplace(name, class_->DeclaredType(name)).first;
    }
    TCIMValue value;
    if (!ConvertKeyToCoreValue(key, declared->second, class_->GetNamespace(TContext()), value)) {
        LogUnreadable(name);
    }
    if (value.IsReference()) {
        SetReferencedClass(value, remote, name);
    }
    return value;
}

void RemoteInstanceReader::SetReferencedClass(TCIMValue& value, const Pegasus::CIMInstance& remote,
                                              const std::string& name) {
    if (const auto referenced = ReferencedClass(remote, name)) {
        value.SetReferencedClass(referenced);
    }
}

void RemoteInstanceReader::Store(PropertyName& name, TCIMValue value, ICIMInstance& instance) const {
    if (name.stored.empty()) {
        name.stored = NormalizeName(name.text);
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
    return referencedClasses_.emplace(className, namespace_->FindClass(className)).first->second;
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

NodeMark::NodeMark(const std::string& namespaceName, const std::string& nodeKey, bool isMultiNode)
    : nodeNumber_(IsController(namespaceName) ? ControllerNumber(namespaceName) : nodeKey),
      instanceIdPrefix_("Node" + (isMultiNode ? nodeKey : nodeNumber_) + ":"),
      marksOnlyEmpty_(!isMultiNode && !IsController(namespaceName)) {}

void NodeMark::MarkInstanceId(TCIMValue& value) const {
    const std::string text = value.ToString(10);
    if (text.empty() || !marksOnlyEmpty_) {
        value.Set(instanceIdPrefix_ + text);
    }
}

}  // namespace NQELVSK20
