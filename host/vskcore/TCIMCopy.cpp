#include "vskcore/TCIMCopy.h"

#include <boost/pointer_cast.hpp>
#include <map>
#include <string>

#include "vskcore/CimNames.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/ICIMNamespace.h"
#include "vskcore/ICIMParameterDecl.h"
#include "vskcore/ICIMQualifier.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

namespace {

using TType = TCIMValue::TCIMType;

/// What the class at the head of every chain is called in namespaces that have one.
constexpr const char* kRootClass = "<root>";

/// The declaration of a qualifier in the target, made there like the source's when it is missing.
boost::shared_ptr<ICIMQualifierDecl> DeclarationFor(const ICIMQualifier& qualifier, ICIMNamespace& target) {
    const std::string& name = qualifier.GetName({});
    if (const boost::shared_ptr<ICIMQualifierDecl> known = target.GetQualifierDecl(name, {})) {
        return known;
    }
    const boost::shared_ptr<ICIMQualifierDecl> source = qualifier.GetQualifierDecl({});
    const auto declaration = target.AllocateQualifierDecl(
        name, source->GetValue({}), static_cast<ICIMQualifierDecl::EScope>(source->GetScope({})),
        static_cast<ICIMQualifierDecl::EFlavor>(source->GetFlavor({})), {});
    declaration->Commit({});
    return declaration;
}

void CopyQualifier(const ICIMQualifier& qualifier, ICIMNamedElement& element, ICIMNamespace& target) {
    const boost::shared_ptr<ICIMQualifier> copy =
        element.AllocateQualifier(DeclarationFor(qualifier, target), qualifier.GetValue({}), {});
    const unsigned int wanted = qualifier.GetFlavor({});
    const unsigned int given = copy->GetFlavor({});
    if ((wanted & ~given) != 0) {
        copy->AddFlavor(wanted & ~given, {});
    }
    if ((given & ~wanted) != 0) {
        copy->RemoveFlavor(given & ~wanted, {});
    }
    element.AddQualifier(copy, {});
}

/// Copies the qualifiers of a member, which is new and has none.
void CopyQualifiers(const ICIMNamedElement& source, ICIMNamedElement& member, ICIMNamespace& target) {
    source.EnumerateQualifiers(
        [&member, &target](const boost::shared_ptr<ICIMQualifier>& qualifier) {
            CopyQualifier(*qualifier, member, target);
            return true;
        },
        {});
}

using TQualifiers = std::map<std::string, boost::shared_ptr<ICIMQualifier>, TNameLess>;

bool IsInherited(const ICIMQualifier& qualifier) {
    return (qualifier.GetFlavor({}) & ICIMQualifierDecl::eFlavorToSubclass) != 0;
}

/// The qualifiers that hold for a class (DSP0004): its own, and those that it inherits from above. The
/// nearest of a name hides the others; empty where the nearest is another class's that is not passed on.
TQualifiers EffectiveQualifiers(const boost::shared_ptr<ICIMClass>& source) {
    TQualifiers nearest;
    for (auto level = source; level && level->GetName({}) != kRootClass; level = level->GetSuperClass({})) {
        const auto element = boost::dynamic_pointer_cast<ICIMNamedElement>(level);
        if (!element) {
            break;
        }
        element->EnumerateQualifiers(
            [&](const boost::shared_ptr<ICIMQualifier>& qualifier) {
                const bool holds = level == source || IsInherited(*qualifier);
                nearest.emplace(qualifier->GetName({}), holds ? qualifier : nullptr);
                return true;
            },
            {});
    }
    return nearest;
}

/// Copies the qualifiers that hold for the source and that the copy does not have by itself. Inherited ones
/// too: the copy may be of a kind that knows its own qualifiers only, and without "Association" among them
/// it would refuse the source's references.
void CopyClassQualifiers(const boost::shared_ptr<ICIMClass>& source, const boost::shared_ptr<ICIMClass>& copy,
                         ICIMNamespace& target) {
    const auto element = boost::dynamic_pointer_cast<ICIMNamedElement>(copy);
    if (!element) {
        return;
    }
    for (const auto& [name, qualifier] : EffectiveQualifiers(source)) {
        if (qualifier && !element->GetQualifier(name, {})) {
            CopyQualifier(*qualifier, *element, target);
        }
    }
}

bool HasProperty(const ICIMClass& cimClass, const std::string& name) {
    try {
        return cimClass.GetPropertyDecl(name, {}) != nullptr;
    } catch (const TVSKException& failure) {
        if (failure.GetStatusCode() != eVSKNotFound) {
            throw;
        }
        return false;
    }
}

/// The array code of a type when it is an array's.
TType WithArrayFlag(TType type, bool isArray) {
    if (isArray && type < TType::eUnknownArray) {
        return static_cast<TType::ECIMType>(type + TType::eUnknownArray);
    }
    return type;
}

/// The default value of a property, which also carries the property's type.
TCIMValue DefaultValue(const ICIMPropertyDecl& property) {
    const TCIMValue& value = property.GetValue({});
    const bool carriesType = !value.IsNull() || value.GetType() != TType::eUnknown;
    return carriesType ? value : TCIMValue(WithArrayFlag(property.GetType({}), property.IsArray({})), 0);
}

void CopyProperty(const ICIMPropertyDecl& property, ICIMClass& copy, ICIMNamespace& target) {
    const auto declaration = copy.AllocatePropertyDecl(property.GetName({}), DefaultValue(property), {});
    CopyQualifiers(property, *declaration, target);
    declaration->Commit({});
}

void CopyParameter(const ICIMParameterDecl& parameter, ICIMMethodDecl& copy, ICIMNamespace& target) {
    const auto declaration = copy.AllocateParameterDecl(
        parameter.GetName({}), WithArrayFlag(parameter.GetType({}), parameter.IsArray({})), {});
    CopyQualifiers(parameter, *declaration, target);
    declaration->Commit({});
}

void CopyMethod(const ICIMMethodDecl& method, ICIMClass& copy, ICIMNamespace& target) {
    const auto declaration = copy.AllocateMethodDecl(method.GetName({}), method.GetType({}), {});
    CopyQualifiers(method, *declaration, target);
    method.EnumerateParameterDecls(
        [&declaration, &target](const boost::shared_ptr<ICIMParameterDecl>& parameter) {
            CopyParameter(*parameter, *declaration, target);
            return true;
        },
        {});
    declaration->Commit({});
}

/// The target's superclass for a copy, copied before it when the target has none of that name; empty for a
/// top-level class.
boost::shared_ptr<ICIMClass> SuperclassIn(const boost::shared_ptr<ICIMNamespace>& target,
                                          const ICIMClass& source) {
    const boost::shared_ptr<ICIMClass> superclass = source.GetSuperClass({});
    if (!superclass || superclass->GetName({}) == kRootClass) {
        return {};
    }
    if (const boost::shared_ptr<ICIMClass> known = target->GetClass(superclass->GetName({}), {})) {
        return known;
    }
    TCIMCopy::CopyClass(superclass, target);
    return target->GetClass(superclass->GetName({}), {});
}

}  // namespace

void TCIMCopy::CopyClass(boost::shared_ptr<ICIMClass> source, boost::shared_ptr<ICIMNamespace> target) {
    const boost::shared_ptr<ICIMClass> copy =
        target->AllocateClass(source->GetName({}), SuperclassIn(target, *source), {});
    // Qualifiers first: only they make the class an association, which may have reference properties.
    CopyClassQualifiers(source, copy, *target);
    source->EnumeratePropertyDecls(
        [&copy, &target](const boost::shared_ptr<ICIMPropertyDecl>& property) {
            if (!HasProperty(*copy, property->GetName({}))) {
                CopyProperty(*property, *copy, *target);
            }
            return true;
        },
        {});
    source->EnumerateMethodDecls(
        [&copy, &target](const boost::shared_ptr<ICIMMethodDecl>& method) {
            if (!copy->GetMethodDecl(method->GetName({}), {})) {
                CopyMethod(*method, *copy, *target);
            }
            return true;
        },
        {});
    copy->Commit({});
}

}  // namespace NQELVSK20
