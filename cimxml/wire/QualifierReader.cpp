#include "cimxml/wire/QualifierReader.h"

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMMethod.h>
#include <Pegasus/Common/CIMParameter.h>
#include <Pegasus/Common/CIMProperty.h>

#include <string>

#include "cimxml/wire/PathReader.h"
#include "cimxml/wire/TypeAttribute.h"
#include "cimxml/wire/ValueReader.h"
#include "cimxml/wire/XmlNode.h"

namespace cimxml {

using namespace Pegasus;

namespace {

CIMFlavor readFlavor(const Attributes& node) {
    CIMFlavor flavor;
    flavor.addFlavor(booleanAttribute(node, "OVERRIDABLE", true) ? CIMFlavor::OVERRIDABLE
                                                                 : CIMFlavor::DISABLEOVERRIDE);
    flavor.addFlavor(booleanAttribute(node, "TOSUBCLASS", true) ? CIMFlavor::TOSUBCLASS
                                                                : CIMFlavor::RESTRICTED);
    if (booleanAttribute(node, "TOINSTANCE", false)) {
        flavor.addFlavor(CIMFlavor::TOINSTANCE);
    }
    if (booleanAttribute(node, "TRANSLATABLE", false)) {
        flavor.addFlavor(CIMFlavor::TRANSLATABLE);
    }
    return flavor;
}

}  // namespace

CIMQualifier QualifierReader::read(pugi::xml_node node) {
    const Attributes attributes(node);
    const CIMType type = readType(attributes);
    const pugi::xml_node holder = firstElement(node);
    KnownName& name = PathReader(context_).findName(attributes, "NAME");
    const CIMValue value =
        holder ? ValueReader(context_).readAgain(holder, type, false, name) : CIMValue(type, false);
    return CIMQualifier(name.name, value, readFlavor(attributes),
                        booleanAttribute(attributes, "PROPAGATED", false));
}

template <typename Owner>
void QualifierReader::addTo(Owner& owner, pugi::xml_node node) {
    for (pugi::xml_node child = firstElement(node); child; child = nextElement(child)) {
        if (!isElement(child, "QUALIFIER")) {
            continue;
        }
        try {
            owner.addQualifier(read(child));
        } catch (const AlreadyExistsException&) {
            failAt(child, "each qualifier once");
        }
    }
}

template void QualifierReader::addTo(CIMClass&, pugi::xml_node);
template void QualifierReader::addTo(CIMInstance&, pugi::xml_node);
template void QualifierReader::addTo(CIMMethod&, pugi::xml_node);
template void QualifierReader::addTo(CIMParameter&, pugi::xml_node);
template void QualifierReader::addTo(CIMProperty&, pugi::xml_node);

}  // namespace cimxml
