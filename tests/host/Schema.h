#pragma once

#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>
#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "tests/support/schema/TInmemUnion.h"
#include "vskcore/ICIMInstance.h"
#include "vskcore/ICIMProperty.h"

namespace NQELVSK20 {

// A schema in memory for tests, written in few words.

/// A qualifier declaration, committed.
inline boost::shared_ptr<ICIMQualifierDecl> DeclareQualifier(
    TInmemUnion& nameSpace, const std::string& name, const TCIMValue& value = TCIMValue(false),
    ICIMQualifierDecl::EScope scope = ICIMQualifierDecl::eScopeAny,
    ICIMQualifierDecl::EFlavor flavor = ICIMQualifierDecl::eFlavorToSubclass) {
    auto declaration = nameSpace.AllocateQualifierDecl(name, value, scope, flavor, {});
    declaration->Commit({});
    return declaration;
}

/// A union namespace that knows the qualifiers KEY, ASSOCIATION, ABSTRACT and DESCRIPTION.
inline boost::shared_ptr<TInmemUnion> MakeUnion() {
    auto nameSpace = boost::make_shared<TInmemUnion>();
    DeclareQualifier(*nameSpace, "KEY");
    DeclareQualifier(*nameSpace, "ASSOCIATION");
    DeclareQualifier(*nameSpace, "ABSTRACT", TCIMValue(false), ICIMQualifierDecl::eScopeAny,
                     ICIMQualifierDecl::eFlavorNone);
    DeclareQualifier(*nameSpace, "DESCRIPTION", TCIMValue(""), ICIMQualifierDecl::eScopeAny,
                     ICIMQualifierDecl::eFlavorEnableOverride);
    return nameSpace;
}

/// Puts a qualifier on any element, a class's pointer included.
template <typename ELEMENT>
void Qualify(const boost::shared_ptr<ELEMENT>& element, const std::string& name, const TCIMValue& value) {
    const auto named = boost::dynamic_pointer_cast<ICIMNamedElement>(element);
    named->AddQualifier(named->AllocateQualifier(name, value, {}), {});
}

/// Adds a property, by default a string without a value.
inline boost::shared_ptr<ICIMPropertyDecl> AddProperty(
    const boost::shared_ptr<ICIMClass>& cimClass, const std::string& name,
    const TCIMValue& value = TCIMValue(TCIMValue::TCIMType::eString, 0)) {
    auto property = cimClass->AllocatePropertyDecl(name, value, {});
    property->Commit({});
    return property;
}

/// Adds a property that is a key.
inline boost::shared_ptr<ICIMPropertyDecl> AddKey(
    const boost::shared_ptr<ICIMClass>& cimClass, const std::string& name,
    const TCIMValue& value = TCIMValue(TCIMValue::TCIMType::eString, 0)) {
    auto property = cimClass->AllocatePropertyDecl(name, value, {});
    Qualify(property, "KEY", TCIMValue(true));
    property->Commit({});
    return property;
}

/// A class, committed.
inline boost::shared_ptr<ICIMClass> MakeClass(TInmemUnion& nameSpace, const std::string& name,
                                              const boost::shared_ptr<ICIMClass>& superclass = nullptr) {
    auto cimClass = nameSpace.AllocateClass(name, superclass, {});
    cimClass->Commit({});
    return cimClass;
}

inline std::string PathOf(ICIMInstance& instance) {
    return instance.GetReference({}).GetPath();
}

/// The names that an enumeration of named elements calls back with: `run` starts it with a callback.
template <typename ELEMENT, typename RUN>
std::vector<std::string> NamesFrom(const RUN& run) {
    std::vector<std::string> names;
    run([&names](const boost::shared_ptr<ELEMENT>& element) {
        names.push_back(element->GetName({}));
        return true;
    });
    return names;
}

}  // namespace NQELVSK20
