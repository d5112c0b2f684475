#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMValue.h>

#include <optional>
#include <pugixml.hpp>
#include <string>

#include "cimxml/wire/DecodeContext.h"
#include "cimxml/wire/InstanceList.h"
#include "cimxml/wire/Limits.h"
#include "cimxml/wire/XmlDocument.h"

namespace cimxml {

/// Reads the answer to one request, straight from the parsed text to the API's objects.
///
/// Every function throws WireError, BadXml for a text that is no valid CIM-XML and BadResponse for one that
/// answers something else, and Pegasus::CIMException for a CIM error. Call one result function only.
class ResponseReader {
public:
    /// What a request asked, which its answer must repeat.
    struct Expected {
        std::string messageId;
        std::string method;  ///< Compared, without regard to letter case, for intrinsic methods only.
        bool intrinsic = true;
    };

    /// Parses `body` and checks everything around the result.
    ResponseReader(std::string body, const Expected& expected, const Limits& limits);

    Pegasus::CIMClass readClass();
    Pegasus::Array<Pegasus::CIMClass> readClasses();
    Pegasus::Array<Pegasus::CIMName> readClassNames();
    Pegasus::CIMInstance readInstance();
    /// The paths have neither host nor namespace.
    Pegasus::Array<Pegasus::CIMInstance> readInstances();
    /// Paths without host and namespace.
    Pegasus::Array<Pegasus::CIMObjectPath> readInstanceNames();

    /// The return value, null when there is none, and the output parameters in the server's order.
    Pegasus::CIMValue readMethodResult(Pegasus::Array<Pegasus::CIMParamValue>& outParameters);

    /// What had to be read past in what was read so far, for people; empty when there was nothing.
    std::string warning() const;

private:
    pugi::xml_node openMessage(const Expected& expected);
    pugi::xml_node openResponse(pugi::xml_node message, const Expected& expected);
    void throwOnError();
    pugi::xml_node firstResult();
    template <typename Element, typename Read>
    Pegasus::Array<Element> readAll(Read read);

    XmlDocument parse(std::string body, const Expected& expected);

    DecodeContext context_;
    std::optional<InstanceList> list_;  ///< Taken out of the document when it is long.
    XmlDocument document_;
    pugi::xml_node response_;
};

}  // namespace cimxml
