#pragma once

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMMethod.h>
#include <Pegasus/Common/CIMParameter.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMQualifier.h>
#include <Pegasus/Common/CIMValue.h>

#include <functional>
#include <string>

#include "tools/snapshot/PathXml.h"

namespace tool {

/// Appends classes, instances and all that is in them as elements of DSP0201. Qualifiers say how they travel
/// themselves: what is written has no need of their declarations.
class ObjectXml {
public:
    /// `out` must outlive this object; `nameSpace` is that of the objects.
    ObjectXml(std::string& out, const std::string& nameSpace)
        : out_(out), paths_(out, nameSpace), nameSpace_(nameSpace) {}

    void writeClass(const Pegasus::CIMConstClass& definition);

    /// Whether a property of an instance is to be written.
    using Filter = std::function<bool(const Pegasus::CIMConstProperty& property)>;

    void writeInstance(const Pegasus::CIMConstInstance& instance, const Filter& filter);

private:
    void writeProperty(const Pegasus::CIMConstProperty& property, bool withQualifiers);
    void writeMethod(const Pegasus::CIMConstMethod& method);
    void writeParameter(const Pegasus::CIMConstParameter& parameter);
    void writeQualifier(const Pegasus::CIMConstQualifier& qualifier);
    template <typename OWNER>
    void writeQualifiers(const OWNER& owner);
    template <typename ELEMENT>
    void writeType(const ELEMENT& element);
    void writeScalarType(Pegasus::CIMType type);
    void begin(const std::string& element, const Pegasus::CIMName& name);
    void end(const std::string& element);

    void writeValue(const Pegasus::CIMValue& value);
    template <typename ITEM>
    void writeItems(const Pegasus::CIMValue& value);
    template <typename ITEM>
    void writeItem(const ITEM& item);
    void writeItem(const Pegasus::CIMObjectPath& path);
    std::string embedded(const Pegasus::CIMConstObject& object) const;

    std::string& out_;
    PathXml paths_;
    const std::string nameSpace_;
};

}  // namespace tool
