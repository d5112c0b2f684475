#include "cimom/data/DeclarationReader.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/cimom/support/SmallNameSpace.h"

namespace cimom {
namespace {

std::string errorIn(const std::string& xml) {
    NameSpace nameSpace;
    try {
        readDeclarations(xml, "file.xml", nameSpace);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "";
}

std::string wrapped(const std::string& content) {
    return "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n<DECLARATION>\n<DECLGROUP>\n" + content +
           "\n</DECLGROUP></DECLARATION></CIM>";
}

TEST(DeclarationReader, NamesSourceAndLineOfAnError) {
    EXPECT_EQ(errorIn(wrapped("\n<VALUE.OBJECT><CLASS NAME=\"A\" SUPERCLASS=\"B\"/></VALUE.OBJECT>")),
              "file.xml:5: the superclass 'B' is not declared");
    EXPECT_EQ(errorIn(wrapped("<VALUE.OBJECT>\n<INSTANCE CLASSNAME=\"A\"/></VALUE.OBJECT>")),
              "file.xml:5: the class 'A' of an instance is not declared");
    EXPECT_EQ(errorIn("<CIM>\n<DECLARATION>\n</CIM>").substr(0, 11), "file.xml:3:");
    EXPECT_EQ(errorIn("<CIM>\n&\n</CIM>"), "file.xml:2: an ampersand that starts no known reference");
}

TEST(DeclarationReader, RefusesWhatIsNoDeclaration) {
    EXPECT_EQ(errorIn("<CIM><MESSAGE/></CIM>"), "file.xml:1: no CIM element with a DECLARATION in it");
    EXPECT_EQ(errorIn("<CIM><DECLARATION><CLASS NAME=\"A\"/></DECLARATION></CIM>"),
              "file.xml:1: 'CLASS' where a DECLGROUP was expected");
    EXPECT_EQ(errorIn(wrapped("<CLASS NAME=\"A\"/>")), "file.xml:4: 'CLASS' is no declaration");
    EXPECT_EQ(errorIn(wrapped("<VALUE.OBJECT><CLASS/></VALUE.OBJECT>")), "file.xml:4: CLASS without NAME");
    EXPECT_EQ(errorIn(wrapped(
                  "<VALUE.OBJECT><CLASS NAME=\"A\">\n<PROPERTY TYPE=\"string\"/></CLASS></VALUE.OBJECT>")),
              "file.xml:5: PROPERTY without NAME");
    EXPECT_EQ(errorIn(wrapped("<QUALIFIER.DECLARATION NAME=\"Q\"/>")),
              "file.xml:4: QUALIFIER.DECLARATION without TYPE");
}

TEST(DeclarationReader, TakesThePathOfANamedObjectAsItIsGiven) {
    NameSpace nameSpace;
    readDeclarations(
        "<CIM><DECLARATION><DECLGROUP.WITHNAME><LOCALNAMESPACEPATH><NAMESPACE "
        "NAME=\"else\"/></LOCALNAMESPACEPATH>"
        "<VALUE.NAMEDOBJECT><CLASS NAME=\"A\"><PROPERTY NAME=\"P\" "
        "TYPE=\"string\"/></CLASS></VALUE.NAMEDOBJECT>"
        "<VALUE.NAMEDOBJECT>" +
            test::instanceNameXml("A", test::keyXml("K", "k")) +
            "<INSTANCE CLASSNAME=\"A\"/></VALUE.NAMEDOBJECT></DECLGROUP.WITHNAME></DECLARATION></CIM>",
        "file.xml", nameSpace);
    const auto instances = nameSpace.instances.ofClassAndBelow(*nameSpace.classes.find("A"));
    ASSERT_EQ(instances.size(), 1U);
    EXPECT_EQ(instances[0]->nameXml(), test::instanceNameXml("A", test::keyXml("K", "k")));
}

TEST(DeclarationReader, ReadsObjectsWithLocalPath) {
    NameSpace nameSpace;
    readDeclarations(
        "<CIM><DECLARATION><DECLGROUP><VALUE.OBJECT><CLASS NAME=\"A\"/></VALUE.OBJECT></DECLGROUP>"
        "<DECLGROUP.WITHPATH><VALUE.OBJECTWITHLOCALPATH><LOCALINSTANCEPATH><LOCALNAMESPACEPATH/>" +
            test::instanceNameXml("A", test::keyXml("K", "k")) +
            "</LOCALINSTANCEPATH><INSTANCE CLASSNAME=\"A\"/></VALUE.OBJECTWITHLOCALPATH></DECLGROUP.WITHPATH>"
            "</DECLARATION></CIM>",
        "file.xml", nameSpace);
    EXPECT_EQ(nameSpace.instances.ofClassAndBelow(*nameSpace.classes.find("A")).size(), 1U);
}

TEST(DeclarationReader, KeepsBlanksInValues) {
    test::SmallNameSpace space;
    space.add(
        test::object("<INSTANCE CLASSNAME=\"Middle\">\n <PROPERTY NAME=\"Id\"><VALUE>  </VALUE></PROPERTY>\n"
                     "</INSTANCE>"));
    EXPECT_EQ(space->instances.ofClassAndBelow(*space->classes.find("Middle"))[3]->valueOf("Id"), "  ");
}

}  // namespace
}  // namespace cimom
