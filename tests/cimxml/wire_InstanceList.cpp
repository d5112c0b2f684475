// Long lists of instances are parsed a few at a time. What comes of that is compared with what comes of the
// same answer parsed as a whole, as one with a comment is.

#include "cimxml/wire/InstanceList.h"

#include <Pegasus/Common/CIMInstance.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "cimxml/wire/NameTable.h"
#include "cimxml/wire/ResponseReader.h"
#include "cimxml/wire/WireError.h"
#include "tests/cimxml/wire_ScriptedServer.h"

namespace cimxml_test {
namespace {

using cimxml::InstanceList;
using cimxml::Limits;
using cimxml::ResponseReader;
using cimxml::WireError;

const std::string before =
    "<?xml version=\"1.0\"?>\n<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"1\" "
    "PROTOCOLVERSION=\"1.0\">"
    "<SIMPLERSP><IMETHODRESPONSE NAME=\"EnumerateInstances\"><IRETURNVALUE>";
const std::string behind = "</IRETURNVALUE></IMETHODRESPONSE></SIMPLERSP></MESSAGE></CIM>\n";

std::string property(const std::string& name, const std::string& type, const std::string& text) {
    return "<PROPERTY NAME=\"" + name + "\" TYPE=\"" + type + "\"><VALUE>" + text + "</VALUE></PROPERTY>";
}

std::string named(int number, const std::string& content) {
    return "<VALUE.NAMEDINSTANCE><INSTANCENAME CLASSNAME=\"A\"><KEYBINDING NAME=\"k\"><KEYVALUE>" +
           std::to_string(number) + "</KEYVALUE></KEYBINDING></INSTANCENAME><INSTANCE CLASSNAME=\"A\">" +
           property("k", "string", std::to_string(number)) + content + "</INSTANCE></VALUE.NAMEDINSTANCE>";
}

/// Instances with texts of several kinds, more than one to a piece, and now and then one larger than a piece.
std::string someInstances(int count) {
    std::string list;
    for (int i = 0; i < count; ++i) {
        const std::string number = std::to_string(i % 7);
        list += named(
            i, property("n", "uint16", number) + property("s", "string", "&lt;\xC3\xA4 &amp; " + number) +
                   (i % 3 == 0 ? property("b", "string", " ") : std::string()) +
                   (i % 50 == 7 ? property("long", "string", std::string(2000, 'x')) : std::string()) +
                   "<PROPERTY.ARRAY NAME=\"a\" TYPE=\"string\"><VALUE.ARRAY><VALUE>x</VALUE><VALUE>" +
                   number + "</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>");
        list += i % 5 == 0 ? "\n  " : "";
    }
    return list;
}

std::vector<std::string> read(const std::string& answer, const Limits& limits) {
    ResponseReader reader(answer, {"1", "EnumerateInstances", true}, limits);
    const auto instances = reader.readInstances();
    std::vector<std::string> texts;
    for (Pegasus::Uint32 i = 0; i < instances.size(); ++i) {
        texts.emplace_back(instances[i].getPath().toString().getCString());
        texts.back() += instances[i].toString().getCString();
    }
    return texts;
}

std::vector<std::string> readInPieces(const std::string& list, std::size_t pieceBytes = 1000,
                                      unsigned depth = 128) {
    Limits limits;
    limits.pieceBytes = pieceBytes;
    limits.xmlDepth = depth;
    return read(before + list + behind, limits);
}

std::vector<std::string> readAsWhole(const std::string& list, unsigned depth = 128) {
    Limits limits;
    limits.xmlDepth = depth;
    return read(before + list + behind + "<!-- -->", limits);
}

template <typename Read>
std::string errorOf(Read read) {
    try {
        read();
    } catch (const WireError& error) {
        return error.what();
    }
    return "none";
}

/// An error without the element around the list, which a piece of it does not know.
std::string withoutOperation(const std::string& error) {
    const std::string operation = "IMETHODRESPONSE \"EnumerateInstances\"";
    return replaceAll(replaceAll(error, " of " + operation, ""), ", in " + operation, "");
}

TEST(InstanceList, IsTakenOutOfALongAnswerOnly) {
    const auto isTaken = [](std::string answer, std::size_t pieceBytes) {
        const std::size_t size = answer.size();
        const bool taken = InstanceList::takeFrom(answer, pieceBytes).has_value();
        EXPECT_EQ(answer.size() < size, taken);
        return taken;
    };
    const std::string list = someInstances(20);
    EXPECT_TRUE(isTaken(before + list + behind, list.size() / 5));
    EXPECT_TRUE(isTaken(before + "\n " + list + behind, list.size() / 5));
    EXPECT_FALSE(isTaken(before + list + behind, list.size() / 3)) << "a short one";
    EXPECT_FALSE(isTaken(before + "<INSTANCENAME CLASSNAME=\"A\"/>" + list + behind, 10))
        << "another kind of list";
    EXPECT_FALSE(isTaken(before + list, 10)) << "no end";
    EXPECT_FALSE(isTaken(list, 10)) << "no list";
}

TEST(InstanceList, LeavesTheAnswerAroundItself) {
    std::string answer = before + someInstances(20) + behind;
    ASSERT_TRUE(InstanceList::takeFrom(answer, 100).has_value());
    EXPECT_EQ(answer, before + behind);
}

TEST(InstanceList, GivesWhatTheWholeAnswerGives) {
    const std::string list = someInstances(200);
    const auto expected = readAsWhole(list);
    ASSERT_EQ(expected.size(), 200U);
    for (const std::size_t pieceBytes : {1U, 100U, 1000U, 1500U, 4000U, 8000U}) {
        EXPECT_EQ(readInPieces(list, pieceBytes), expected) << pieceBytes;
    }
    EXPECT_EQ(readInPieces("\n" + list + "\n \n"), expected) << "blanks around";
}

TEST(InstanceList, GivesPathsWithoutHostAndNamespace) {
    const std::string place =
        "<NAMESPACEPATH><HOST>h</HOST><LOCALNAMESPACEPATH><NAMESPACE "
        "NAME=\"root\"/></LOCALNAMESPACEPATH></NAMESPACEPATH>";
    const std::string list =
        replaceAll(replaceAll(someInstances(20), "<INSTANCENAME", "<INSTANCEPATH>" + place + "<INSTANCENAME"),
                   "</INSTANCENAME>", "</INSTANCENAME></INSTANCEPATH>");
    EXPECT_EQ(readInPieces(list, 100), readAsWhole(someInstances(20)));
}

TEST(InstanceList, ThatMayBeInterruptedIsParsedAsAWhole) {
    const std::string text = "<![CDATA[</VALUE.NAMEDINSTANCE>]]>";
    const auto found =
        readInPieces(someInstances(50) + named(50, property("c", "string", text)) + someInstances(50));
    ASSERT_EQ(found.size(), 101U);
    EXPECT_NE(found[50].find("&lt;/VALUE.NAMEDINSTANCE&gt;"), std::string::npos) << found[50];
}

TEST(InstanceList, RefusesWhatTheWholeAnswerRefusesAtTheSamePlace) {
    const std::string good = someInstances(40);
    for (const std::string& bad :
         {named(1, property("n", "uint16", "x")), named(1, property("n", "nothing", "1")),
          named(1, property("k", "string", "")), named(1, "<OTHER/>"),
          named(1, "<PROPERTY TYPE=\"string\"/>"), named(1, "text"), std::string("<OTHER/>"),
          replaceAll(named(1, ""), "<INSTANCE CLASSNAME=\"A\">", "<INSTANCE CLASSNAME=\"B\">"),
          named(1, "<PROPERTY NAME=\"p\" TYPE=\"string\"><VALUE></PROPERTY>"), named(1, "<PROPERTY NAME=>"),
          named(1, property("p", "string", "&#;"))}) {
        const std::string list = good + bad + good;
        const std::string ofWhole = withoutOperation(errorOf([&] { readAsWhole(list); }));
        EXPECT_EQ(ofWhole.rfind("XML at offset ", 0), 0U) << ofWhole;
        EXPECT_EQ(errorOf([&] { readInPieces(list); }), ofWhole) << bad;
        EXPECT_EQ(errorOf([&] { readInPieces(list, 1); }), ofWhole) << bad;
    }
}

TEST(InstanceList, RefusesAnElementThatDoesNotEnd) {
    const std::string list = someInstances(40) + "<VALUE.NAMEDINSTANCE><INSTANCENAME CLASSNAME=\"A\"/>";
    const std::string error = errorOf([&] { readInPieces(list); });
    EXPECT_EQ(error.rfind("XML at offset ", 0), 0U) << error;
}

TEST(InstanceList, MayBeNestedAsDeepAsTheWholeAnswer) {
    const std::string list =
        someInstances(40);  // VALUE.NAMEDINSTANCE, INSTANCE, PROPERTY.ARRAY, VALUE.ARRAY, VALUE
    constexpr unsigned depth = 5 + 5;
    EXPECT_EQ(readInPieces(list, 100, depth), readAsWhole(list, depth));
    const std::string ofWhole = errorOf([&] { readAsWhole(list, depth - 1); });
    EXPECT_NE(ofWhole.find("nested more than 9 deep"), std::string::npos) << ofWhole;
    const std::string pieces = errorOf([&] { readInPieces(list, 100, depth - 1); });
    EXPECT_NE(pieces.find("nested more than"), std::string::npos) << pieces;
}

TEST(InstanceList, ErrorsOfTheServerGoBeforeIt) {
    const std::string answer = replaceAll(before, "<IRETURNVALUE>", "<ERROR CODE=\"5\"/><IRETURNVALUE>") +
                               someInstances(40) + behind;
    Limits limits;
    limits.pieceBytes = 100;
    EXPECT_THROW(read(answer, limits), Pegasus::CIMException);
}

// What was read under a name is remembered from one instance to the next.

std::vector<std::string> texts(const std::vector<std::string>& contents) {
    std::string list;
    for (const std::string& content : contents) {
        list += "<VALUE.NAMEDINSTANCE><INSTANCENAME CLASSNAME=\"A\"/><INSTANCE CLASSNAME=\"A\">" + content +
                "</INSTANCE></VALUE.NAMEDINSTANCE>";
    }
    ResponseReader reader(before + list + behind, {"1", "EnumerateInstances", true}, Limits());
    const auto instances = reader.readInstances();
    std::vector<std::string> found;
    for (Pegasus::Uint32 i = 0; i < instances.size(); ++i) {
        const Pegasus::CIMConstProperty first = std::as_const(instances)[i].getProperty(0);
        found.emplace_back(first.isArray() ? "array " : "");
        found.back() += Pegasus::cimTypeToString(first.getType());
        found.back() += std::string(" ") +
                        (first.getValue().isNull() ? "null" : first.getValue().toString().getCString());
    }
    return found;
}

std::string array(const std::string& type, const std::string& content) {
    return "<PROPERTY.ARRAY NAME=\"p\" TYPE=\"" + type + "\"><VALUE.ARRAY>" + content +
           "</VALUE.ARRAY></PROPERTY.ARRAY>";
}

TEST(RememberedValues, AreTakenForTheSameTextOfTheSameTypeOnly) {
    const auto scalar = [](const char* type, const char* text) { return property("p", type, text); };
    EXPECT_EQ(
        texts({scalar("uint8", "1"), scalar("uint8", "1"), scalar("uint8", "2"), scalar("uint16", "2"),
               scalar("string", "2"), scalar("boolean", "1"), scalar("string", "1"), scalar("string", ""),
               scalar("string", ""), scalar("string", " "), "<PROPERTY NAME=\"p\" TYPE=\"string\"/>",
               scalar("string", " ")}),
        (std::vector<std::string>{"uint8 1", "uint8 1", "uint8 2", "uint16 2", "string 2", "boolean TRUE",
                                  "string 1", "string ", "string ", "string  ", "string null", "string  "}));
}

TEST(RememberedValues, OfArraysAreTakenForTheSameTextsOnly) {
    const auto values = [](const std::vector<std::string>& items) {
        std::string all;
        for (const std::string& item : items) {
            all += "<VALUE>" + item + "</VALUE>";
        }
        return all;
    };
    EXPECT_EQ(
        texts({array("string", ""), array("string", ""), array("string", values({"a", "b"})),
               array("string", values({"a", "b"})), array("string", values({"ab"})),
               property("p", "string", "ab"), array("string", values({"ab", ""})),
               array("string", "<VALUE>ab</VALUE><VALUE.NULL/>"), array("uint8", values({"1", "2"})),
               array("uint16", values({"1", "2"})), array("string", "")}),
        (std::vector<std::string>{"array string ", "array string ", "array string a b ", "array string a b ",
                                  "array string ab ", "string ab", "array string ab  ", "array string ab  ",
                                  "array uint8 1 2 ", "array uint16 1 2 ", "array string "}));
}

TEST(RememberedValues, AreNotTakenForAPropertyOfAnotherName) {
    EXPECT_EQ(texts({property("p", "string", "a"), property("q", "string", "b"), property("p", "string", "b"),
                     property("q", "string", "a")}),
              (std::vector<std::string>{"string a", "string b", "string b", "string a"}));
}

TEST(RememberedValues, BelongToEachInstanceByItself) {
    const std::string one = "<VALUE.NAMEDINSTANCE><INSTANCENAME CLASSNAME=\"A\"/><INSTANCE CLASSNAME=\"A\">" +
                            property("p", "string", "same") + "</INSTANCE></VALUE.NAMEDINSTANCE>";
    ResponseReader reader(before + one + one + behind, {"1", "EnumerateInstances", true}, Limits());
    Pegasus::Array<Pegasus::CIMInstance> instances = reader.readInstances();
    instances[0].getProperty(0).setValue(Pegasus::CIMValue(Pegasus::String("other")));
    EXPECT_EQ(instances[1].getProperty(0).getValue().toString(), "same");
}

/// Where the text of the first property, or of its first element, stands in each of the instances.
std::vector<const void*> placesOfTexts(const std::string& content, int count) {
    std::string list;
    for (int i = 0; i < count; ++i) {
        list += named(i, content);
    }
    ResponseReader reader(before + list + behind, {"1", "EnumerateInstances", true}, Limits());
    const auto instances = reader.readInstances();
    std::vector<const void*> places;
    for (Pegasus::Uint32 i = 0; i < instances.size(); ++i) {
        const Pegasus::CIMValue value = instances[i].getProperty(1).getValue();
        if (value.isArray()) {
            Pegasus::Array<Pegasus::String> texts;
            value.get(texts);
            places.push_back(std::as_const(texts)[0].getChar16Data());
        } else {
            Pegasus::String text;
            value.get(text);
            places.push_back(text.getChar16Data());
        }
    }
    return places;
}

TEST(RememberedValues, StandInMemoryOnce) {
    const auto texts = placesOfTexts(property("p", "string", "the same"), 3);
    EXPECT_EQ(texts, std::vector<const void*>(3, texts.at(0)));
    const auto arrays = placesOfTexts(array("string", "<VALUE>the</VALUE><VALUE>same</VALUE>"), 3);
    EXPECT_EQ(arrays, std::vector<const void*>(3, arrays.at(0)));
}

TEST(RememberedValues, MayNotBeTooLong) {
    const auto places = placesOfTexts(property("p", "string", std::string(600, 'x')), 2);
    EXPECT_NE(places.at(0), places.at(1));
}

TEST(RememberedValues, HideNoErrorBesideThem) {
    const std::string good = array("string", "<VALUE>a</VALUE>");
    EXPECT_EQ(texts({good, good}).size(), 2U);
    EXPECT_NE(errorOf([&] { texts({good, array("string", "stray<VALUE>a</VALUE>")}); }), "none");
    EXPECT_NE(errorOf([&] { texts({good, array("string", "<VALUE>a</VALUE>stray")}); }), "none");
    EXPECT_NE(errorOf([&] { texts({good, array("string", "<VALUE>a<X/></VALUE>")}); }), "none");
}

TEST(NameTable, HasEachSpellingOnceInWhateverOrderTheyCome) {
    cimxml::NameTable names;
    const cimxml::KnownName* a = &names.find("a");
    const cimxml::KnownName* b = &names.find("b");
    for (const char* text : {"b", "a", "a", "b", "b", "a"}) {
        EXPECT_EQ(&names.find(text), *text == 'a' ? a : b);
    }
    EXPECT_NE(&names.find("A"), a) << "another spelling is another text";
    EXPECT_THROW(names.find("1"), Pegasus::InvalidNameException);
    EXPECT_EQ(&names.find("a"), a) << "after a text that is no name";
}

TEST(RememberedValues, OfKeysAreThoseOfThePropertyOfThatName) {
    const auto found = readInPieces(someInstances(3), 100000);
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found[2].rfind("A.k=\"2\"", 0), 0U) << found[2];
}

TEST(Properties, OutliveTheInstanceThatTheyCameWith) {
    ResponseReader reader(before + someInstances(2) + behind, {"1", "EnumerateInstances", true}, Limits());
    Pegasus::Array<Pegasus::CIMInstance> instances = reader.readInstances();
    const Pegasus::CIMProperty kept = instances[1].getProperty(1);
    instances.clear();
    EXPECT_EQ(kept.getName().getString(), "n");
    EXPECT_EQ(kept.getValue().toString(), "1");
}

}  // namespace
}  // namespace cimxml_test
