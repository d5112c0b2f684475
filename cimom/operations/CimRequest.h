#pragma once

#include <pugixml.hpp>
#include <string>
#include <vector>

#include "cimom/common/ObjectPath.h"

namespace cimom {

/// An argument of an operation: IPARAMVALUE or PARAMVALUE.
struct CimArgument {
    std::string name;
    std::string type;      ///< PARAMTYPE, or TYPE where a client sends that; may be empty.
    pugi::xml_node value;  ///< The element inside; null for a null value.
};

/// An operation request (DSP0201, SIMPLEREQ) taken apart. Its XML nodes belong to the document that it was
/// read from.
struct CimRequest {
    std::string messageId;
    bool intrinsic = true;
    std::string operation;
    std::string nameSpace;
    ObjectPath target;  ///< Of an extrinsic method.
    std::string host =
        "localhost";  ///< By which the client knows the server; stands in the paths of answers.
    std::vector<CimArgument> arguments;

    /// The class that the operation names, directly or in a path; empty when it names none.
    std::string className() const;

    /// Parses a request body into `document` and reads it. Throws ProtocolError for everything that
    /// DSP0200 answers with an HTTP error.
    static CimRequest read(const std::string& body, pugi::xml_document& document);
};

}  // namespace cimom
