#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMPropertyList.h>

#include <string>

namespace cimxml {

/// Builds the CIM-XML document of one method call (DSP0201, SIMPLEREQ). The parameters are appended in the
/// order of the calls; `finish` ends the document.
class RequestWriter {
public:
    /// A call of an intrinsic method (DSP0200, IMETHODCALL).
    static RequestWriter intrinsic(const std::string& messageId, const std::string& method,
                                   const Pegasus::CIMNamespaceName& nameSpace);

    /// A call of an extrinsic method (METHODCALL) on the instance, or without keys the class, at `path` in
    /// `nameSpace`; the path's own host and namespace do not count.
    static RequestWriter extrinsic(const std::string& messageId, const std::string& method,
                                   const Pegasus::CIMNamespaceName& nameSpace,
                                   const Pegasus::CIMObjectPath& path);

    RequestWriter& className(const Pegasus::CIMName& name);
    RequestWriter& instanceName(const Pegasus::CIMObjectPath& path);
    /// A flag, left out when it has its default (DSP0200), as OpenPegasus does.
    RequestWriter& flag(const char* name, bool value, bool defaultValue);
    /// The property list, left out when it is null.
    RequestWriter& propertyList(const Pegasus::CIMPropertyList& list);
    RequestWriter& parameters(const Pegasus::Array<Pegasus::CIMParamValue>& values);

    std::string finish();

private:
    explicit RequestWriter(const char* callElement) : callElement_(callElement) {}
    void begin(const std::string& messageId, const std::string& method);
    void beginParameter(const char* name);
    void endParameter();

    const char* callElement_;
    std::string out_;
};

}  // namespace cimxml
