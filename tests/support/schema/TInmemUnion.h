#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <map>
#include <string>

#include "union/TUnionNamespace.h"
#include "vskcore/CimNames.h"

namespace NQELVSK20 {

class TInmemClass;

/// A union namespace with a schema in memory, which tests fill.
///
/// Classes are made with AllocateClass and enter the schema with their Commit; qualifier declarations
/// likewise. Must be owned by a boost::shared_ptr.
class TInmemUnion : public TUnionNamespace, public boost::enable_shared_from_this<TInmemUnion> {
public:
    using TUnionNamespace::operator=;

    /// Takes the instances out of its classes: the two hold each other.
    ~TInmemUnion() override;

    boost::shared_ptr<ICIMClass> AllocateClass(const std::string& name,
                                               boost::shared_ptr<ICIMClass> superclass,
                                               TContext context) override;

    /// The committed class of a name, without regard to case; empty when there is none.
    boost::shared_ptr<ICIMClass> GetClass(const std::string& name, TContext context) override;

    /// The classes without a superclass, each with its subclasses right after it, until the callback returns
    /// false; a false for a subclass ends only that one's level.
    void EnumerateRootClasses(const ClassCallback& callback, TContext context) override;
    boost::shared_ptr<ICIMQualifierDecl> AllocateQualifierDecl(const std::string& name,
                                                               const TCIMValue& defaultValue,
                                                               ICIMQualifierDecl::EScope scope,
                                                               ICIMQualifierDecl::EFlavor flavor,
                                                               TContext context) override;
    boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(const std::string& name,
                                                          TContext context) const override;
    void EnumerateQualifierDecls(const QualifierDeclCallback& callback, TContext context) const override;

    /// Takes all instances out of all classes.
    void ClearInstances() override;

    /// Enters a class or declaration; called by their Commit. One of the same name is replaced.
    void AddClass(boost::shared_ptr<TInmemClass> cimClass);
    void AddQualifierDecl(boost::shared_ptr<ICIMQualifierDecl> declaration);

private:
    std::map<std::string, boost::shared_ptr<TInmemClass>, TNameLess> classes_;
    std::map<std::string, boost::shared_ptr<ICIMQualifierDecl>, TNameLess> qualifierDecls_;
};

}  // namespace NQELVSK20
