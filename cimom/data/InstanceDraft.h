#pragma once

#include <pugixml.hpp>
#include <string>
#include <vector>

#include "cimom/common/CimError.h"
#include "cimom/data/Instance.h"

namespace cimom {

/// An instance on its way to be made or changed by a client, whose values are checked against the class. What
/// is wrong with them is thrown as CimError.
class InstanceDraft {
public:
    /// Of a new instance, with the defaults that the class has for its properties. `type` must outlive this.
    explicit InstanceDraft(const ClassView& type);

    /// Of a change to an instance.
    explicit InstanceDraft(const Instance& instance);

    /// Takes over the value of a property element that a client sent.
    void take(pugi::xml_node property);

    /// Gives a property a value; a null node makes it null. `mismatch` is the status for one of another type.
    void set(const std::string& property, pugi::xml_node value, CimStatus mismatch);

    /// Gives a property the value that the class has for it, or null.
    void setDefault(const std::string& property);

    /// The instance with all that was set; of a new one the keys make the path.
    Instance build() const;

private:
    /// What the instance will hold of a property: the attributes besides its name, and the value element.
    struct Entry {
        std::size_t member;
        std::string attributes;
        std::string value;
    };

    std::size_t memberOf(const std::string& property) const;
    bool changesKey(const MemberView& member, pugi::xml_node value) const;
    void put(std::size_t member, const std::string& attributes, const std::string& value);

    const ClassView& type_;
    ObjectPath path_;
    std::vector<Entry> entries_;
};

}  // namespace cimom
