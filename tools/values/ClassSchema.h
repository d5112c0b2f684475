#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tools/common/Names.h"
#include "tools/values/ValueMap.h"
#include "vskcore/ICIMClass.h"

namespace tool {

/// A class with everything that it inherits. A class object holds its own members only; here stand those of
/// the whole chain of superclasses, a redefinition hiding what it redefines.
class ClassSchema {
public:
    template <typename DECLARATION>
    struct Member {
        boost::shared_ptr<DECLARATION> declaration;
        std::string name;    ///< As declared.
        std::string origin;  ///< The class of the chain that declares it.
    };
    using Property = Member<NQELVSK20::ICIMPropertyDecl>;
    using Method = Member<NQELVSK20::ICIMMethodDecl>;
    using Chain = std::vector<boost::shared_ptr<NQELVSK20::ICIMClass>>;

    /// `chain` begins with the class itself and ends at the top; it is shared.
    explicit ClassSchema(Chain chain);

    const Chain& chain() const { return chain_; }
    const NQELVSK20::ICIMClass& cimClass() const { return *chain_.front(); }

    /// The class's own members come first, then those of each superclass, each in the order of their names.
    const std::vector<Property>& properties() const { return properties_; }
    const std::vector<Method>& methods() const { return methods_; }

    /// A member by name without regard to case; null when there is none. Lives as long as the schema.
    const Property* findProperty(const std::string& name) const;
    const Method* findMethod(const std::string& name) const;

    /// The meaning of a property's values, found along the chain; null when there is none.
    const ValueMap* valueMapOf(const std::string& property) const;

    /// True for a property that is a key anywhere in the chain.
    bool isKey(const std::string& property) const;

private:
    /// Where in its list a member of a name stands.
    using Places = std::map<std::string, std::size_t, NameLess>;

    void addMembersOf(const NQELVSK20::ICIMClass& cimClass);
    void addFacts(const NQELVSK20::ICIMPropertyDecl& declaration, const std::string& name);

    Chain chain_;
    std::vector<Property> properties_;
    std::vector<Method> methods_;
    Places propertyPlaces_;
    Places methodPlaces_;
    std::map<std::string, ValueMap, NameLess> valueMaps_;
    std::set<std::string, NameLess> keys_;
};

}  // namespace tool
