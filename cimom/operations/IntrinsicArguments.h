#pragma once

#include <initializer_list>
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

    /// The argument PropertyList.
    PropertySelection propertyList() const;

private:
    pugi::xml_node find(std::string_view name) const;
    pugi::xml_node require(std::string_view name, std::string_view element) const;

    const CimRequest& request_;
};

}  // namespace cimom
