#pragma once

#include <Pegasus/Common/CIMValue.h>

#include "cimxml/common/XmlOutput.h"

namespace cimxml {

/// Appends the elements that hold a value (DSP0201, value elements).
class ValueWriter {
public:
    explicit ValueWriter(XmlOutput out) : out_(out) {}

    /// VALUE, VALUE.ARRAY, VALUE.REFERENCE or VALUE.REFARRAY; nothing for a null value. Embedded objects are
    /// written as text.
    void write(const Pegasus::CIMValue& value);

    /// The attributes that tell a value's type: `typeAttribute` (TYPE or PARAMTYPE), and EmbeddedObject.
    void writeType(const char* typeAttribute, Pegasus::CIMType type);

private:
    XmlOutput out_;
};

}  // namespace cimxml
