// Servers that leave the keys which a superclass declares out of their instances: the paths tell them.

#include <gtest/gtest.h>

#include <string>

#include "tests/model/ModelTest.h"

namespace NQELVSK20 {
namespace {

class KeysFromPaths : public ModelTest {
protected:
    /// A class two levels below the one that declares the keys.
    static void DeclareLeaf(TestMachine& machine, const std::string& keys) {
        Declare(machine, {ClassXml("X_Top", "", keys), ClassXml("X_Middle", "X_Top"),
                          ClassXml("X_Leaf", "X_Middle", PropertyXml("Speed", "uint16"))});
    }

    static std::string Binding(const std::string& name, const std::string& kind, const std::string& value) {
        return "<KEYBINDING NAME=\"" + name + "\"><KEYVALUE VALUETYPE=\"" + kind + "\">" + value +
               "</KEYVALUE></KEYBINDING>";
    }

    /// An instance whose path, and nothing else, holds its keys.
    static std::string Leaf(const std::string& bindings, const char* speed) {
        return "<VALUE.NAMEDINSTANCE><INSTANCENAME CLASSNAME=\"X_Leaf\">" + bindings + "</INSTANCENAME>" +
               InstanceXml("X_Leaf", PropertyXml("Speed", "uint16", speed)) + "</VALUE.NAMEDINSTANCE>";
    }

    /// The ID that the next request will have, given the one before it.
    static std::string IdAfter(const cimom::SeenRequest& request) {
        const std::string attribute = "MESSAGE ID=\"";
        const std::size_t at = request.body.find(attribute) + attribute.size();
        return std::to_string(std::stoul(request.body.substr(at)) + 1);
    }

    /// The next request, an enumeration of the class, is answered with these.
    static void Answer(TestMachine& machine, const std::string& instances) {
        const std::string body =
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
            "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"" +
            IdAfter(machine.Server().requests().back()) +
            "\" PROTOCOLVERSION=\"1.0\"><SIMPLERSP>"
            "<IMETHODRESPONSE NAME=\"EnumerateInstances\"><IRETURNVALUE>" +
            instances + "</IRETURNVALUE></IMETHODRESPONSE></SIMPLERSP></MESSAGE></CIM>";
        cimom::Fault fault;
        fault.kind = cimom::Fault::Kind::RawAnswer;
        fault.operation = "EnumerateInstances";
        fault.className = "X_Leaf";
        fault.text =
            "HTTP/1.1 200 OK\r\nContent-Type: application/xml; charset=\"utf-8\"\r\nContent-Length: " +
            std::to_string(body.size()) + "\r\nCIMOperation: MethodResponse\r\n\r\n" + body;
        machine.Server().inject(fault);
    }

    static std::string Unread(const std::string& property) {
        return "4TCimHTTPClass::EnumerateInstances - Unable to retrieve property: " + property;
    }

    Lines UnreadLines() const { return log_.LinesWith("4TCimHTTPClass"); }
};

TEST_F(KeysFromPaths, HexadecimalNumbersKeepInstancesApart) {
    TestMachine machine(Nodes(1));
    DeclareLeaf(machine, KeyXml("Zone", "uint8"));
    const Class leaf = GetClass(Connected(machine), "X_Leaf");
    Answer(machine,
           Leaf(Binding("Zone", "numeric", "0x10"), "1") + Leaf(Binding("Zone", "numeric", "0x11"), "2"));
    const Instances instances = InstancesOf(leaf);
    EXPECT_EQ(PathsOf(instances), (Names{"X_Leaf.Zone=16", "X_Leaf.Zone=17"}));
    EXPECT_EQ(TextsOf(instances, "Speed"), (Names{"1", "2"}));
    EXPECT_EQ(UnreadLines(), Lines{});
}

TEST_F(KeysFromPaths, HaveTheTypeThatASuperclassTwoLevelsUpDeclares) {
    TestMachine machine(Nodes(1));
    DeclareLeaf(machine, KeyXml("Bank", "uint8") + KeyXml("Low", "sint16") + KeyXml("Name", "string") +
                             KeyXml("On", "boolean"));
    const Class leaf = GetClass(Connected(machine), "X_Leaf");
    Answer(machine, Leaf(Binding("Bank", "numeric", "7") + Binding("Low", "numeric", "-7") +
                             Binding("Name", "string", "007") + Binding("On", "boolean", "true"),
                         "1"));
    const Instances instances = InstancesOf(leaf);
    ASSERT_EQ(instances.size(), 1U);
    EXPECT_EQ(ValueOf(instances[0], "Bank").GetType(), TCIMValue::TCIMType::eUint8);
    EXPECT_EQ(ValueOf(instances[0], "Low").GetType(), TCIMValue::TCIMType::eSint16);
    EXPECT_EQ(ValueOf(instances[0], "Name").GetType(), TCIMValue::TCIMType::eString);
    EXPECT_EQ(ValueOf(instances[0], "On").GetType(), TCIMValue::TCIMType::eBoolean);
    EXPECT_EQ(PathsOf(instances), Names{"X_Leaf.Bank=7,Low=-7,Name=\"007\",On=TRUE"});
}

TEST_F(KeysFromPaths, TheirTypeIsLookedUpUnderAnySpelling) {
    TestMachine machine(Nodes(1));
    DeclareLeaf(machine, KeyXml("Zone", "sint16"));
    const Class leaf = GetClass(Connected(machine), "X_Leaf");
    Answer(machine, Leaf(Binding("ZONE", "numeric", "16"), "1"));
    const Instances instances = InstancesOf(leaf);
    ASSERT_EQ(instances.size(), 1U);
    EXPECT_EQ(ValueOf(instances[0], "Zone").GetType(), TCIMValue::TCIMType::eSint16);
}

TEST_F(KeysFromPaths, HaveTheirKindsTypeWhereTheClassKnowsNoSuperclassThatDeclaresThem) {
    TestMachine machine(Nodes(1));
    DeclareLeaf(machine, KeyXml("Zone", "uint8"));
    const Class leaf = Allocate(Connected(machine), "X_Leaf");  // not attached to its superclass
    Answer(machine,
           Leaf(Binding("Zone", "numeric", "0x10"), "1") + Leaf(Binding("Zone", "numeric", "-3"), "2"));
    const Instances instances = InstancesOf(leaf);
    ASSERT_EQ(PathsOf(instances), (Names{"X_Leaf.Zone=-3", "X_Leaf.Zone=16"}));
    EXPECT_EQ(ValueOf(instances[0], "Zone").GetType(), TCIMValue::TCIMType::eSint64);
    EXPECT_EQ(ValueOf(instances[1], "Zone").GetType(), TCIMValue::TCIMType::eUint64);
    EXPECT_EQ(UnreadLines(), Lines{});
}

TEST_F(KeysFromPaths, ThatNoClassDeclaresAreLoggedAndLeftOut) {
    TestMachine machine(Nodes(1));
    DeclareLeaf(machine, KeyXml("Zone", "uint8"));
    const Class leaf = GetClass(Connected(machine), "X_Leaf");
    Answer(machine, Leaf(Binding("Odd", "string", "x") + Binding("Zone", "numeric", "1"), "1"));
    log_.Clear();
    const Instances instances = InstancesOf(leaf);
    EXPECT_EQ(PathsOf(instances), Names{"X_Leaf.Zone=1"});
    EXPECT_EQ(UnreadLines(), (Lines{{3, Unread("Odd")}}));
}

TEST_F(KeysFromPaths, ThatAreNoValuesOfTheirTypeAreLoggedAndKeepInstancesApartAsTexts) {
    TestMachine machine(Nodes(1));
    DeclareLeaf(machine, KeyXml("Zone", "uint8"));
    const Class leaf = GetClass(Connected(machine), "X_Leaf");
    Answer(machine,
           Leaf(Binding("Zone", "numeric", "300"), "1") + Leaf(Binding("Zone", "numeric", "301"), "2"));
    log_.Clear();
    const Instances instances = InstancesOf(leaf);
    EXPECT_EQ(TextsOf(instances, "Zone"), (Names{"300", "301"}));
    EXPECT_EQ(TextsOf(instances, "Speed"), (Names{"1", "2"}));
    EXPECT_EQ(UnreadLines(), (Lines{{3, Unread("Zone")}, {3, Unread("Zone")}}));
}

TEST_F(KeysFromPaths, GiveWayToThePropertiesOfTheInstanceUnderAnySpelling) {
    TestMachine machine(Nodes(1));
    DeclareLeaf(machine, KeyXml("Name", "string"));
    const Class leaf = GetClass(Connected(machine), "X_Leaf");
    Answer(machine, "<VALUE.NAMEDINSTANCE><INSTANCENAME CLASSNAME=\"X_Leaf\">" +
                        Binding("Name", "string", "in the path") + "</INSTANCENAME>" +
                        InstanceXml("X_Leaf", PropertyXml("NAME", "string", "of its own")) +
                        "</VALUE.NAMEDINSTANCE>");
    EXPECT_EQ(TextsOf(InstancesOf(leaf), "Name"), Names{"of its own"});
}

}  // namespace
}  // namespace NQELVSK20
