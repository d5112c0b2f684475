#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "cimom/operations/CimRequest.h"
#include "cimom/schema/ClassWriter.h"

namespace cimom {

/// Reads the arguments of an intrinsic operation. Everything wrong with them is CimError (invalid
/// parameter).
class IntrinsicArguments {
public:
    /// Throws when an argument is not among `allowed` or is given twice. The request must outlive this.
    IntrinsicArguments(const CimRequest& request, std::initializer_list<std::string_view> allowed);

    bool boolean(std::string_view name, bool otherwise) const;

    /// The class name, or empty when the argument is missing or null.
    std::string className(std::string_view name) const;
    std::string requiredClassName(std::string_view name) const;

    std::string requiredText(std::string_view name) const;
    ObjectPath requiredInstanceName(std::string_view name) const;

    /// The text of an argument, or nothing when it is missing or null.
    std::optional<std::string> text(std::string_view name) const;

    /// The number that a uint32 argument holds, or nothing when it is missing or null.
    std::optional<std::uint32_t> number(std::string_view name) const;

    /// The element that an argument holds, which has this name.
    pugi::xml_node required(std::string_view name, std::string_view element) const;

    /// An argument that names a class or an instance: CLASSNAME or INSTANCENAME.
    ObjectPath requiredObjectName(std::string_view name) const;

    /// An argument's value as it is, or a null node when it is missing or null.
    pugi::xml_node find(std::string_view name) const;

    /// The argument PropertyList.
    PropertySelection propertyList() const;

private:
    const CimRequest& request_;
};

}  // namespace cimom
