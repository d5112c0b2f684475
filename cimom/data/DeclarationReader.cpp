#include "cimom/data/DeclarationReader.h"

#include <algorithm>
#include <stdexcept>

#include "cimom/common/Xml.h"

namespace cimom {
namespace {

/// Reads one declaration text and says where in it something is wrong.
class DeclarationReader {
public:
    DeclarationReader(std::string_view xml, const std::string& source, NameSpace& nameSpace)
        : xml_(xml), source_(source), nameSpace_(nameSpace) {}

    void read() {
        pugi::xml_document& document = nameSpace_.newDocument();
        if (const auto defect = parseXml(xml_, document)) {
            throw std::runtime_error(place(defect->offset) + defect->what);
        }
        const pugi::xml_node declaration = document.child("CIM").child("DECLARATION");
        if (!declaration) {
            throw std::runtime_error(place(0) + "no CIM element with a DECLARATION in it");
        }
        for (pugi::xml_node group = firstElement(declaration); group; group = nextElement(group)) {
            readGroup(group);
        }
    }

private:
    std::string place(std::size_t offset) const {
        const auto end = xml_.begin() + static_cast<std::ptrdiff_t>(std::min(offset, xml_.size()));
        return source_ + ":" + std::to_string(1 + std::count(xml_.begin(), end, '\n')) + ": ";
    }

    [[noreturn]] void refuse(pugi::xml_node where, const std::string& why) const {
        throw std::runtime_error(place(static_cast<std::size_t>(where.offset_debug())) + why);
    }

    void readGroup(pugi::xml_node group) {
        const std::string_view kind = group.name();
        if (kind != "DECLGROUP" && kind != "DECLGROUP.WITHNAME" && kind != "DECLGROUP.WITHPATH") {
            refuse(group, "'" + std::string(kind) + "' where a DECLGROUP was expected");
        }
        for (pugi::xml_node element = firstElement(group); element; element = nextElement(element)) {
            try {
                readGroupMember(element);
            } catch (const std::runtime_error& error) {
                rethrowWithPlace(element, error);
            }
        }
    }

    [[noreturn]] void rethrowWithPlace(pugi::xml_node where, const std::runtime_error& error) const {
        const std::string what = error.what();
        if (what.compare(0, source_.size() + 1, source_ + ":") == 0) {
            throw error;
        }
        refuse(where, what);
    }

    void readGroupMember(pugi::xml_node element) {
        const std::string_view kind = element.name();
        if (kind == "QUALIFIER.DECLARATION") {
            requireAttribute(element, "NAME");
            requireAttribute(element, "TYPE");
            nameSpace_.qualifiers.declare(element);
        } else if (kind.substr(0, 6) == "VALUE.") {
            readObject(element);
        } else if (kind != "LOCALNAMESPACEPATH" && kind != "NAMESPACEPATH") {
            // The namespace is the caller's choice, so that one text can serve several of them.
            refuse(element, "'" + std::string(kind) + "' is no declaration");
        }
    }

    /// VALUE.OBJECT, VALUE.NAMEDOBJECT, VALUE.OBJECTWITHPATH and VALUE.OBJECTWITHLOCALPATH.
    void readObject(pugi::xml_node object) {
        ObjectPath path;
        for (pugi::xml_node element = firstElement(object); element; element = nextElement(element)) {
            const std::string_view kind = element.name();
            if (kind == "CLASS") {
                declareClass(element);
            } else if (kind == "INSTANCE") {
                declareInstance(element, path);
            } else {
                path = readObjectPath(element);
            }
        }
    }

    void declareClass(pugi::xml_node element) {
        requireAttribute(element, "NAME");
        for (pugi::xml_node child = firstElement(element); child; child = nextElement(child)) {
            requireAttribute(child, "NAME");
        }
        const std::string name = element.attribute("NAME").value();
        const bool isNew = nameSpace_.classes.find(name) == nullptr;
        nameSpace_.classes.declare(element, nameSpace_.qualifiers);
        if (!isNew) {
            nameSpace_.instances.reindex(*nameSpace_.classes.find(name));
        }
    }

    void declareInstance(pugi::xml_node element, const ObjectPath& path) {
        requireAttribute(element, "CLASSNAME");
        const std::string className = element.attribute("CLASSNAME").value();
        const ClassView* type = nameSpace_.classes.find(className);
        if (type == nullptr) {
            refuse(element, "the class '" + className + "' of an instance is not declared");
        }
        nameSpace_.instances.add(Instance(*type, element, path));
    }

    void requireAttribute(pugi::xml_node element, const char* name) const {
        if (element.attribute(name).empty() || *element.attribute(name).value() == '\0') {
            refuse(element, std::string(element.name()) + " without " + name);
        }
    }

    std::string_view xml_;
    const std::string& source_;
    NameSpace& nameSpace_;
};

}  // namespace

void readDeclarations(std::string_view xml, const std::string& source, NameSpace& nameSpace) {
    DeclarationReader(xml, source, nameSpace).read();
}

}  // namespace cimom
