#include "cimxml/wire/ResponseReader.h"

#include <Pegasus/Common/Exception.h>

#include "cimxml/wire/Ascii.h"
#include "cimxml/wire/ClassReader.h"
#include "cimxml/wire/InstanceReader.h"
#include "cimxml/wire/ParamValueReader.h"
#include "cimxml/wire/PathReader.h"
#include "cimxml/wire/Scalars.h"
#include "cimxml/wire/StatusCode.h"
#include "cimxml/wire/WireError.h"
#include "cimxml/wire/XmlError.h"
#include "cimxml/wire/XmlNode.h"

namespace cimxml {

using namespace Pegasus;

namespace {

/// Minor versions are compatible (DSP0201, DSP0200); a version that is not told is taken for the right one.
void checkMajorVersion(pugi::xml_node node, const char* name, char major) {
    const char* text = attribute(node, name);
    const std::string_view version = text == nullptr ? std::string_view() : trim(text);
    if (version.empty() || (version[0] == major && (version.size() == 1 || version[1] == '.'))) {
        return;
    }
    throw WireError(WireError::Kind::BadResponse, std::string("Received unsupported ") + name + " " +
                                                      quote(version) + ", expected \"" + major + ".x\"");
}

bool isLocal(const CIMObjectPath& path) {
    return path.getHost().size() == 0 && path.getNameSpace().isNull();
}

/// A path without host and namespace.
CIMObjectPath localName(const CIMObjectPath& path) {
    return isLocal(path)
               ? path
               : CIMObjectPath(String(), CIMNamespaceName(), path.getClassName(), path.getKeyBindings());
}

}  // namespace

ResponseReader::ResponseReader(std::string body, const Expected& expected, const Limits& limits)
    : context_(limits),
      document_(parse(std::move(body), expected)),
      response_(openResponse(openMessage(expected), expected)) {
    throwOnError();
}

XmlDocument ResponseReader::parse(std::string body, const Expected& expected) {
    const XmlScan scan = XmlDocument::admit(body, context_);
    if (!scan.mixed && expected.method == "EnumerateInstances") {
        list_ = InstanceList::takeFrom(body, context_.limits.pieceBytes);
    }
    if (!list_ && scan.nodes > context_.limits.treeNodes) {
        throw XmlError(0, ": the answer exceeds the limit on elements and attributes in one tree");
    }
    return XmlDocument(std::move(body), scan, context_);
}

pugi::xml_node ResponseReader::openMessage(const Expected& expected) {
    const pugi::xml_node cim = document_.root();
    if (!isElement(cim, "CIM")) {
        failAt(cim, "element CIM");
    }
    checkMajorVersion(cim, "CIMVERSION", '2');
    checkMajorVersion(cim, "DTDVERSION", '2');
    const pugi::xml_node message = requireElement(cim, "MESSAGE");
    checkMajorVersion(message, "PROTOCOLVERSION", '1');
    const std::string_view id = requireAttribute(message, "ID");
    if (id != expected.messageId) {
        throw WireError(WireError::Kind::BadResponse, "Mismatched response message ID:  Got " + quote(id) +
                                                          ", expected \"" + expected.messageId + "\".");
    }
    return message;
}

pugi::xml_node ResponseReader::openResponse(pugi::xml_node message, const Expected& expected) {
    const pugi::xml_node response = firstElement(requireElement(message, "SIMPLERSP"));
    const bool intrinsic = isElement(response, "IMETHODRESPONSE");
    if (!intrinsic && !isElement(response, "METHODRESPONSE")) {
        failAt(response ? response : message, "element IMETHODRESPONSE or METHODRESPONSE");
    }
    const std::string_view method = requireAttribute(response, "NAME");
    if (intrinsic != expected.intrinsic || (intrinsic && !equalNoCase(method, expected.method))) {
        throw WireError(WireError::Kind::BadResponse, "Mismatched response message type.");
    }
    return response;
}

void ResponseReader::throwOnError() {
    const pugi::xml_node error = firstElement(response_);
    if (!isElement(error, "ERROR")) {
        return;
    }
    const char* code = requireAttribute(error, "CODE");
    const auto number = parseInteger<Uint32>(code);
    if (!number) {
        failAt(error, "a number in attribute CODE, found " + quote(code));
    }
    const char* description = attribute(error, "DESCRIPTION");
    CIMException exception(toStatusCode(*number), toString(description == nullptr ? "" : description));
    for (pugi::xml_node child = firstElement(error); child; child = nextElement(child)) {
        exception.addError(InstanceReader(context_).read(child));
    }
    throw exception;
}

/// First element of IRETURNVALUE; a null node when that is empty or not there, as it is for no results.
pugi::xml_node ResponseReader::firstResult() {
    const pugi::xml_node result = firstElement(response_);
    if (!result) {
        return result;
    }
    if (!isElement(result, "IRETURNVALUE")) {
        failAt(result, "element ERROR or IRETURNVALUE");
    }
    return firstElement(result);
}

template <typename Element, typename Read>
Array<Element> ResponseReader::readAll(Read read) {
    Array<Element> elements;
    for (pugi::xml_node node = firstResult(); node; node = nextElement(node)) {
        elements.append(read(node));
    }
    return elements;
}

CIMClass ResponseReader::readClass() {
    const pugi::xml_node result = firstResult();
    if (!result) {
        failAt(response_, "element CLASS");
    }
    return ClassReader(context_).read(result);
}

Array<CIMClass> ResponseReader::readClasses() {
    return readAll<CIMClass>([&](pugi::xml_node node) { return ClassReader(context_).read(node); });
}

Array<CIMName> ResponseReader::readClassNames() {
    return readAll<CIMName>([&](pugi::xml_node node) {
        if (!isElement(node, "CLASSNAME")) {
            failAt(node, "element CLASSNAME");
        }
        return PathReader(context_).readName(node, "NAME");
    });
}

CIMInstance ResponseReader::readInstance() {
    const pugi::xml_node result = firstResult();
    if (!result) {
        failAt(response_, "element INSTANCE");
    }
    return InstanceReader(context_).readNamed(result);
}

Array<CIMInstance> ResponseReader::readInstances() {
    const auto read = [this](pugi::xml_node node) {
        CIMInstance instance = InstanceReader(context_).readNamed(node);
        if (!isLocal(instance.getPath())) {
            instance.setPath(localName(instance.getPath()));
        }
        return instance;
    };
    if (!list_) {
        return readAll<CIMInstance>(read);
    }
    Array<CIMInstance> instances;
    list_->forEach(context_.limits, [&](pugi::xml_node node) { instances.append(read(node)); });
    return instances;
}

Array<CIMObjectPath> ResponseReader::readInstanceNames() {
    return readAll<CIMObjectPath>(
        [&](pugi::xml_node node) { return localName(PathReader(context_).read(node)); });
}

CIMValue ResponseReader::readMethodResult(Array<CIMParamValue>& outParameters) {
    ParamValueReader reader(context_);
    CIMValue returnValue;
    bool returned = false;
    for (pugi::xml_node node = firstElement(response_); node; node = nextElement(node)) {
        if (isElement(node, "PARAMVALUE")) {
            outParameters.append(reader.read(node));
        } else if (isElement(node, "RETURNVALUE") && !returned) {
            returnValue = reader.readReturnValue(node);
            returned = true;
        } else {
            failAt(node, "one RETURNVALUE, and PARAMVALUE elements");
        }
    }
    return returnValue;
}

std::string ResponseReader::warning() const {
    if (context_.unreadable == 0) {
        return {};
    }
    const std::string count = std::to_string(context_.unreadable);
    return "U+FFFD was read for what is no XML character, in " + count +
           (context_.unreadable == 1 ? " place, which is in " : " places, the first in ") +
           quote(context_.firstUnreadable);
}

}  // namespace cimxml
