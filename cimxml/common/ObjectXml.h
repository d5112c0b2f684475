#pragma once

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>

#include <string>

namespace Pegasus {

/// Writers of the XML representation of CIM (DSP0201), in UTF-8, with the
/// blanks and line ends that OpenPegasus writes.

/// CLASS or INSTANCE; nothing for a null object.
void appendObjectElement(std::string& out, const CIMConstObject& object);

/// VALUE, VALUE.ARRAY, VALUE.REFERENCE or VALUE.REFARRAY; nothing for null.
void appendValueElement(std::string& out, const CIMValue& value);

/// INSTANCENAME with its keys.
void appendInstanceNameElement(std::string& out, const CIMObjectPath& instanceName);

/// VALUE.REFERENCE around the path of an instance, as complete as it is.
void appendValueReferenceElement(std::string& out, const CIMObjectPath& reference);

/// Text in element content and attributes: markup characters, control
/// characters and blanks that a parser would normalize as references.
void appendEscapedXml(std::string& out, const String& text);

}  // namespace Pegasus
