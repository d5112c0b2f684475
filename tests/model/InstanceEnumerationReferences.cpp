// The class that a reference points at is sought in the path of the instance that holds it: after the first
// occurrence of the property's name, between the next colon and the next full stop.

#include <gtest/gtest.h>

#include <string>

#include "tests/model/ModelTest.h"

namespace NQELVSK20 {
namespace {

class InstanceEnumerationReferences : public ModelTest {
protected:
    InstanceEnumerationReferences() : machine_(Nodes(1)) {}

    /// A namespace of a server that knows the classes which the references point at.
    void Connect(const std::string& name, std::initializer_list<std::string> objects) {
        Declare(
            machine_,
            {ClassXml("X_Fan", "", KeyXml("Id", "string")), ClassXml("X_Zone", "", KeyXml("Id", "string"))},
            name);
        Declare(machine_, objects, name);
        namespace_ = Connected(machine_, name);
    }

    Instance OnlyOne(const std::string& className) {
        const Instances instances = InstancesOf(GetClass(namespace_, className));
        EXPECT_EQ(instances.size(), 1U);
        return instances.empty() ? Instance() : instances[0];
    }

    static std::string ReferencePropertyXml(const std::string& name, const std::string& className) {
        return "<PROPERTY.REFERENCE NAME=\"" + name + "\" REFERENCECLASS=\"" + className + "\"/>";
    }

    /// A reference whose path names no namespace.
    static std::string BareReferenceXml(const std::string& name, const std::string& className) {
        return "<PROPERTY.REFERENCE NAME=\"" + name + "\"><VALUE.REFERENCE><INSTANCENAME CLASSNAME=\"" +
               className +
               "\"><KEYBINDING NAME=\"Id\"><KEYVALUE "
               "VALUETYPE=\"string\">a</KEYVALUE></KEYBINDING></INSTANCENAME>"
               "</VALUE.REFERENCE></PROPERTY.REFERENCE>";
    }

    /// A reference to a class itself, which has no keys.
    static std::string ClassReferenceXml(const std::string& name, const std::string& className) {
        return "<PROPERTY.REFERENCE NAME=\"" + name +
               "\"><VALUE.REFERENCE><LOCALCLASSPATH><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/>"
               "<NAMESPACE NAME=\"cimv2\"/></LOCALNAMESPACEPATH><CLASSNAME NAME=\"" +
               className + "\"/></LOCALCLASSPATH></VALUE.REFERENCE></PROPERTY.REFERENCE>";
    }

    static void ExpectNoReferencedClass(const Instance& instance, const char* property) {
        ASSERT_TRUE(instance);
        EXPECT_EQ(ValueOf(instance, property).GetType(), TCIMValue::TCIMType::eReference);
        EXPECT_FALSE(ValueOf(instance, property).GetReferencedClass());
    }

    TestMachine machine_;
    Namespace namespace_;
};

TEST_F(InstanceEnumerationReferences, APropertyThatThePathDoesNotNameHasNoReferencedClass) {
    Connect("root/cimv2",
            {ClassXml("X_Link", "", KeyXml("Id", "string") + ReferencePropertyXml("Owner", "X_Fan")),
             InstanceXml("X_Link",
                         PropertyXml("Id", "string", "1") + ReferenceXml("Owner", "X_Fan", "Id", "a"))});
    const Instance link = OnlyOne("X_Link");
    ExpectNoReferencedClass(link, "Owner");
    EXPECT_NE(TextOf(link, "Owner").find("X_Fan.Id=\"a\""), std::string::npos);
}

TEST_F(InstanceEnumerationReferences, APathWithoutANamespaceHasNoReferencedClass) {
    Connect("root/cimv2", {ClassXml("X_Link", "", ReferenceKeyXml("Owner", "X_Fan")),
                           InstanceXml("X_Link", BareReferenceXml("Owner", "X_Fan"))});
    ExpectNoReferencedClass(OnlyOne("X_Link"), "Owner");
}

TEST_F(InstanceEnumerationReferences, APathWithoutKeysHasNoReferencedClass) {
    Connect("root/cimv2", {ClassXml("X_Link", "", ReferenceKeyXml("Owner", "X_Fan")),
                           InstanceXml("X_Link", ClassReferenceXml("Owner", "X_Fan"))});
    ExpectNoReferencedClass(OnlyOne("X_Link"), "Owner");
}

TEST_F(InstanceEnumerationReferences, ANameThatOccursEarlierInThePathMisleadsTheSearch) {
    Connect("root/cimv2",
            {ClassXml("X_FanLink", "", ReferenceKeyXml("Area", "X_Zone") + ReferenceKeyXml("Fan", "X_Fan")),
             InstanceXml("X_FanLink", ReferenceXml("Area", "X_Zone", "Id", "z") +
                                          ReferenceXml("Fan", "X_Fan", "Id", "a"))});
    const Instance link = OnlyOne("X_FanLink");
    ASSERT_TRUE(link);
    EXPECT_EQ(ValueOf(link, "Fan").GetReferencedClass(), GetClass(namespace_, "X_Zone"))
        << "the class name has the property's, and the first reference after it is another's";
    EXPECT_NE(TextOf(link, "Fan").find("X_Fan.Id=\"a\""), std::string::npos) << "the value is its own";
}

TEST_F(InstanceEnumerationReferences, ANullReferenceIsEmptyInTheStandardNamespace) {
    Connect(
        "root/cimv2",
        {ClassXml("X_Link", "", KeyXml("Id", "string") + ReferencePropertyXml("Owner", "X_Fan")),
         InstanceXml("X_Link", PropertyXml("Id", "string", "1") + "<PROPERTY.REFERENCE NAME=\"Owner\"/>")});
    const Instance link = OnlyOne("X_Link");
    ExpectNoReferencedClass(link, "Owner");
    EXPECT_FALSE(ValueOf(link, "Owner").IsNull());
    EXPECT_EQ(TextOf(link, "Owner"), "");
}

TEST_F(InstanceEnumerationReferences, ANullReferenceStaysNullElsewhere) {
    Connect(
        "root/data",
        {ClassXml("X_Link", "", KeyXml("Id", "string") + ReferencePropertyXml("Owner", "X_Fan")),
         InstanceXml("X_Link", PropertyXml("Id", "string", "1") + "<PROPERTY.REFERENCE NAME=\"Owner\"/>")});
    const Instance link = OnlyOne("X_Link");
    ASSERT_TRUE(link);
    EXPECT_TRUE(ValueOf(link, "Owner").IsNull());
    EXPECT_FALSE(ValueOf(link, "Owner").GetReferencedClass());
}

TEST_F(InstanceEnumerationReferences, ANullReferenceThatThePathNamesKnowsItsClassAndStaysNull) {
    Connect("root/data", {ClassXml("X_FanLink", "",
                                   ReferenceKeyXml("Area", "X_Zone") + ReferencePropertyXml("Fan", "X_Fan")),
                          InstanceXml("X_FanLink", ReferenceXml("Area", "X_Zone", "Id", "z") +
                                                       "<PROPERTY.REFERENCE NAME=\"Fan\"/>")});
    const Instance link = OnlyOne("X_FanLink");
    ASSERT_TRUE(link);
    EXPECT_TRUE(ValueOf(link, "Fan").IsNull());
    EXPECT_TRUE(ValueOf(link, "Fan").IsReference());
    EXPECT_EQ(ValueOf(link, "Fan").GetReferencedClass(), GetClass(namespace_, "X_Zone"));
}

}  // namespace
}  // namespace NQELVSK20
