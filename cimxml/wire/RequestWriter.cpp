#include "cimxml/wire/RequestWriter.h"

#include "cimxml/common/PathWriter.h"
#include "cimxml/common/ValueWriter.h"
#include "cimxml/common/XmlOutput.h"

namespace cimxml {

using namespace Pegasus;

namespace {

constexpr std::size_t usualSize = 1024;  // few requests are longer

}  // namespace

RequestWriter RequestWriter::intrinsic(const std::string& messageId, const std::string& method,
                                       const CIMNamespaceName& nameSpace) {
    RequestWriter writer("IMETHODCALL");
    writer.begin(messageId, method);
    PathWriter(writer.out_).writeNamespace(nameSpace);
    return writer;
}

RequestWriter RequestWriter::extrinsic(const std::string& messageId, const std::string& method,
                                       const CIMNamespaceName& nameSpace, const CIMObjectPath& path) {
    RequestWriter writer("METHODCALL");
    writer.begin(messageId, method);
    PathWriter(writer.out_).writeLocalPath(nameSpace, path);
    return writer;
}

void RequestWriter::begin(const std::string& messageId, const std::string& method) {
    out_.reserve(usualSize);
    out_ +=
        "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE";
    XmlOutput(out_).attribute("ID", messageId);
    out_ += " PROTOCOLVERSION=\"1.0\"><SIMPLEREQ><";
    out_ += callElement_;
    XmlOutput(out_).attribute("NAME", method);
    out_ += ">";
}

void RequestWriter::beginParameter(const char* name) {
    out_ += "<IPARAMVALUE";
    XmlOutput(out_).attribute("NAME", name);
    out_ += ">";
}

void RequestWriter::endParameter() {
    out_ += "</IPARAMVALUE>";
}

RequestWriter& RequestWriter::className(const CIMName& name) {
    if (!name.isNull()) {
        beginParameter("ClassName");
        PathWriter(out_).writeClassName(name);
        endParameter();
    }
    return *this;
}

RequestWriter& RequestWriter::instanceName(const CIMObjectPath& path) {
    beginParameter("InstanceName");
    PathWriter(out_).writeInstanceName(path);
    endParameter();
    return *this;
}

RequestWriter& RequestWriter::flag(const char* name, bool value, bool defaultValue) {
    if (value != defaultValue) {
        beginParameter(name);
        out_ += value ? "<VALUE>TRUE</VALUE>" : "<VALUE>FALSE</VALUE>";
        endParameter();
    }
    return *this;
}

RequestWriter& RequestWriter::propertyList(const CIMPropertyList& list) {
    if (!list.isNull()) {
        beginParameter("PropertyList");
        out_ += "<VALUE.ARRAY>";
        for (Uint32 i = 0; i < list.size(); ++i) {
            out_ += "<VALUE>";
            XmlOutput(out_).text(list[i].getString());
            out_ += "</VALUE>";
        }
        out_ += "</VALUE.ARRAY>";
        endParameter();
    }
    return *this;
}

RequestWriter& RequestWriter::parameters(const Array<CIMParamValue>& values) {
    for (Uint32 i = 0; i < values.size(); ++i) {
        const CIMValue value = values[i].getValue();
        out_ += "<PARAMVALUE";
        XmlOutput(out_).attribute("NAME", values[i].getParameterName());
        if (values[i].isTyped()) {
            ValueWriter(out_).writeType("PARAMTYPE", value.getType());
        }
        out_ += ">";
        ValueWriter(out_).write(value);
        out_ += "</PARAMVALUE>";
    }
    return *this;
}

std::string RequestWriter::finish() {
    out_ += "</";
    out_ += callElement_;
    out_ += "></SIMPLEREQ></MESSAGE></CIM>\n";
    return std::move(out_);
}

}  // namespace cimxml
