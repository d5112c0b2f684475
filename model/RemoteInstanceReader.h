#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMProperty.h>

#include <boost/shared_ptr.hpp>
#include <map>
#include <string>
#include <vector>

#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {

class ClassNamespace;
class ICIMInstance;
class TCimHTTPClass;
struct RemoteNode;

/// How the instances of one node are told from those of the others: the number kept in "NodeID", and the
/// prefix of "InstanceID" values.
///
/// In the namespaces of a management controller (their names hold "vqm" and the controller's zero-based
/// digit) the number comes from that digit, else it is the node key.
class NodeMark {
public:
    NodeMark(const std::string& namespaceName, const std::string& nodeKey, bool isMultiNode);

    const std::string& NodeNumber() const { return nodeNumber_; }

    /// Rewrites the value of an "InstanceID". On a single node outside a controller's namespaces only an
    /// empty one is: the others are unique as they are.
    void MarkInstanceId(TCIMValue& value) const;

private:
    std::string nodeNumber_;
    std::string instanceIdPrefix_;
    bool marksOnlyEmpty_;
};

/// Turns the instances that one node sends of one class into host instances, with the node's mark and the
/// rules of the classes that need some.
///
/// A property that the host refuses is logged and left out; it costs nothing but itself. Made for tens of
/// thousands of instances: what is the same for all of them is found out once.
class RemoteInstanceReader {
public:
    RemoteInstanceReader(boost::shared_ptr<ClassNamespace> nameSpace,
                         boost::shared_ptr<TCimHTTPClass> cimClass, const RemoteNode& node);

    /// The host's form of an instance, which the caller shares; empty for one that is not to be shown.
    boost::shared_ptr<ICIMInstance> Read(const Pegasus::CIMInstance& remote);

private:
    /// What there is to know of a property by its name.
    struct PropertyName {
        Pegasus::String remote;
        std::string text;    // as the server spells it
        std::string stored;  // normalised; empty until that was done
        bool isInstanceId = false;
        bool isSlotNumber = false;
    };

    PropertyName NameOf(const Pegasus::String& remote) const;
    PropertyName& NameAt(Pegasus::Uint32 index, const Pegasus::String& remote);
    void ReadProperties(const Pegasus::CIMInstance& remote, ICIMInstance& instance);
    void ReadMissingKeys(const Pegasus::CIMInstance& remote, ICIMInstance& instance);
    TCIMValue ValueOf(const Pegasus::CIMConstProperty& property, const Pegasus::CIMInstance& remote,
                      const std::string& name);
    TCIMValue ValueOf(const Pegasus::CIMKeyBinding& key, const Pegasus::CIMInstance& remote,
                      const std::string& name);
    void SetReferencedClass(TCIMValue& value, const Pegasus::CIMInstance& remote, const std::string& name);
    void Store(PropertyName& name, TCIMValue value, ICIMInstance& instance) const;
    boost::shared_ptr<ICIMClass> ReferencedClass(const Pegasus::CIMInstance& remote,
                                                 const std::string& property);
    bool IsForAnotherNode(const ICIMInstance& instance) const;

    boost::shared_ptr<ClassNamespace> namespace_;
    boost::shared_ptr<TCimHTTPClass> class_;
    boost::shared_ptr<ICIMClass> hostClass_;  // the same
    NodeMark mark_;
    TCIMValue nodeNumber_;
    bool convertsNulls_;
    bool isSlotClass_;
    bool dropsRemoteEvents_;
    std::vector<PropertyName> names_;  // by position, missing keys last: a class's instances list them alike
    std::map<std::string, boost::shared_ptr<ICIMClass>> referencedClasses_;  // by name; empty: not known
    std::map<std::string, TCIMValue::TCIMType> keyTypes_;                    // declared ones, by key name
};

}  // namespace NQELVSK20
