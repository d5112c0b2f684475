#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <map>
#include <string>

#include "tests/support/schema/TInmemElement.h"
#include "vskcore/ICIMClass.h"

namespace NQELVSK20 {

class TInmemUnion;

/// A class of the union namespace, all in memory. It holds its superclass, and its subclasses weakly. What
/// the contract has no meaning for throws status 31, and so does a method's invocation. Must be owned by a
/// boost::shared_ptr.
class TInmemClass : public ICIMClass,
                    public TInmemElement<ICIMNamedElement>,
                    public boost::enable_shared_from_this<TInmemClass> {
public:
    /// Keeps the namespace weakly; `superclass` is empty for a top-level class.
    TInmemClass(const boost::shared_ptr<TInmemUnion>& nameSpace, const std::string& name,
                const boost::shared_ptr<ICIMClass>& superclass);

    TInmemClass(const TInmemClass&) = delete;

    /// Throws status 25 when the name is no CIM name.
    void Validate(TContext context) override;

    /// Enters the class into its namespace and makes it known to its superclass.
    void Commit(TContext context) override;
    void Reserved4(TContext context) override;
    void Reserved5(TContext context) override;
    const std::string& GetName(TContext context) const override;
    boost::shared_ptr<ICIMNamespace> GetNamespace(TContext context) const override;

    /// True for a class with the qualifier "ASSOCIATION", and for its subclasses.
    bool IsAssociation(TContext context) const override;
    bool IsAbstract(TContext context) const override;
    bool IsTopLevel(TContext context) const override;

    /// Empty for a top-level class: the union namespace has no root class.
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
    boost::shared_ptr<ICIMPropertyDecl> GetPropertyDecl(const std::string& name,
                                                        TContext context) const override;
    void EnumeratePropertyDecls(const PropertyDeclCallback& callback, TContext context) const override;

    /// A property or method of the class; of one name, the property.
    boost::shared_ptr<ICIMNamedElement> GetMemberEntry(const std::string& name,
                                                       TContext context) const override;
    void Reserved21(const std::string& name, TContext context) override;

    /// The properties, then the methods.
    void EnumerateMemberEntries(const MemberCallback& callback, TContext context) const override;
    boost::shared_ptr<ICIMInstance> CreateInstance(TContext context) override;

    /// In the order of the instances' paths.
    void EnumerateInstances(const InstanceCallback& callback, bool deep, TContext context) override;
    boost::shared_ptr<ICIMMethodDecl> AllocateMethodDecl(const std::string& name,
                                                         TCIMValue::TCIMType returnType,
                                                         TContext context) override;
    boost::shared_ptr<ICIMMethodDecl> GetMethodDecl(const std::string& name, TContext context) const override;
    void EnumerateMethodDecls(const MethodDeclCallback& callback, TContext context) const override;
    TCIMValue Reserved28(const std::string& name, TContext context) const override;
    bool operator==(const ICIMClass& other) const override;
    bool operator<(const ICIMClass& other) const override;

    /// Does nothing: classes are not copied by assignment.
    ICIMClass& operator=(const ICIMClass& other) override;
    TInmemClass& operator=(const TInmemClass& other);
    bool Reserved32(TContext context) const override;
    void Reserved33(TContext context) override;

    /// One of the same name is replaced.
    void AddSubclass(boost::shared_ptr<ICIMClass> subclass, TContext context) override;
    void Reserved35(boost::shared_ptr<ICIMClass> subclass, TContext context) override;

    /// Keeps the instance under its path; one that is there stays.
    void AddInstance(boost::shared_ptr<ICIMInstance> instance, TContext context) override;
    void RemoveInstance(boost::shared_ptr<ICIMInstance> instance, TContext context) override;
    void Reserved38(boost::shared_ptr<ICIMInstance> instance, TContext context) override;
    void Reserved39(boost::shared_ptr<ICIMInstance> instance, TContext context) override;
    void AddPropertyDecl(boost::shared_ptr<ICIMPropertyDecl> declaration, TContext context) override;
    void Reserved41(boost::shared_ptr<ICIMPropertyDecl> declaration, TContext context) override;
    void Reserved42(boost::shared_ptr<ICIMMethodDecl> declaration, TContext context) override;
    void Reserved43(boost::shared_ptr<ICIMMethodDecl> declaration, TContext context) override;
    void InvokeMethod(TCIMValue& result, const TCIMReference& object, const std::string& method,
                      const TContext& inputs, TContext& outputs, TContext context) override;

    /// Not offered by classes: throws status 1.
    boost::shared_ptr<ICIMQualifier> FindQualifier(const std::string& name, bool& found,
                                                   TContext context) const override;

    /// Empty when the class has no such qualifier.
    boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name, TContext context) const override;

    /// Adds a method; called by its Commit. Throws status 16 when there is one of that name.
    void AddMethodDecl(const boost::shared_ptr<ICIMMethodDecl>& declaration);

    /// Lets go of all instances. They hold their class, so whoever ends the class's life has to call this.
    void ClearInstances();

protected:
    boost::shared_ptr<ICIMNamespace> OwnNamespace() const override;
    boost::shared_ptr<ICIMNamedElement> OwnElement() override;

private:
    const boost::weak_ptr<TInmemUnion> namespace_;
    const std::string name_;
    const boost::shared_ptr<ICIMClass> superclass_;
    std::map<std::string, boost::weak_ptr<ICIMClass>, TNameLess> subclasses_;
    std::map<std::string, boost::shared_ptr<ICIMPropertyDecl>, TNameLess> properties_;
    std::map<std::string, boost::shared_ptr<ICIMMethodDecl>, TNameLess> methods_;
    std::map<std::string, boost::shared_ptr<ICIMInstance>> instances_;  // by path
};

}  // namespace NQELVSK20
