#pragma once

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>

#include <string>

#include "cimxml/common/XmlOutput.h"

namespace cimxml {

/// Appends CLASS and INSTANCE elements with everything in them.
class ObjectWriter {
public:
    explicit ObjectWriter(XmlOutput out) : out_(out) {}

    /// Nothing for a null object.
    void write(const Pegasus::CIMConstObject& object);

private:
    void writeInstance(const Pegasus::CIMConstInstance& instance);
    void writeClass(const Pegasus::CIMConstClass& cimClass);
    void writeProperty(const Pegasus::CIMConstProperty& property);
    void writeMethod(const Pegasus::CIMConstMethod& method);
    void writeParameter(const Pegasus::CIMConstParameter& parameter);
    void writeQualifier(const Pegasus::CIMConstQualifier& qualifier);
    /// The qualifier by which OpenPegasus tells embedded classes, unless the property has it.
    void writeObjectQualifier(const Pegasus::CIMConstProperty& property);
    template <typename Owner>
    void writeQualifiers(const Owner& owner);
    template <typename Element>
    void writeOrigin(const Element& element);
    template <typename Element>
    void writeType(const Element& element, Pegasus::CIMType type);

    void beginElement(const std::string& element, const char* nameAttribute, const Pegasus::CIMName& name);
    void endElement(const std::string& element);
    void writeName(const char* attribute, const Pegasus::CIMName& name);
    void writeUnlessDefault(const char* attribute, bool value, bool defaultValue);

    XmlOutput out_;
};

}  // namespace cimxml
