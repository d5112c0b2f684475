// What LocalOnly does on the wire, for each family of servers that an endpoint can be like.

#include "cimom/operations/LocalOnlyRules.h"

#include <gtest/gtest.h>

#include "cimom/common/Xml.h"
#include "tests/cimom/support/ServerFixture.h"
#include "tests/cimom/support/SmallNameSpace.h"

namespace cimom {
namespace {

using test::Arguments;
using test::attributesOf;
using test::classNameXml;
using test::named;
using test::smallPath;
using test::valueXml;
using test::xmlOf;

constexpr LocalOnlyRules kUsual{};
constexpr LocalOnlyRules kFlat{true, false};
constexpr LocalOnlyRules kDeclared{false, true};

class LocalOnlyRulesTest : public test::ServerFixture {
protected:
    /// The IRETURNVALUE of an operation, asked of an endpoint with such rules.
    pugi::xml_node ask(const LocalOnlyRules& rules, const std::string& operation,
                       const Arguments& arguments) {
        Endpoint endpoint;
        endpoint.localOnly = rules;
        body_ = ServerFixture::ask(listen(endpoint), test::intrinsicRequest(operation, arguments)).body;
        EXPECT_FALSE(parseXml(body_, document_)) << body_;
        return document_.child("CIM")
            .child("MESSAGE")
            .child("SIMPLERSP")
            .child("IMETHODRESPONSE")
            .child("IRETURNVALUE");
    }

    pugi::xml_node askClass(const LocalOnlyRules& rules, const char* name, const char* localOnly,
                            const char* includeClassOrigin = "FALSE") {
        return ask(rules, "GetClass",
                   {{"ClassName", classNameXml(name)},
                    {"LocalOnly", valueXml(localOnly)},
                    {"IncludeClassOrigin", valueXml(includeClassOrigin)}})
            .child("CLASS");
    }

    /// The first instance of class Leaf: it holds Id and Caption of Base, Size of Middle, Parent of Leaf.
    pugi::xml_node askLeaf(const LocalOnlyRules& rules, const char* localOnly) {
        return ask(rules, "EnumerateInstances",
                   {{"ClassName", classNameXml("Leaf")}, {"LocalOnly", valueXml(localOnly)}})
            .child("VALUE.NAMEDINSTANCE");
    }

    std::string body_;
    pugi::xml_document document_;
};

TEST_F(LocalOnlyRulesTest, ClassesAreLocalAndInstancesAreWhatTheyHoldUnlessAnEndpointSaysOtherwise) {
    EXPECT_EQ(attributesOf(askClass(kUsual, "Leaf", "TRUE"), "NAME"), "Tags Parent");
    EXPECT_EQ(attributesOf(askLeaf(kUsual, "TRUE").child("INSTANCE"), "NAME"), "Id Caption Size Parent");
    EXPECT_FALSE(Endpoint().localOnly.flatClasses);
    EXPECT_FALSE(Endpoint().localOnly.declaredPropertiesOnly);
}

TEST_F(LocalOnlyRulesTest, FlatClassesComeWithEveryMemberAndQualifierWhateverLocalOnlySays) {
    for (const char* localOnly : {"TRUE", "FALSE"}) {
        const auto leaf = askClass(kFlat, "Leaf", localOnly);
        EXPECT_STREQ(leaf.attribute("SUPERCLASS").value(), "Middle");
        EXPECT_EQ(attributesOf(leaf, "NAME"), "Description Id Caption Level Size Tags Parent Reset Touch");
        EXPECT_EQ(attributesOf(named(leaf, "Level"), "NAME"), "Description Units");
        EXPECT_TRUE(named(named(leaf, "Id"), "Key"));
    }
}

TEST_F(LocalOnlyRulesTest, FlatClassesNeverTellWhatIsInheritedNorFromWhere) {
    for (const char* localOnly : {"TRUE", "FALSE"}) {
        for (const char* includeClassOrigin : {"TRUE", "FALSE"}) {
            ASSERT_TRUE(askClass(kFlat, "Leaf", localOnly, includeClassOrigin));
            EXPECT_EQ(body_.find("PROPAGATED"), std::string::npos) << body_;
            EXPECT_EQ(body_.find("CLASSORIGIN"), std::string::npos) << body_;
        }
    }
    askClass(kUsual, "Leaf", "FALSE", "TRUE");
    EXPECT_NE(body_.find("PROPAGATED"), std::string::npos) << "or else this test could not fail";
    EXPECT_NE(body_.find("CLASSORIGIN"), std::string::npos) << "likewise";
}

TEST_F(LocalOnlyRulesTest, FlatClassesHoldAnOverriddenMemberOnceAsTheSubclassDeclaresIt) {
    const auto middle = askClass(kFlat, "Middle", "TRUE");
    EXPECT_EQ(attributesOf(middle, "NAME"), "Description Id Caption Level Size Reset Touch");
    EXPECT_STREQ(named(middle, "Level").child_value("VALUE"), "2");
}

TEST_F(LocalOnlyRulesTest, FlatClassesStillComeWithoutQualifiersAndWithSelectedPropertiesWhenAsked) {
    const auto leaf = ask(kFlat, "GetClass",
                          {{"ClassName", classNameXml("Leaf")},
                           {"IncludeQualifiers", valueXml("FALSE")},
                           {"PropertyList", test::arrayXml({"Id", "Tags"})}})
                          .child("CLASS");
    EXPECT_EQ(attributesOf(leaf, "NAME"), "Id Tags Reset Touch");
    EXPECT_EQ(body_.find("<QUALIFIER"), std::string::npos) << body_;
}

TEST_F(LocalOnlyRulesTest, FlatClassesConcernGetClassOnly) {
    const auto classes = ask(kFlat, "EnumerateClasses", {{"ClassName", classNameXml("Middle")}});
    EXPECT_EQ(attributesOf(named(classes, "Leaf"), "NAME"), "Tags Parent");
    EXPECT_EQ(attributesOf(askLeaf(kFlat, "TRUE").child("INSTANCE"), "NAME"), "Id Caption Size Parent");
}

TEST_F(LocalOnlyRulesTest, DeclaredPropertiesLeaveInheritedKeysToThePath) {
    const auto leaf = askLeaf(kDeclared, "TRUE");
    EXPECT_EQ(attributesOf(leaf.child("INSTANCE"), "NAME"), "Parent");
    EXPECT_EQ(xmlOf(leaf.child("INSTANCENAME")), smallPath("Leaf", "a"));
}

TEST_F(LocalOnlyRulesTest, DeclaredPropertiesIncludeOverriddenOnes) {
    const auto result = ask(kDeclared, "EnumerateInstances", {{"ClassName", classNameXml("Middle")}});
    const auto middle = firstElement(result).next_sibling().child("INSTANCE");
    EXPECT_STREQ(middle.attribute("CLASSNAME").value(), "Middle");
    EXPECT_EQ(attributesOf(middle, "NAME"), "Level") << "overridden; LocalOnly is true by default";
}

TEST_F(LocalOnlyRulesTest, DeclaredPropertiesOfASubclassAreThoseThatTheEnumeratedClassHasToo) {
    const auto shallow = ask(kDeclared, "EnumerateInstances",
                             {{"ClassName", classNameXml("Base")}, {"DeepInheritance", valueXml("FALSE")}});
    EXPECT_EQ(attributesOf(firstElement(shallow).child("INSTANCE"), "NAME"), "");
    const auto deep = ask(kDeclared, "EnumerateInstances", {{"ClassName", classNameXml("Base")}});
    EXPECT_EQ(attributesOf(firstElement(deep).child("INSTANCE"), "NAME"), "Parent");
}

TEST_F(LocalOnlyRulesTest, DeclaredPropertiesAreAllThereAreOnlyWhileLocalOnlyIsTrue) {
    EXPECT_EQ(attributesOf(askLeaf(kDeclared, "FALSE").child("INSTANCE"), "NAME"),
              "Id Caption Size Parent Level Tags");
}

TEST_F(LocalOnlyRulesTest, DeclaredPropertiesConcernGetInstanceToo) {
    const auto get = [&](const LocalOnlyRules& rules) {
        return attributesOf(
            ask(rules, "GetInstance", {{"InstanceName", smallPath("Leaf", "a")}}).child("INSTANCE"), "NAME");
    };
    EXPECT_EQ(get(kDeclared), "Parent");
    EXPECT_EQ(get(kUsual), "Id Caption Size Parent");
}

TEST_F(LocalOnlyRulesTest, BothTogetherDoBoth) {
    constexpr LocalOnlyRules kBoth{true, true};
    EXPECT_EQ(attributesOf(askClass(kBoth, "Leaf", "TRUE"), "NAME"),
              "Description Id Caption Level Size Tags Parent Reset Touch");
    EXPECT_EQ(attributesOf(askLeaf(kBoth, "TRUE").child("INSTANCE"), "NAME"), "Parent");
}

TEST_F(LocalOnlyRulesTest, EndpointsOfOneRepositoryKeepRulesOfTheirOwn) {
    const std::string all = "Description Id Caption Level Size Tags Parent Reset Touch";
    EXPECT_EQ(attributesOf(askClass(kFlat, "Leaf", "TRUE"), "NAME"), all);
    EXPECT_EQ(attributesOf(askClass(kUsual, "Leaf", "TRUE"), "NAME"), "Tags Parent");
    EXPECT_EQ(attributesOf(askClass(kFlat, "Leaf", "TRUE"), "NAME"), all);
}

}  // namespace
}  // namespace cimom
