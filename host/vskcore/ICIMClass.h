#pragma once

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "vskcore/ICIMElement.h"
#include "vskcore/ICIMInstance.h"
#include "vskcore/ICIMMethodDecl.h"
#include "vskcore/ICIMPropertyDecl.h"

namespace NQELVSK20 {

class ICIMNamespace;

/// A class of a namespace. Operations stand in slot order, after those of ICIMElement. Names are looked up
/// without regard to case; enumerations run in the order of the normalised names. The ReservedN operations
/// hold their slots; the contract gives them no meaning that a plug-in needs.
class ICIMClass : public ICIMElement {
public:
    using ClassCallback = boost::function<bool(boost::shared_ptr<ICIMClass>)>;
    using NameCallback = boost::function<bool(const std::string&)>;
    using PropertyDeclCallback = boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)>;
    using MethodDeclCallback = boost::function<bool(boost::shared_ptr<ICIMMethodDecl>)>;
    using MemberCallback = boost::function<bool(boost::shared_ptr<ICIMNamedElement>)>;
    using InstanceCallback = ICIMInstance::InstanceCallback;

    virtual void Reserved5(TContext context) = 0;
    virtual const std::string& GetName(TContext context) const = 0;
    virtual boost::shared_ptr<ICIMNamespace> GetNamespace(TContext context) const = 0;
    virtual bool IsAssociation(TContext context) const = 0;
    virtual bool IsAbstract(TContext context) const = 0;
    virtual bool IsTopLevel(TContext context) const = 0;

    /// The superclass; the namespace's root class for a top-level class, empty when it cannot be told.
    virtual boost::shared_ptr<ICIMClass> GetSuperClass(TContext context) const = 0;

    /// Calls back with each known subclass; when `deep`, with the subclasses of each right after it. False
    /// from the callback ends the level that it was called for.
    virtual void EnumerateSubclasses(const ClassCallback& callback, bool deep, TContext context) const = 0;
    virtual bool IsSubclassOf(boost::shared_ptr<ICIMClass> other, TContext context) const = 0;

    /// Calls back with each class that a reference property of this class points at, until false.
    virtual void EnumerateReferencedClasses(const ClassCallback& callback, TContext context) const = 0;

    /// The same for those whose name is `className`.
    virtual void EnumerateReferencedClassesByName(const std::string& className, const ClassCallback& callback,
                                                  TContext context) const = 0;

    /// Names of the key properties that this class itself declares.
    virtual void EnumerateKeyPropertyNames(const NameCallback& callback, TContext context) const = 0;

    /// Makes a property for this class, not yet added. The caller shares ownership.
    virtual boost::shared_ptr<ICIMPropertyDecl> AllocatePropertyDecl(const std::string& name,
                                                                     const TCIMValue& defaultValue,
                                                                     TContext context) = 0;

    /// A property that this class declares; throws status 15 when there is none of that name.
    virtual boost::shared_ptr<ICIMPropertyDecl> GetPropertyDecl(const std::string& name,
                                                                TContext context) const = 0;
    virtual void EnumeratePropertyDecls(const PropertyDeclCallback& callback, TContext context) const = 0;
    virtual boost::shared_ptr<ICIMNamedElement> GetMemberEntry(const std::string& name,
                                                               TContext context) const = 0;
    virtual void Reserved21(const std::string& name, TContext context) = 0;
    virtual void EnumerateMemberEntries(const MemberCallback& callback, TContext context) const = 0;

    /// Makes an empty instance of this class, not yet added. The caller shares ownership.
    virtual boost::shared_ptr<ICIMInstance> CreateInstance(TContext context) = 0;

    /// Calls back with every instance of this class until false; when `deep`, goes on with the subclasses.
    virtual void EnumerateInstances(const InstanceCallback& callback, bool deep, TContext context) = 0;

    /// Makes a method for this class, not yet added. The caller shares ownership.
    virtual boost::shared_ptr<ICIMMethodDecl> AllocateMethodDecl(const std::string& name,
                                                                 TCIMValue::TCIMType returnType,
                                                                 TContext context) = 0;

    /// A method that this class declares; empty when there is none of that name.
    virtual boost::shared_ptr<ICIMMethodDecl> GetMethodDecl(const std::string& name,
                                                            TContext context) const = 0;
    virtual void EnumerateMethodDecls(const MethodDeclCallback& callback, TContext context) const = 0;
    virtual TCIMValue Reserved28(const std::string& name, TContext context) const = 0;
    virtual bool operator==(const ICIMClass& other) const = 0;
    virtual bool operator<(const ICIMClass& other) const = 0;
    virtual ICIMClass& operator=(const ICIMClass& other) = 0;
    virtual bool Reserved32(TContext context) const = 0;
    virtual void Reserved33(TContext context) = 0;

    /// Attaches a class that derives from this one.
    virtual void AddSubclass(boost::shared_ptr<ICIMClass> subclass, TContext context) = 0;
    virtual void Reserved35(boost::shared_ptr<ICIMClass> subclass, TContext context) = 0;
    virtual void AddInstance(boost::shared_ptr<ICIMInstance> instance, TContext context) = 0;
    virtual void RemoveInstance(boost::shared_ptr<ICIMInstance> instance, TContext context) = 0;
    virtual void Reserved38(boost::shared_ptr<ICIMInstance> instance, TContext context) = 0;
    virtual void Reserved39(boost::shared_ptr<ICIMInstance> instance, TContext context) = 0;

    /// Adds a property, subject to the rules of CIM: see the statuses 14, 15, 16 and 22.
    virtual void AddPropertyDecl(boost::shared_ptr<ICIMPropertyDecl> declaration, TContext context) = 0;
    virtual void Reserved41(boost::shared_ptr<ICIMPropertyDecl> declaration, TContext context) = 0;
    virtual void Reserved42(boost::shared_ptr<ICIMMethodDecl> declaration, TContext context) = 0;
    virtual void Reserved43(boost::shared_ptr<ICIMMethodDecl> declaration, TContext context) = 0;

    /// Runs a method on the object that `object` names, an instance or this class. `outputs` gains the
    /// method's out-parameters; keys that are there stay.
    virtual void InvokeMethod(TCIMValue& result, const TCIMReference& object, const std::string& method,
                              const TContext& inputs, TContext& outputs, TContext context) = 0;
};

}  // namespace NQELVSK20
