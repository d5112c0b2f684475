#pragma once

#include <string>
#include <utility>
#include <vector>

namespace cimom::test {

/// Name of a parameter and the XML of its value.
using Arguments = std::vector<std::pair<std::string, std::string>>;

/// The XML of common arguments.
std::string classNameXml(const std::string& className);
std::string valueXml(const std::string& text);
std::string arrayXml(const std::vector<std::string>& texts);
std::string keyXml(const std::string& name, const std::string& value,
                   const std::string& valueType = "string");
std::string instanceNameXml(const std::string& className, const std::string& keys);

/// The path of the sample machine's echo service on a node.
std::string echoServiceXml(unsigned node = 0);

/// A message with an intrinsic operation on root/cimv2 or another namespace.
std::string intrinsicMessage(const std::string& operation, const Arguments& arguments,
                             const std::string& nameSpace = "root/cimv2");

/// A message with an extrinsic method; `path` is an INSTANCENAME or CLASSNAME element.
std::string extrinsicMessage(const std::string& method, const std::string& path, const Arguments& arguments);

/// A message around what stands inside SIMPLEREQ.
std::string message(const std::string& call);

/// A whole HTTP request. `fields` are added to the usual ones.
std::string httpRequest(const std::string& method, const std::string& object, const std::string& body,
                        const std::string& fields = "");

/// HTTP request for an intrinsic operation on root/cimv2.
std::string intrinsicRequest(const std::string& operation, const Arguments& arguments,
                             const std::string& fields = "");

}  // namespace cimom::test
