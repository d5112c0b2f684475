#include "cimom/data/DeclarationReader.h"

#include <algorithm>
#include <stdexcept>

#include "cimom/common/Text.h"
#include "cimom/common/Xml.h"

namespace cimom {

pugi::xml_node DeclarationReader::parse(pugi::xml_document& document) const {
    if (const auto defect = parseXml(xml_, document)) {
        throw std::runtime_error(place(defect->offset) + defect->what);
    }
    const pugi::xml_node root = document.child("CIM");
    if (!root.child("DECLARATION")) {
        throw std::runtime_error(place(0) + "no CIM element with a DECLARATION in it");
    }
    return root;
}

std::string DeclarationReader::place(std::size_t offset) const {
    const auto end = xml_.begin() + static_cast<std::ptrdiff_t>(std::min(offset, xml_.size()));
    return source_ + ":" + std::to_string(1 + std::count(xml_.begin(), end, '\n')) + ": ";
}

void DeclarationReader::refuse(pugi::xml_node where, const std::string& why) const {
    throw std::runtime_error(place(static_cast<std::size_t>(where.offset_debug())) + why);
}

void DeclarationReader::rethrowWithPlace(pugi::xml_node where, const std::exception& error) const {
    const std::string what = error.what();
    if (what.compare(0, source_.size() + 1, source_ + ":") == 0) {
        throw std::runtime_error(what);
    }
    refuse(where, what);
}

void DeclarationReader::readGroup(pugi::xml_node group, NameSpace& nameSpace) const {
    const std::string_view kind = group.name();
    if (kind != "DECLGROUP" && kind != "DECLGROUP.WITHNAME" && kind != "DECLGROUP.WITHPATH") {
        refuse(group, "'" + std::string(kind) + "' where a DECLGROUP was expected");
    }
    for (pugi::xml_node element = firstElement(group); element; element = nextElement(element)) {
        try {
            readGroupMember(element, nameSpace);
        } catch (const std::runtime_error& error) {
            rethrowWithPlace(element, error);
        }
    }
}

void DeclarationReader::readGroupMember(pugi::xml_node element, NameSpace& nameSpace) const {
    const std::string_view kind = element.name();
    if (kind == "QUALIFIER.DECLARATION") {
        requireAttribute(element, "NAME");
        requireAttribute(element, "TYPE");
        nameSpace.qualifiers.declare(kept(element, nameSpace));
    } else if (kind.substr(0, 6) == "VALUE.") {
        readObject(element, nameSpace);
    } else if (kind != "LOCALNAMESPACEPATH" && kind != "NAMESPACEPATH") {
        // The namespace is the caller's choice, so that one text can serve several of them.
        refuse(element, "'" + std::string(kind) + "' is no declaration");
    }
}

/// VALUE.OBJECT, VALUE.NAMEDOBJECT, VALUE.OBJECTWITHPATH and VALUE.OBJECTWITHLOCALPATH.
void DeclarationReader::readObject(pugi::xml_node object, NameSpace& nameSpace) const {
    ObjectPath path;
    for (pugi::xml_node element = firstElement(object); element; element = nextElement(element)) {
        const std::string_view kind = element.name();
        if (kind == "CLASS") {
            declareClass(element, nameSpace);
        } else if (kind == "INSTANCE") {
            declareInstance(element, path, nameSpace);
        } else {
            path = readObjectPath(element);
        }
    }
}

void DeclarationReader::declareClass(pugi::xml_node element, NameSpace& nameSpace) const {
    requireAttribute(element, "NAME");
    for (pugi::xml_node child = firstElement(element); child; child = nextElement(child)) {
        requireAttribute(child, "NAME");
    }
    const std::string name = element.attribute("NAME").value();
    const bool isNew = nameSpace.classes.find(name) == nullptr;
    nameSpace.classes.declare(kept(element, nameSpace), nameSpace.qualifiers);
    if (!isNew) {
        nameSpace.instances.reindex(*nameSpace.classes.find(name));
    }
}

void DeclarationReader::declareInstance(pugi::xml_node element, const ObjectPath& path,
                                        NameSpace& nameSpace) const {
    requireAttribute(element, "CLASSNAME");
    const std::string className = element.attribute("CLASSNAME").value();
    const ClassView* type = nameSpace.classes.find(className);
    if (type == nullptr) {
        refuse(element, "the class '" + className + "' of an instance is not declared");
    }
    if (!path.className.empty() && !sameName(path.className, className)) {
        refuse(element, "an instance of '" + className + "' with a path of '" + path.className + "'");
    }
    nameSpace.instances.add(Instance(*type, element, path));
}

void DeclarationReader::requireAttribute(pugi::xml_node element, const char* name) const {
    if (element.attribute(name).empty() || *element.attribute(name).value() == '\0') {
        refuse(element, std::string(element.name()) + " without " + name);
    }
}

pugi::xml_node DeclarationReader::kept(pugi::xml_node element, NameSpace& nameSpace) const {
    return elements_ == Elements::Borrowed ? element : nameSpace.keep(element);
}

void readDeclarations(std::string_view xml, const std::string& source, NameSpace& nameSpace) {
    const DeclarationReader reader(xml, source, DeclarationReader::Elements::Borrowed);
    const pugi::xml_node root = reader.parse(nameSpace.newDocument());
    for (pugi::xml_node group = firstElement(root.child("DECLARATION")); group; group = nextElement(group)) {
        reader.readGroup(group, nameSpace);
    }
}

}  // namespace cimom
