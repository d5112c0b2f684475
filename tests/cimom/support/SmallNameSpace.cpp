#include "tests/cimom/support/SmallNameSpace.h"

#include "cimom/common/Xml.h"
#include "cimom/data/DeclarationReader.h"
#include "cimom/methods/MethodTable.h"
#include "cimom/operations/CimRequest.h"
#include "cimom/operations/IntrinsicOperations.h"

namespace cimom::test {

const char* const kSmallDeclarations = R"(<?xml version="1.0" encoding="utf-8"?>
<CIM CIMVERSION="2.0" DTDVERSION="2.0"><DECLARATION><DECLGROUP>
<QUALIFIER.DECLARATION NAME="Key" TYPE="boolean" OVERRIDABLE="false" TOINSTANCE="true">
  <SCOPE PROPERTY="true" REFERENCE="true"/><VALUE>FALSE</VALUE></QUALIFIER.DECLARATION>
<QUALIFIER.DECLARATION NAME="Version" TYPE="string" TOSUBCLASS="false"><SCOPE CLASS="true"/>
</QUALIFIER.DECLARATION>
<QUALIFIER.DECLARATION NAME="Description" TYPE="string" TRANSLATABLE="true"><SCOPE CLASS="true"/>
</QUALIFIER.DECLARATION>
<VALUE.OBJECT><CLASS NAME="Base">
  <QUALIFIER NAME="Version" TYPE="string"><VALUE>1.0</VALUE></QUALIFIER>
  <QUALIFIER NAME="Description" TYPE="string"><VALUE>The base</VALUE></QUALIFIER>
  <PROPERTY NAME="Id" TYPE="string"><QUALIFIER NAME="Key" TYPE="boolean"><VALUE>TRUE</VALUE></QUALIFIER></PROPERTY>
  <PROPERTY NAME="Caption" TYPE="string"></PROPERTY>
  <PROPERTY NAME="Level" TYPE="uint16">
    <QUALIFIER NAME="Description" TYPE="string"><VALUE>How deep</VALUE></QUALIFIER>
    <QUALIFIER NAME="Units" TYPE="string"><VALUE>Metres</VALUE></QUALIFIER>
    <VALUE>1</VALUE></PROPERTY>
  <METHOD NAME="Reset" TYPE="uint32"></METHOD>
</CLASS></VALUE.OBJECT>
<VALUE.OBJECT><CLASS NAME="Middle" SUPERCLASS="Base">
  <PROPERTY NAME="Level" TYPE="uint16">
    <QUALIFIER NAME="Description" TYPE="string"><VALUE>How deep in the middle</VALUE></QUALIFIER>
    <VALUE>2</VALUE></PROPERTY>
  <PROPERTY NAME="Size" TYPE="sint32"></PROPERTY>
  <METHOD NAME="Touch" TYPE="uint32">
    <QUALIFIER NAME="Description" TYPE="string"><VALUE>Touches it</VALUE></QUALIFIER>
    <PARAMETER NAME="Count" TYPE="uint8"><QUALIFIER NAME="In" TYPE="boolean"><VALUE>TRUE</VALUE></QUALIFIER></PARAMETER>
    <PARAMETER.ARRAY NAME="Texts" TYPE="string"></PARAMETER.ARRAY>
    <PARAMETER NAME="Done" TYPE="boolean"><QUALIFIER NAME="In" TYPE="boolean"><VALUE>FALSE</VALUE></QUALIFIER>
      <QUALIFIER NAME="Out" TYPE="boolean"><VALUE>TRUE</VALUE></QUALIFIER></PARAMETER>
    <PARAMETER.REFERENCE NAME="Where" REFERENCECLASS="Base"></PARAMETER.REFERENCE>
    <PARAMETER.REFARRAY NAME="Others" REFERENCECLASS="Base"></PARAMETER.REFARRAY>
  </METHOD>
</CLASS></VALUE.OBJECT>
<VALUE.OBJECT><CLASS NAME="Leaf" SUPERCLASS="Middle">
  <PROPERTY.ARRAY NAME="Tags" TYPE="string"><VALUE.ARRAY><VALUE>t</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>
  <PROPERTY.REFERENCE NAME="Parent" REFERENCECLASS="Base"></PROPERTY.REFERENCE>
</CLASS></VALUE.OBJECT>
<VALUE.OBJECT><CLASS NAME="Other">
  <PROPERTY NAME="Number" TYPE="uint32"><QUALIFIER NAME="Key" TYPE="boolean"><VALUE>TRUE</VALUE></QUALIFIER></PROPERTY>
</CLASS></VALUE.OBJECT>
<VALUE.OBJECT><INSTANCE CLASSNAME="Leaf">
  <PROPERTY NAME="Id" TYPE="string"><VALUE>a</VALUE></PROPERTY>
  <PROPERTY NAME="Caption" TYPE="string"><VALUE>First &amp; best</VALUE></PROPERTY>
  <PROPERTY NAME="Size" TYPE="sint32"><VALUE>-5</VALUE></PROPERTY>
  <PROPERTY.REFERENCE NAME="Parent"><VALUE.REFERENCE><INSTANCENAME CLASSNAME="Middle"><KEYBINDING NAME="Id">
    <KEYVALUE VALUETYPE="string">m</KEYVALUE></KEYBINDING></INSTANCENAME></VALUE.REFERENCE></PROPERTY.REFERENCE>
</INSTANCE></VALUE.OBJECT>
<VALUE.OBJECT><INSTANCE CLASSNAME="Middle">
  <PROPERTY NAME="Id" TYPE="string"><VALUE>m</VALUE></PROPERTY>
  <PROPERTY NAME="Level" TYPE="uint16"/>
</INSTANCE></VALUE.OBJECT>
<VALUE.OBJECT><INSTANCE CLASSNAME="Leaf">
  <PROPERTY NAME="Id" TYPE="string"><VALUE>b</VALUE></PROPERTY>
</INSTANCE></VALUE.OBJECT>
</DECLGROUP></DECLARATION></CIM>
)";

std::string declarations(const std::string& content) {
    return "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><DECLARATION><DECLGROUP>" + content +
           "</DECLGROUP></DECLARATION></CIM>";
}

std::string object(const std::string& classOrInstance) {
    return "<VALUE.OBJECT>" + classOrInstance + "</VALUE.OBJECT>";
}

SmallNameSpace::SmallNameSpace() {
    nameSpace_.name = "root/cimv2";
    readDeclarations(kSmallDeclarations, "small.xml", nameSpace_);
}

void SmallNameSpace::add(const std::string& content) {
    readDeclarations(declarations(content), "more.xml", nameSpace_);
}

pugi::xml_node SmallNameSpace::parse(const std::string& result) {
    const std::string wrapped = "<Result>" + result + "</Result>";
    if (const auto defect = parseXml(wrapped, result_)) {
        throw std::runtime_error("the result is no XML: " + defect->what + "\n" + wrapped);
    }
    return firstElement(result_);
}

pugi::xml_node SmallNameSpace::run(const std::string& operation, const Arguments& arguments) {
    pugi::xml_document document;
    const CimRequest request = CimRequest::read(intrinsicMessage(operation, arguments), document);
    std::string result;
    extras_ = runIntrinsicOperation(request, nameSpace_, result);
    return parse(result);
}

std::string SmallNameSpace::output(const std::string& name) const {
    pugi::xml_document outputs;
    parseXml("<Outputs>" + extras_.parameters + "</Outputs>", outputs);
    return named(firstElement(outputs), name.c_str()).child_value("VALUE");
}

pugi::xml_node SmallNameSpace::invoke(const std::string& method, const std::string& path,
                                      const Arguments& arguments) {
    pugi::xml_document document;
    const CimRequest request = CimRequest::read(extrinsicMessage(method, path, arguments), document);
    std::string result;
    runExtrinsicMethod(request, nameSpace_, result);
    return parse(result);
}

std::string smallPath(const std::string& className, const std::string& id) {
    return instanceNameXml(className, keyXml("Id", id));
}

std::string attributesOf(pugi::xml_node parent, const char* attribute) {
    std::string text;
    for (pugi::xml_node child = firstElement(parent); child; child = nextElement(child)) {
        if (child.attribute(attribute)) {
            text.append(text.empty() ? "" : " ").append(child.attribute(attribute).value());
        }
    }
    return text;
}

pugi::xml_node named(pugi::xml_node parent, const char* name) {
    return parent.find_child_by_attribute("NAME", name);
}

std::string xmlOf(pugi::xml_node node) {
    std::string xml;
    appendElement(xml, node);
    return xml;
}

}  // namespace cimom::test
