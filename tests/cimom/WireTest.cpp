// Operations as they go over the wire: the whole message in, the whole message out.

#include <gtest/gtest.h>

#include "tests/cimom/support/ServerFixture.h"
#include "tests/cimom/support/SmallAssociations.h"
#include "tests/cimom/support/SmallNameSpace.h"

namespace cimom {
namespace {

using test::Arguments;
using test::classNameXml;
using test::smallPath;
using test::valueXml;

/// A message with what stands inside the IMETHODRESPONSE element.
std::string response(const std::string& operation, const std::string& content) {
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE "
           "ID=\"42\" "
           "PROTOCOLVERSION=\"1.0\"><SIMPLERSP><IMETHODRESPONSE NAME=\"" +
           operation + "\">" + content + "</IMETHODRESPONSE></SIMPLERSP></MESSAGE></CIM>\n";
}

std::string returned(const std::string& operation, const std::string& value,
                     const std::string& outputs = "") {
    return response(operation, "<IRETURNVALUE>" + value + "</IRETURNVALUE>" + outputs);
}

std::string nameOf(const std::string& className, const std::string& id) {
    return "<INSTANCENAME CLASSNAME=\"" + className +
           "\"><KEYBINDING NAME=\"Id\"><KEYVALUE VALUETYPE=\"string\">" + id +
           "</KEYVALUE></KEYBINDING></INSTANCENAME>";
}

/// The path of an object for a client that calls the server "localhost".
std::string wholePath(const std::string& element, const std::string& name) {
    return "<" + element +
           "><NAMESPACEPATH><HOST>localhost</HOST><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"></NAMESPACE>"
           "<NAMESPACE NAME=\"cimv2\"></NAMESPACE></LOCALNAMESPACEPATH></NAMESPACEPATH>" +
           name + "</" + element + ">";
}

std::string outputs(bool end, const std::string& context) {
    return std::string("<PARAMVALUE NAME=\"EndOfSequence\" PARAMTYPE=\"boolean\"><VALUE>") +
           (end ? "TRUE" : "FALSE") +
           "</VALUE></PARAMVALUE><PARAMVALUE NAME=\"EnumerationContext\" PARAMTYPE=\"string\"><VALUE>" +
           context + "</VALUE></PARAMVALUE>";
}

class WireTest : public test::ServerFixture {
protected:
    WireTest() {
        repository_->addDeclarations("root/cimv2", test::declarations(test::kSmallAssociations), "bonds.xml");
        port_ = listen();
    }

    std::string send(const std::string& operation, const Arguments& arguments) {
        return ask(port_, test::intrinsicRequest(operation, arguments)).body;
    }

    std::uint16_t port_ = 0;
};

const char* const kSize = "<PROPERTY NAME=\"Size\" TYPE=\"sint32\"><VALUE>-5</VALUE></PROPERTY>";

TEST_F(WireTest, Associations) {
    const Arguments leaf{{"ObjectName", smallPath("Leaf", "a")}};
    const std::string path = wholePath("INSTANCEPATH", nameOf("Middle", "m"));
    Arguments one = leaf;
    one.emplace_back("ResultRole", valueXml("Upper"));
    EXPECT_EQ(send("AssociatorNames", one),
              returned("AssociatorNames", "<OBJECTPATH>" + path + "</OBJECTPATH>"));
    one.emplace_back("PropertyList", test::arrayXml({"Id"}));
    EXPECT_EQ(send("Associators", one),
              returned("Associators",
                       "<VALUE.OBJECTWITHPATH>" + path +
                           "<INSTANCE CLASSNAME=\"Middle\"><PROPERTY NAME=\"Id\" TYPE=\"string\"><VALUE>m"
                           "</VALUE></PROPERTY></INSTANCE></VALUE.OBJECTWITHPATH>"));
    const std::string bond = wholePath(
        "INSTANCEPATH", "<INSTANCENAME CLASSNAME=\"Bond\"><KEYBINDING NAME=\"Lower\"><VALUE.REFERENCE>" +
                            nameOf("Leaf", "a") +
                            "</VALUE.REFERENCE></KEYBINDING><KEYBINDING NAME=\"Upper\"><VALUE.REFERENCE>" +
                            nameOf("Middle", "m") + "</VALUE.REFERENCE></KEYBINDING></INSTANCENAME>");
    Arguments lower = leaf;
    lower.emplace_back("Role", valueXml("Lower"));
    EXPECT_EQ(send("ReferenceNames", lower),
              returned("ReferenceNames", "<OBJECTPATH>" + bond + "</OBJECTPATH>"));
    lower.emplace_back("PropertyList", test::arrayXml({}));
    EXPECT_EQ(send("References", lower),
              returned("References", "<VALUE.OBJECTWITHPATH>" + bond +
                                         "<INSTANCE CLASSNAME=\"Bond\"></INSTANCE></VALUE.OBJECTWITHPATH>"));
}

TEST_F(WireTest, PathsNameTheServerAsItsClientDoes) {
    const std::string body = test::intrinsicMessage("ReferenceNames", {{"ObjectName", classNameXml("Base")}});
    std::string request = test::httpRequest("ReferenceNames", "root%2Fcimv2", body);
    request.replace(request.find("Host: localhost"), 15, "Host: [::1]:5989");
    EXPECT_NE(ask(port_, request).body.find("<HOST>[::1]:5989</HOST>"), std::string::npos);
}

TEST_F(WireTest, ChangesOfInstances) {
    const std::string created =
        "<INSTANCE CLASSNAME=\"Middle\"><PROPERTY NAME=\"Id\" TYPE=\"string\"><VALUE>new</VALUE>"
        "</PROPERTY></INSTANCE>";
    EXPECT_EQ(send("CreateInstance", {{"NewInstance", created}}),
              returned("CreateInstance", nameOf("Middle", "new")));
    EXPECT_EQ(
        send("CreateInstance", {{"NewInstance", created}}),
        response(
            "CreateInstance",
            "<ERROR CODE=\"11\" DESCRIPTION=\"there is such an instance already: &lt;INSTANCENAME "
            "CLASSNAME=&quot;Middle&quot;&gt;&lt;KEYBINDING NAME=&quot;Id&quot;&gt;&lt;KEYVALUE "
            "VALUETYPE=&quot;string&quot;&gt;new&lt;/KEYVALUE&gt;&lt;/KEYBINDING&gt;&lt;/INSTANCENAME&gt;\">"
            "</ERROR>"));
    EXPECT_EQ(
        send("ModifyInstance", {{"ModifiedInstance", "<VALUE.NAMEDINSTANCE>" + smallPath("Middle", "new") +
                                                         "<INSTANCE CLASSNAME=\"Middle\">" + kSize +
                                                         "</INSTANCE></VALUE.NAMEDINSTANCE>"}}),
        response("ModifyInstance", ""));
    EXPECT_EQ(send("GetProperty",
                   {{"InstanceName", smallPath("Middle", "new")}, {"PropertyName", valueXml("Size")}}),
              returned("GetProperty", "<VALUE>-5</VALUE>"));
    EXPECT_EQ(send("SetProperty", {{"InstanceName", smallPath("Middle", "new")},
                                   {"PropertyName", valueXml("Size")},
                                   {"NewValue", valueXml("6")}}),
              response("SetProperty", ""));
    EXPECT_EQ(send("GetInstance", {{"InstanceName", smallPath("Middle", "new")},
                                   {"PropertyList", test::arrayXml({"Size"})}}),
              returned("GetInstance",
                       "<INSTANCE CLASSNAME=\"Middle\"><PROPERTY NAME=\"Size\" TYPE=\"sint32\"><VALUE>6"
                       "</VALUE></PROPERTY></INSTANCE>"));
    EXPECT_EQ(send("DeleteInstance", {{"InstanceName", smallPath("Middle", "new")}}),
              response("DeleteInstance", ""));
}

TEST_F(WireTest, Qualifiers) {
    const std::string declaration =
        "<QUALIFIER.DECLARATION NAME=\"Units\" TYPE=\"string\"><SCOPE "
        "PROPERTY=\"true\"></SCOPE></QUALIFIER.DECLARATION>";
    EXPECT_EQ(send("SetQualifier", {{"QualifierDeclaration", declaration}}), response("SetQualifier", ""));
    EXPECT_EQ(send("GetQualifier", {{"QualifierName", valueXml("Units")}}),
              returned("GetQualifier", declaration));
    const std::string all = send("EnumerateQualifiers", {});
    EXPECT_NE(all.find(declaration + "</IRETURNVALUE>"), std::string::npos) << all;
    EXPECT_EQ(send("DeleteQualifier", {{"QualifierName", valueXml("Units")}}),
              response("DeleteQualifier", ""));
    EXPECT_EQ(
        send("DeleteQualifier", {{"QualifierName", valueXml("Units")}}),
        response("DeleteQualifier",
                 "<ERROR CODE=\"6\" DESCRIPTION=\"there is no qualifier declaration 'Units'\"></ERROR>"));
}

TEST_F(WireTest, Classes) {
    const std::string element = "<CLASS NAME=\"New\"><PROPERTY NAME=\"P\" TYPE=\"uint8\"></PROPERTY></CLASS>";
    EXPECT_EQ(send("CreateClass", {{"NewClass", element}}), response("CreateClass", ""));
    EXPECT_EQ(send("GetClass", {{"ClassName", classNameXml("New")}}), returned("GetClass", element));
    EXPECT_EQ(send("ModifyClass", {{"ModifiedClass", "<CLASS NAME=\"New\"></CLASS>"}}),
              response("ModifyClass", ""));
    EXPECT_EQ(send("GetClass", {{"ClassName", classNameXml("New")}}),
              returned("GetClass", "<CLASS NAME=\"New\"></CLASS>"));
    EXPECT_EQ(send("DeleteClass", {{"ClassName", classNameXml("New")}}), response("DeleteClass", ""));
}

TEST_F(WireTest, PulledEnumerations) {
    EXPECT_EQ(send("OpenEnumerateInstancePaths",
                   {{"ClassName", classNameXml("Leaf")}, {"MaxObjectCount", valueXml("1")}}),
              returned("OpenEnumerateInstancePaths", wholePath("INSTANCEPATH", nameOf("Leaf", "a")),
                       outputs(false, "1")));
    EXPECT_EQ(
        send("PullInstancePaths", {{"EnumerationContext", valueXml("1")}, {"MaxObjectCount", valueXml("9")}}),
        returned("PullInstancePaths", wholePath("INSTANCEPATH", nameOf("Leaf", "b")), outputs(true, "")));
    EXPECT_EQ(send("OpenEnumerateInstances", {{"ClassName", classNameXml("Other")}}),
              returned("OpenEnumerateInstances", "", outputs(true, "")));
    EXPECT_EQ(send("OpenEnumerateInstances",
                   {{"ClassName", classNameXml("Leaf")}, {"PropertyList", test::arrayXml({"Size"})}}),
              returned("OpenEnumerateInstances", "", outputs(false, "2")));
    EXPECT_EQ(send("PullInstancesWithPath",
                   {{"EnumerationContext", valueXml("2")}, {"MaxObjectCount", valueXml("1")}}),
              returned("PullInstancesWithPath",
                       "<VALUE.INSTANCEWITHPATH>" + wholePath("INSTANCEPATH", nameOf("Leaf", "a")) +
                           "<INSTANCE CLASSNAME=\"Leaf\">" + kSize + "</INSTANCE></VALUE.INSTANCEWITHPATH>",
                       outputs(false, "2")));
    EXPECT_EQ(send("CloseEnumeration", {{"EnumerationContext", valueXml("2")}}),
              response("CloseEnumeration", ""));
    EXPECT_EQ(
        send("CloseEnumeration", {{"EnumerationContext", valueXml("2")}}),
        response(
            "CloseEnumeration",
            "<ERROR CODE=\"21\" DESCRIPTION=\"the enumeration '2' is not open, or no longer\"></ERROR>"));
}

TEST_F(WireTest, Queries) {
    const std::string query = "SELECT Size FROM Leaf WHERE Id = 'a' AND NOT Size &gt; 0";
    const std::string instance = std::string("<INSTANCE CLASSNAME=\"Leaf\">") + kSize + "</INSTANCE>";
    EXPECT_EQ(
        send("ExecQuery", {{"QueryLanguage", valueXml("WQL")}, {"Query", valueXml(query)}}),
        returned("ExecQuery", "<VALUE.OBJECTWITHPATH>" + wholePath("INSTANCEPATH", nameOf("Leaf", "a")) +
                                  instance + "</VALUE.OBJECTWITHPATH>"));
    EXPECT_EQ(send("OpenQueryInstances", {{"FilterQueryLanguage", valueXml("WQL")},
                                          {"FilterQuery", valueXml(query)},
                                          {"MaxObjectCount", valueXml("5")}}),
              returned("OpenQueryInstances", instance, outputs(true, "")));
    EXPECT_EQ(send("ExecQuery", {{"QueryLanguage", valueXml("SQL")}, {"Query", valueXml(query)}}),
              response("ExecQuery",
                       "<ERROR CODE=\"14\" DESCRIPTION=\"queries are in WQL, not in 'SQL'\"></ERROR>"));
}

TEST_F(WireTest, AMethodThatTheDataAreNotMadeForFailsAndTheServerGoesOn) {
    repository_->addDeclarations(
        "root/cimv2",
        test::declarations(
            test::object(
                "<CLASS NAME=\"CIM_EnabledLogicalElement\"><PROPERTY NAME=\"Id\" TYPE=\"string\"><QUALIFIER "
                "NAME=\"Key\" TYPE=\"boolean\"/></PROPERTY><METHOD NAME=\"RequestStateChange\" "
                "TYPE=\"uint32\">"
                "<PARAMETER NAME=\"RequestedState\" TYPE=\"uint16\"/></METHOD></CLASS>") +
            test::object(
                "<INSTANCE CLASSNAME=\"CIM_EnabledLogicalElement\"><PROPERTY NAME=\"Id\" TYPE=\"string\">"
                "<VALUE>e</VALUE></PROPERTY></INSTANCE>")),
        "stateless.xml");
    const std::string body =
        test::extrinsicMessage("RequestStateChange", smallPath("CIM_EnabledLogicalElement", "e"),
                               {{"RequestedState", valueXml("2")}});
    const std::string request =
        test::httpRequest("RequestStateChange", "root%2Fcimv2%3ACIM_EnabledLogicalElement.Id=%22e%22", body);
    EXPECT_NE(ask(port_, request)
                  .body.find("<ERROR CODE=\"1\" DESCRIPTION=\"the class 'CIM_EnabledLogicalElement' has no "
                             "property 'RequestedState'\">"),
              std::string::npos);
    EXPECT_EQ(send("GetQualifier", {{"QualifierName", valueXml("No")}}),
              response("GetQualifier",
                       "<ERROR CODE=\"6\" DESCRIPTION=\"there is no qualifier declaration 'No'\"></ERROR>"));
}

TEST_F(WireTest, TheLogNamesTheClassOfWhateverIsAskedFor) {
    const auto logged = [&](const std::string& operation, const Arguments& arguments) {
        server_.clearRequests();
        send(operation, arguments);
        return server_.requests().at(0).className;
    };
    EXPECT_EQ(logged("Associators", {{"ObjectName", classNameXml("Leaf")}}), "Leaf");
    EXPECT_EQ(
        logged("Associators", {{"AssocClass", classNameXml("Bond")}, {"ObjectName", smallPath("Leaf", "a")}}),
        "Leaf");
    EXPECT_EQ(logged("CreateInstance", {{"NewInstance", "<INSTANCE CLASSNAME=\"Leaf\"/>"}}), "Leaf");
    EXPECT_EQ(
        logged("ModifyInstance", {{"ModifiedInstance", "<VALUE.NAMEDINSTANCE>" + smallPath("Leaf", "z") +
                                                           "</VALUE.NAMEDINSTANCE>"}}),
        "Leaf");
    EXPECT_EQ(logged("CreateClass", {{"NewClass", "<CLASS NAME=\"Leaf\"/>"}}), "Leaf");
    EXPECT_EQ(logged("CloseEnumeration", {{"EnumerationContext", valueXml("1")}}), "");
}

}  // namespace
}  // namespace cimom
