#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <map>
#include <string>
#include <vector>

#include "model/ClassMembers.h"
#include "model/TCimHTTPInstance.h"
#include "model/TCimHTTPQualifier.h"
#include "namespace/names/Names.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/ICIMNamedElement.h"

namespace NQELVSK20 {

class ClassNamespace;
class TCimHTTPMethodDecl;
struct RemoteNode;

/// A class of a remote CIM namespace: its own members and qualifiers, merged from what every node of the
/// machine says about it, its place in the class tree, and the instances collected last.
///
/// Must be owned by a boost::shared_ptr before Initialize. Refers weakly to its namespace and superclass and
/// shares ownership of its members, subclasses and collected instances.
///
/// Not thread-safe: one thread at a time, and two enumerations of one class must not overlap. Remote failures
/// are logged and show as missing members or instances.
class TCimHTTPClass : public ICIMClass,
                      public ICIMNamedElement,
                      public boost::enable_shared_from_this<TCimHTTPClass> {
public:
    /// `timeout` in milliseconds holds for the class's enumerations and method calls. The superclass is not
    /// kept: see SuggestSuperclass.
    TCimHTTPClass(boost::shared_ptr<ICIMNamespace> nameSpace, unsigned int timeout, std::string name,
                  boost::shared_ptr<TCimHTTPClass> superclass);
    TCimHTTPClass(const TCimHTTPClass&) = delete;

    /// Fetches the definition from every node and adds the property "NodeID". Does nothing the second time,
    /// for "<root>", and for a class that the union namespace knows, which is copied from there, unless the
    /// namespace says that this failed.
    ///
    /// Throws, when there are nodes and none of them gave a definition, the remote library's
    /// ConnectionTimeoutException if the last attempt on one of them timed out, else its
    /// UninitializedObjectException; status 28 when the nodes disagree about a qualifier that must not be
    /// overridden; status 25 for a malformed name of a member.
    void Initialize();

    /// Says below which class this one hangs unless the server, which Commit asks, knows another. The root
    /// class at first. A class that derives from this one is left out of account: the chain would have no
    /// end.
    void SuggestSuperclass(const boost::shared_ptr<TCimHTTPClass>& superclass);

    /// The property that tells of each instance which node it came from: a new declaration, not yet added;
    /// and adding one, under the rules of AddPropertyDecl.
    boost::shared_ptr<ICIMPropertyDecl> AllocateNodeId();
    void DeclareNodeId();

    /// Adds a method; throws status 16 for a duplicate.
    void AddMethodDecl(boost::shared_ptr<TCimHTTPMethodDecl> declaration);

    /// Attaches the subclasses of the class that this one replaces.
    void TakeOverSubclasses(TCimHTTPClass& old);

    /// Forgets the subclasses, as the root of a tree that is given up.
    void ForgetSubclasses() { subclasses_.clear(); }

    /// Takes a class that is not to stay out of the tree.
    void LeaveTree();

    /// The same as CreateInstance.
    boost::shared_ptr<ICIMInstance> AllocateInstance(TContext context) {
        return CreateInstance(std::move(context));
    }

    /// The instance of a path among those collected last, else after enumerating the class once. Host,
    /// namespace, order and letter case of the key names do not matter. Empty when there is none.
    boost::shared_ptr<ICIMInstance> FindInstance(const TCIMReference& reference, TContext context);

    /// Lets go of the collected instances. They hold the class, so whoever drops the class has to call this.
    void ForgetInstances() { instances_.Clear(); }

    /// The namespace gives the class up: it lets go of the collected instances, and those of later
    /// enumerations by somebody who still holds it are not kept, for nobody would free them.
    void LeaveNamespace();

    /// The type that this class, or the nearest superclass it knows, declares for a property; unknown when
    /// none does. Asks no server.
    TCIMValue::TCIMType DeclaredType(const std::string& property) const;

    /// True when the namespace is connected to more than one node.
    bool IsMultiNode() const;

    // ICIMClass
    /// Accepts everything: members are checked when they are added.
    void Validate(TContext) override {}

    /// Enters the class into its namespace and attaches it to its superclass, which it asks the server for;
    /// when the server cannot tell, or tells one that cannot be had, to the one suggested. Throws status 16
    /// when the namespace refuses the duplicate; the class tree is then as it was.
    void Commit(TContext context) override;
    void Reserved4(TContext context) override;
    void Reserved5(TContext context) override;
    const std::string& GetName(TContext) const override { return name_; }

    /// Empty once the namespace is gone.
    boost::shared_ptr<ICIMNamespace> GetNamespace(TContext) const override { return namespace_.lock(); }
    bool IsAssociation(TContext) const override { return HasTrueQualifier("ASSOCIATION"); }
    bool IsAbstract(TContext) const override { return HasTrueQualifier("ABSTRACT"); }
    bool IsTopLevel(TContext context) const override;

    /// Asks the server. When the server cannot tell, the superclass that the class is attached to; empty for
    /// "<root>" and while the namespace is not connected.
    boost::shared_ptr<ICIMClass> GetSuperClass(TContext context) const override;
    void EnumerateSubclasses(const ClassCallback& callback, bool deep, TContext context) const override;
    bool IsSubclassOf(boost::shared_ptr<ICIMClass> other, TContext context) const override;
    void EnumerateReferencedClasses(const ClassCallback& callback, TContext context) const override;
    void EnumerateReferencedClassesByName(const std::string& className, const ClassCallback& callback,
                                          TContext context) const override;
    void EnumerateKeyPropertyNames(const NameCallback& callback, TContext context) const override;
    boost::shared_ptr<ICIMPropertyDecl> AllocatePropertyDecl(const std::string& name,
                                                             const TCIMValue& defaultValue,
                                                             TContext context) override;

    /// Throws status 15 for a missing name, except "DateTimeOfCollection" spelled so, which gives an empty
    /// pointer.
    boost::shared_ptr<ICIMPropertyDecl> GetPropertyDecl(const std::string& name,
                                                        TContext context) const override;
    void EnumeratePropertyDecls(const PropertyDeclCallback& callback, TContext context) const override;
    boost::shared_ptr<ICIMNamedElement> GetMemberEntry(const std::string& name,
                                                       TContext context) const override;
    void Reserved21(const std::string& name, TContext context) override;
    void EnumerateMemberEntries(const MemberCallback& callback, TContext context) const override;
    boost::shared_ptr<ICIMInstance> CreateInstance(TContext context) override;

    /// Collects the instances of every node before the first callback; they come in the order of their paths.
    void EnumerateInstances(const InstanceCallback& callback, bool deep, TContext context) override;
    boost::shared_ptr<ICIMMethodDecl> AllocateMethodDecl(const std::string& name,
                                                         TCIMValue::TCIMType returnType,
                                                         TContext context) override;
    boost::shared_ptr<ICIMMethodDecl> GetMethodDecl(const std::string& name, TContext context) const override;
    void EnumerateMethodDecls(const MethodDeclCallback& callback, TContext context) const override;
    TCIMValue Reserved28(const std::string&, TContext) const override { return TCIMValue(); }
    bool operator==(const ICIMClass& other) const override;
    bool operator<(const ICIMClass& other) const override;

    /// Do nothing: classes are not copied by assignment.
    TCimHTTPClass& operator=(const ICIMClass&) override { return *this; }
    TCimHTTPClass& operator=(const TCimHTTPClass&) { return *this; }
    bool Reserved32(TContext) const override { return false; }
    void Reserved33(TContext) override {}

    /// Makes this class the superclass of another, which leaves its former superclass. One that has the name
    /// of a subclass takes its place. A class that this one derives from is refused with status 31: the chain
    /// would have no end.
    void AddSubclass(boost::shared_ptr<ICIMClass> subclass, TContext context) override;
    void Reserved35(boost::shared_ptr<ICIMClass>, TContext) override {}

    /// Collects an instance, unless one of the same path is there or the class has left its namespace.
    void AddInstance(boost::shared_ptr<ICIMInstance> instance, TContext context) override;
    void RemoveInstance(boost::shared_ptr<ICIMInstance> instance, TContext context) override;
    void Reserved38(boost::shared_ptr<ICIMInstance>, TContext) override {}
    void Reserved39(boost::shared_ptr<ICIMInstance>, TContext) override {}
    void AddPropertyDecl(boost::shared_ptr<ICIMPropertyDecl> declaration, TContext context) override;
    void Reserved41(boost::shared_ptr<ICIMPropertyDecl>, TContext) override {}
    void Reserved42(boost::shared_ptr<ICIMMethodDecl>, TContext) override {}
    void Reserved43(boost::shared_ptr<ICIMMethodDecl>, TContext) override {}

    /// Runs the method through the first node only. A malformed path, name or argument throws the remote
    /// library's exception; a failed call is logged and gives a null result.
    void InvokeMethod(TCIMValue& result, const TCIMReference& object, const std::string& method,
                      const TContext& inputs, TContext& outputs, TContext context) override;

    // ICIMNamedElement
    void AddQualifier(boost::shared_ptr<ICIMQualifier> qualifier, TContext context) override;
    boost::shared_ptr<ICIMQualifier> AllocateQualifier(const std::string& name, const TCIMValue& value,
                                                       TContext context) override;
    boost::shared_ptr<ICIMQualifier> AllocateQualifier(boost::shared_ptr<ICIMQualifierDecl> declaration,
                                                       const TCIMValue& value, TContext context) override;
    boost::shared_ptr<ICIMQualifier> FindQualifier(const std::string& name, bool& found,
                                                   TContext context) const override;
    boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name, TContext context) const override;
    void EnumerateQualifiers(const QualifierCallback& callback, TContext context) const override;

private:
    /// The namespace, which every remote call needs; empty, and a broken precondition, once it is gone.
    boost::shared_ptr<ClassNamespace> OwnNamespace(const char* operation) const;
    bool IsRoot() const { return name_ == kRootClassName; }
    boost::shared_ptr<ICIMClass> SuperclassToAttachTo(TContext context) const;

    bool IsCopiedFromUnion(const ClassNamespace& nameSpace) const;
    bool DerivesFrom(const ICIMClass& other) const;
    boost::shared_ptr<TCimHTTPClass> KnownSuperclass() const;
    void DropSubclass(const ICIMClass& subclass);
    void CollectInstances(bool deep);
    void CollectFrom(const RemoteNode& node, const boost::shared_ptr<ClassNamespace>& nameSpace, bool deep);
    void ForgetUnlessKept();
    bool HasTrueQualifier(const std::string& name) const;
    void WalkReferencedClasses(const NameCallback& isWanted, const ClassCallback& callback) const;
    std::string ReferencedClassName(const std::string& key, const ICIMPropertyDecl& declaration) const;

    boost::weak_ptr<ICIMNamespace> namespace_;
    std::string name_;
    boost::weak_ptr<ICIMClass> superclass_;  // set by Initialize, and so the mark that it ran
    bool isInNamespace_ = true;              // until LeaveNamespace
    QualifierSet qualifiers_;
    ClassMembers members_;
    // Asked for by GetMemberEntry and EnumerateMemberEntries, and filled by nothing: kept, hosts rely on
    // both.
    std::map<std::string, boost::shared_ptr<ICIMNamedElement>> memberEntries_;
    std::vector<boost::shared_ptr<ICIMClass>> subclasses_;
    InstanceCollection instances_;
    bool registered_ = false;
    unsigned int timeout_;  // milliseconds
};

}  // namespace NQELVSK20
