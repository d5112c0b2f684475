#pragma once

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>

#include <string>

namespace cimxml {

/// Appends CLASS and INSTANCE elements with everything in them, as embedded objects need it.
class ObjectWriter {
public:
    explicit ObjectWriter(std::string& out) : out_(out) {}

    /// Nothing for a null object.
    void write(const Pegasus::CIMConstObject& object);

private:
    void writeInstance(const Pegasus::CIMConstInstance& instance);
    void writeClass(const Pegasus::CIMConstClass& cimClass);
    void writeProperty(const Pegasus::CIMConstProperty& property);
    void writeMethod(const Pegasus::CIMConstMethod& method);
    void writeParameter(const Pegasus::CIMConstParameter& parameter);
    void writeQualifier(const Pegasus::CIMConstQualifier& qualifier);
    template <typename Owner>
    void writeQualifiers(const Owner& owner);
    template <typename Element>
    void writeOrigin(const Element& element);

    std::string& out_;
};

}  // namespace cimxml
