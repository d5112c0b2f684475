#pragma once

#include <boost/shared_ptr.hpp>
#include <map>
#include <string>

#include "namespace/names/Names.h"
#include "vskcore/ICIMClass.h"

namespace NQELVSK20 {

/// The properties and methods that a class itself declares, by normalised name, and the rules for what may
/// become one. Shares ownership of them.
class ClassMembers {
public:
    using Properties = std::map<std::string, boost::shared_ptr<ICIMPropertyDecl>>;
    using Methods = std::map<std::string, boost::shared_ptr<ICIMMethodDecl>>;

    // As a server defines them, under their normalised names, with no rule but that the first one of a name
    // stays.

    void InsertProperty(const std::string& key, const boost::shared_ptr<ICIMPropertyDecl>& declaration) {
        properties_.emplace(key, declaration);
    }

    /// The same for a reference property, with the class that it refers to by its definition.
    void InsertReference(const std::string& key, const boost::shared_ptr<ICIMPropertyDecl>& declaration,
                         const std::string& referencedClass) {
        if (properties_.emplace(key, declaration).second) {
            referencedClasses_[key] = referencedClass;
        }
    }
    void InsertMethod(const std::string& key, const boost::shared_ptr<ICIMMethodDecl>& declaration) {
        methods_.emplace(key, declaration);
    }

    // By the host's hand, under the rules of CIM (DSP0004). A refusal changes nothing.

    /// Adds a property to `owner`, or overrides one. Each refusal is logged at level 0: status 22 for a
    /// reference in a class that is no association, 14 for an override of another type, 16 for a duplicate.
    void AddProperty(const ICIMClass& owner, const boost::shared_ptr<ICIMPropertyDecl>& declaration);

    /// Throws status 16 for a duplicate.
    void AddMethod(const ICIMClass& owner, const boost::shared_ptr<ICIMMethodDecl>& declaration);

    // Empty when there is none of that name, in any letter case. Throw status 25 for a malformed name.
    boost::shared_ptr<ICIMPropertyDecl> FindProperty(const std::string& name) const {
        return FindByName(properties_, name);
    }
    boost::shared_ptr<ICIMMethodDecl> FindMethod(const std::string& name) const {
        return FindByName(methods_, name);
    }

    const Properties& AllProperties() const { return properties_; }
    const Methods& AllMethods() const { return methods_; }

    /// The class that the reference property of a normalised name refers to by its definition; empty when the
    /// definition does not tell.
    std::string ReferencedClass(const std::string& key) const;

private:
    void RemoveOverridden(const ICIMClass& owner, const std::string& key,
                          const ICIMPropertyDecl& declaration);
    void MakeRoomForNew(const ICIMClass& owner, const std::string& key, const std::string& propertyName);
    void Remove(Properties::const_iterator property);

    Properties properties_;
    Methods methods_;
    std::map<std::string, std::string> referencedClasses_;  // of reference properties
};

}  // namespace NQELVSK20
