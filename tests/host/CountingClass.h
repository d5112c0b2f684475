#pragma once

#include <functional>

#include "tests/support/schema/TInmemClass.h"

namespace NQELVSK20 {

/// A class that counts what it is asked, and whose superclass query is replaceable.
class CountingClass : public TInmemClass {
public:
    using TInmemClass::operator=;
    using TInmemClass::TInmemClass;

    boost::shared_ptr<ICIMClass> GetSuperClass(TContext context) const override {
        ++superclassQueries;
        return superclassQuery ? superclassQuery() : TInmemClass::GetSuperClass(context);
    }
    void EnumeratePropertyDecls(const PropertyDeclCallback& callback, TContext context) const override {
        ++propertyWalks;
        TInmemClass::EnumeratePropertyDecls(callback, context);
    }
    boost::shared_ptr<ICIMPropertyDecl> GetPropertyDecl(const std::string& name,
                                                        TContext context) const override {
        ++propertyQueries;
        if (name == "DateTimeOfCollection") {
            return {};  // the one name for which some classes give an empty pointer and do not throw
        }
        return TInmemClass::GetPropertyDecl(name, context);
    }

    int Calls() const { return superclassQueries + propertyWalks + propertyQueries; }

    mutable int superclassQueries = 0;
    mutable int propertyWalks = 0;
    mutable int propertyQueries = 0;
    std::function<boost::shared_ptr<ICIMClass>()> superclassQuery;
};

}  // namespace NQELVSK20
