#include "tools/snapshot/SnapshotContents.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <pugixml.hpp>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include "cimom/common/ObjectPath.h"
#include "cimom/common/Xml.h"
#include "cimom/snapshot/Gzip.h"
#include "cimom/snapshot/Snapshot.h"
#include "tools/common/Failure.h"
#include "tools/common/Names.h"

namespace tool {

namespace {

using pugi::xml_node;

std::string bytesOfFile(const std::string& name) {
    std::ifstream stream(std::filesystem::u8path(name), std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (!stream) {
        throw Failure("cannot read " + name + ": " + std::generic_category().message(errno),
                      Failure::Kind::kLocal);
    }
    return bytes;
}

// Refuses what the server would refuse, too, in its words.
std::string documentOf(const std::string& name) {
    std::string bytes = bytesOfFile(name);
    try {
        cimom::readSnapshot(bytes, name);
        return cimom::isGzip(bytes) ? cimom::gunzipped(bytes, cimom::kMaxSnapshotBytes) : bytes;
    } catch (const std::runtime_error& error) {
        throw Failure(error.what(), Failure::Kind::kLocal);
    }
}

bool hasBeginning(std::string_view text, std::string_view beginning) {
    return text.substr(0, beginning.size()) == beginning;
}

std::string attributeOf(xml_node element, const char* name) {
    return element.attribute(name).value();
}

std::string pathText(xml_node name);

// The path in a VALUE.REFERENCE, with the namespace where it has one.
std::string referenceText(xml_node reference) {
    const xml_node path = cimom::firstElement(reference);
    const std::string nameSpace = cimom::nameSpaceOf(path);
    return (nameSpace.empty() ? "" : nameSpace + ':') + pathText(path);
}

std::string keyContent(xml_node key) {
    const xml_node value = cimom::firstElement(key);
    const bool isReference = std::string_view(value.name()) == "VALUE.REFERENCE";
    const std::string text = isReference ? referenceText(value) : cimom::textOf(value);
    const std::string type = attributeOf(value, "VALUETYPE");
    const bool isBare = type == "numeric" || type == "boolean";
    return attributeOf(key, "NAME") + '=' + (isBare ? text : '"' + text + '"');
}

// Of an INSTANCENAME, or of what has one in it.
std::string pathText(xml_node name) {
    const xml_node inner = name.child("INSTANCENAME");
    if (inner) {
        return pathText(inner);
    }
    std::string text = attributeOf(name, "CLASSNAME");
    char separator = '.';
    for (const xml_node key : name.children("KEYBINDING")) {
        text += separator + keyContent(key);
        separator = ',';
    }
    return text;
}

std::string itemsText(xml_node array);

std::string elementText(xml_node value) {
    const std::string_view kind = value.name();
    if (kind == "VALUE.ARRAY" || kind == "VALUE.REFARRAY") {
        return itemsText(value);
    }
    return kind == "VALUE.REFERENCE" ? referenceText(value) : cimom::textOf(value);
}

std::string itemsText(xml_node array) {
    std::string text = "[";
    for (xml_node item = cimom::firstElement(array); item; item = cimom::nextElement(item)) {
        text += (text.size() > 1 ? ", " : "") + elementText(item);
    }
    return text + ']';
}

// What stands in a property, a parameter or a qualifier.
std::string contentText(xml_node element) {
    for (xml_node child = cimom::firstElement(element); child; child = cimom::nextElement(child)) {
        if (hasBeginning(child.name(), "VALUE")) {
            return elementText(child);
        }
    }
    return "(null)";
}

std::string declaredType(xml_node element) {
    const std::string_view kind = element.name();
    const std::string type = attributeOf(element, "TYPE");
    const std::string named = type.empty() ? "ref " + attributeOf(element, "REFERENCECLASS") : type;
    const bool isArray = kind.find("ARRAY") != std::string_view::npos;
    return named + (isArray ? '[' + attributeOf(element, "ARRAYSIZE") + ']' : "");
}

/// Takes one object apart.
class Dissection {
public:
    explicit Dissection(SnapshotContents::Object& object) : object_(object) {}

    void addInstance(xml_node instance) {
        for (xml_node child = cimom::firstElement(instance); child; child = cimom::nextElement(child)) {
            if (hasBeginning(child.name(), "PROPERTY")) {
                add("property " + attributeOf(child, "NAME"), contentText(child));
            }
        }
    }

    void addClass(xml_node definition) {
        add("superclass", attributeOf(definition, "SUPERCLASS"));
        addMembers("", definition);
    }

    void addDeclaration(xml_node declaration) {
        add("type", declaredType(declaration));
        add("value", contentText(declaration));
    }

private:
    void add(const std::string& name, const std::string& text) {
        object_.parts[lowerName(name)] = {name, text};
    }

    void addMembers(const std::string& owner, xml_node element) {
        for (xml_node child = cimom::firstElement(element); child; child = cimom::nextElement(child)) {
            const std::string_view kind = child.name();
            const auto called = [&](const char* what) {
                return std::string(owner).append(what).append(" ").append(attributeOf(child, "NAME"));
            };
            if (kind == "QUALIFIER") {
                add(called("qualifier"), contentText(child));
            } else if (hasBeginning(kind, "PROPERTY")) {
                addMember(called("property"), child);
                add(called("property").append(": default"), contentText(child));
            } else if (kind == "METHOD") {
                addMember(called("method"), child);
            } else if (hasBeginning(kind, "PARAMETER")) {
                addMember(called("parameter"), child);
            }
        }
    }

    void addMember(const std::string& what, xml_node member) {
        add(what, declaredType(member));
        addMembers(what + ": ", member);
    }

    SnapshotContents::Object& object_;
};

/// Takes a node's declarations apart.
class NodeDissection {
public:
    explicit NodeDissection(SnapshotContents::Node& node) : node_(node) {}

    void add(xml_node group) {
        nameSpace_ = cimom::nameSpaceOf(group);
        for (xml_node child = cimom::firstElement(group); child; child = cimom::nextElement(child)) {
            if (std::string_view(child.name()) == "QUALIFIER.DECLARATION") {
                Dissection(replace("qualifier declaration " + attributeOf(child, "NAME")))
                    .addDeclaration(child);
            } else if (hasBeginning(child.name(), "VALUE.")) {
                addObject(child);
            }
        }
    }

private:
    void addObject(xml_node object) {
        const xml_node definition = object.child("CLASS");
        if (definition) {
            Dissection(replace("class " + attributeOf(definition, "NAME"))).addClass(definition);
            return;
        }
        const xml_node path = cimom::firstElement(object);
        if (path != object.child("INSTANCE")) {
            const std::string identity = "instance " + cimom::readObjectPath(path).canonical();
            Dissection(replace(identity, nameSpace_ + ':' + pathText(path)))
                .addInstance(object.child("INSTANCE"));
        } else {
            const std::string name = nameSpace_ + ':' + attributeOf(path, "CLASSNAME");
            const std::string number = std::to_string(++unnamed_);
            Dissection(replace("unnamed " + number, name + " (" + number + ')')).addInstance(path);
        }
    }

    SnapshotContents::Object& replace(const std::string& name) {
        return replace(lowerName(name), nameSpace_ + ": " + name);
    }

    // What comes later takes the place of what came before.
    SnapshotContents::Object& replace(const std::string& identity, const std::string& shown) {
        SnapshotContents::Object& object = node_[lowerName(nameSpace_) + '\n' + identity];
        object = {shown, {}};
        return object;
    }

    SnapshotContents::Node& node_;
    std::string nameSpace_;
    std::size_t unnamed_ = 0;
};

}  // namespace

SnapshotContents::SnapshotContents(const std::string& file) {
    pugi::xml_document document;
    cimom::parseXml(documentOf(file), document);
    const xml_node root = document.child("CIM");
    for (xml_node declaration = cimom::firstElement(root); declaration;
         declaration = cimom::nextElement(declaration)) {
        NodeDissection node(nodes_.emplace_back());
        for (xml_node group = cimom::firstElement(declaration); group; group = cimom::nextElement(group)) {
            node.add(group);
        }
    }
}

}  // namespace tool
