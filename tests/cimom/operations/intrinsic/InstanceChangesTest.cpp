#include "cimom/operations/intrinsic/InstanceChanges.h"

#include <gtest/gtest.h>

#include "cimom/common/Xml.h"
#include "tests/cimom/support/SmallNameSpace.h"
#include "tests/cimom/support/StatusCodes.h"

namespace cimom {
namespace {

using test::errorOf;
using test::smallPath;
using test::valueXml;
using test::xmlOf;

std::string property(const std::string& name, const std::string& type, const std::string& value) {
    return "<PROPERTY NAME=\"" + name + "\" TYPE=\"" + type + "\">" + value + "</PROPERTY>";
}

std::string text(const std::string& name, const std::string& value) {
    return property(name, "string", valueXml(value));
}

std::string instance(const std::string& className, const std::string& properties) {
    return "<INSTANCE CLASSNAME=\"" + className + "\">" + properties + "</INSTANCE>";
}

std::string namedInstance(const std::string& path, const std::string& className,
                          const std::string& properties) {
    return "<VALUE.NAMEDINSTANCE>" + path + instance(className, properties) + "</VALUE.NAMEDINSTANCE>";
}

class InstanceChangesTest : public testing::Test {
protected:
    int errorOfRun(const std::string& operation, const test::Arguments& arguments) {
        return errorOf([&] { space_.run(operation, arguments); });
    }
    int errorOfCreating(const std::string& className, const std::string& properties) {
        return errorOfRun("CreateInstance", {{"NewInstance", instance(className, properties)}});
    }
    int errorOfModifying(const std::string& properties, test::Arguments more = {}) {
        more.insert(more.begin(),
                    {"ModifiedInstance", namedInstance(smallPath("Leaf", "a"), "Leaf", properties)});
        return errorOfRun("ModifyInstance", more);
    }
    int errorOfSetting(const std::string& name, const std::string& value) {
        return errorOfRun("SetProperty", {{"InstanceName", smallPath("Leaf", "a")},
                                          {"PropertyName", valueXml(name)},
                                          {"NewValue", value}});
    }

    /// The instance, and what it holds itself.
    std::string get(const std::string& className, const std::string& id) {
        return xmlOf(firstElement(space_.run("GetInstance", {{"InstanceName", smallPath(className, id)}})));
    }
    std::size_t count() { return space_->instances.all().size(); }

    test::SmallNameSpace space_;
};

const char* const kParentOfA =
    "<PROPERTY.REFERENCE NAME=\"Parent\"><VALUE.REFERENCE><INSTANCENAME CLASSNAME=\"Middle\"><KEYBINDING "
    "NAME=\"Id\"><KEYVALUE VALUETYPE=\"string\">m</KEYVALUE></KEYBINDING></INSTANCENAME></VALUE.REFERENCE>"
    "</PROPERTY.REFERENCE>";

TEST_F(InstanceChangesTest, CreatesAnInstanceWithTheClasssDefaultsAndAnswersItsPath) {
    const auto path = firstElement(space_.run(
        "CreateInstance",
        {{"NewInstance",
          instance("leaf", text("ID", "new") + property("Size", "sint32", "<VALUE> +7</VALUE>"))}}));
    EXPECT_EQ(xmlOf(path),
              "<INSTANCENAME CLASSNAME=\"Leaf\"><KEYBINDING NAME=\"Id\"><KEYVALUE "
              "VALUETYPE=\"string\">new</KEYVALUE></KEYBINDING></INSTANCENAME>");
    EXPECT_TRUE(space_.extras().returnsValue);
    EXPECT_EQ(
        get("Leaf", "new"),
        instance("Leaf", property("Level", "uint16", valueXml("2")) +
                             "<PROPERTY.ARRAY NAME=\"Tags\" TYPE=\"string\"><VALUE.ARRAY><VALUE>t</VALUE>"
                             "</VALUE.ARRAY></PROPERTY.ARRAY>" +
                             text("Id", "new") + property("Size", "sint32", valueXml("7"))));
    EXPECT_EQ(count(), 4U);
}

TEST_F(InstanceChangesTest, CreatesAnInstanceWithArraysReferencesAndEmbeddedObjects) {
    const std::string sent =
        text("Id", "new") +
        "<PROPERTY NAME=\"Caption\" EmbeddedObject=\"instance\" "
        "TYPE=\"string\"><VALUE>&lt;X/&gt;</VALUE></PROPERTY>"
        "<PROPERTY.ARRAY NAME=\"Tags\" TYPE=\"string\"><VALUE.ARRAY><VALUE>x</VALUE><VALUE.NULL></VALUE.NULL>"
        "</VALUE.ARRAY></PROPERTY.ARRAY>" +
        kParentOfA;
    space_.run("CreateInstance",
               {{"NewInstance", instance("Leaf", "<QUALIFIER NAME=\"Q\" TYPE=\"string\"/>" + sent)}});
    const std::string kept = get("Leaf", "new");
    for (const char* part :
         {"<PROPERTY NAME=\"Caption\" EmbeddedObject=\"instance\" TYPE=\"string\"><VALUE>&lt;X/&gt;",
          "<VALUE>x</VALUE><VALUE.NULL></VALUE.NULL>", kParentOfA}) {
        EXPECT_NE(kept.find(part), std::string::npos) << part << "\n" << kept;
    }
    EXPECT_EQ(kept.find("QUALIFIER"), std::string::npos);
}

TEST_F(InstanceChangesTest, RefusesToCreateWhatIsThereAlready) {
    EXPECT_EQ(errorOfCreating("Leaf", text("Id", "a")), test::kAlreadyExists);
    EXPECT_EQ(get("Leaf", "a").find("Level"), std::string::npos) << "the old one is as it was";
}

TEST_F(InstanceChangesTest, RefusesToCreateWhatItsClassDoesNotAllow) {
    EXPECT_EQ(errorOfCreating("Nothing", text("Id", "x")), test::kInvalidClass);
    EXPECT_EQ(errorOfCreating("Leaf", ""), test::kInvalidParameter) << "no key";
    EXPECT_EQ(errorOfCreating("Leaf", property("Id", "string", "")), test::kInvalidParameter)
        << "a key of null";
    EXPECT_EQ(errorOfCreating("Leaf", text("Id", "x") + text("Odd", "1")), test::kInvalidParameter);
    EXPECT_EQ(errorOfCreating("Leaf", text("Id", "x") + text("Size", "1")), test::kInvalidParameter)
        << "another type";
    EXPECT_EQ(errorOfCreating("Leaf", text("Id", "x") + property("Size", "", valueXml("much"))),
              test::kInvalidParameter);
    EXPECT_EQ(errorOfCreating("Leaf", text("Id", "x") + property("Level", "uint16", valueXml("70000"))),
              test::kInvalidParameter);
    EXPECT_EQ(errorOfCreating("Leaf", text("Id", "x") + text("Tags", "1")), test::kInvalidParameter)
        << "no array";
    EXPECT_EQ(
        errorOfCreating("Leaf", text("Id", "x") + "<PROPERTY.REFERENCE NAME=\"Parent\"><VALUE.REFERENCE>"
                                                  "<VALUE/></VALUE.REFERENCE></PROPERTY.REFERENCE>"),
        test::kInvalidParameter);
    EXPECT_EQ(errorOfRun("CreateInstance", {}), test::kInvalidParameter);
    EXPECT_EQ(errorOfRun("CreateInstance", {{"NewInstance", smallPath("Leaf", "x")}}),
              test::kInvalidParameter);
    EXPECT_EQ(count(), 3U);
}

TEST_F(InstanceChangesTest, RefusesToCreateAnInstanceOfAnAbstractClass) {
    space_.add(
        test::object("<CLASS NAME=\"Idea\" SUPERCLASS=\"Base\"><QUALIFIER NAME=\"Abstract\" TYPE=\"boolean\" "
                     "TOSUBCLASS=\"false\"><VALUE>TRUE</VALUE></QUALIFIER></CLASS>") +
        test::object("<CLASS NAME=\"Thing\" SUPERCLASS=\"Idea\"/>"));
    EXPECT_EQ(errorOfCreating("Idea", text("Id", "x")), test::kInvalidParameter);
    EXPECT_EQ(errorOfCreating("Thing", text("Id", "x")), 0);
}

TEST_F(InstanceChangesTest, ModifiesTheSentPropertiesAndAnswersNothing) {
    EXPECT_EQ(errorOfModifying(text("Caption", "Second") + property("Size", "sint32", "") + text("Id", "a")),
              0);
    EXPECT_FALSE(space_.extras().returnsValue);
    EXPECT_EQ(get("Leaf", "a"), instance("Leaf", text("Id", "a") + text("Caption", "Second") +
                                                     property("Size", "sint32", "") + kParentOfA));
    EXPECT_EQ(count(), 3U);
}

TEST_F(InstanceChangesTest, ModifiesOnlyListedPropertiesAndTakesTheClasssValueForThoseNotSent) {
    EXPECT_EQ(errorOfModifying(
                  text("Caption", "Second") + property("Size", "sint32", valueXml("9")) + text("Odd", "x"),
                  {{"PropertyList", test::arrayXml({"SIZE", "level", "Parent"})},
                   {"IncludeQualifiers", valueXml("TRUE")}}),
              0);
    const std::string kept = get("Leaf", "a");
    for (const char* part :
         {"First &amp; best", "<VALUE>9</VALUE>", "<PROPERTY NAME=\"Level\" TYPE=\"uint16\"><VALUE>2<",
          "<PROPERTY.REFERENCE NAME=\"Parent\"></PROPERTY.REFERENCE>"}) {
        EXPECT_NE(kept.find(part), std::string::npos) << part << "\n" << kept;
    }
    EXPECT_TRUE(space_->instances.all().front()->links().empty()) << "the reference is gone";
}

TEST_F(InstanceChangesTest, AnEmptyListModifiesNothing) {
    const std::string before = get("Leaf", "a");
    EXPECT_EQ(errorOfModifying(text("Caption", "Second"), {{"PropertyList", "<VALUE.ARRAY/>"}}), 0);
    EXPECT_EQ(get("Leaf", "a"), before);
}

TEST_F(InstanceChangesTest, RefusesModificationsAsAWhole) {
    const std::string before = get("Leaf", "a");
    const std::string good = text("Caption", "Second");
    EXPECT_EQ(errorOfModifying(good + text("Odd", "x")), test::kNoSuchProperty);
    EXPECT_EQ(errorOfModifying(good, {{"PropertyList", test::arrayXml({"Caption", "Odd"})}}),
              test::kNoSuchProperty);
    EXPECT_EQ(errorOfModifying(good + property("Size", "sint32", valueXml("x"))), test::kInvalidParameter);
    EXPECT_EQ(errorOfModifying(good + text("Id", "b")), test::kInvalidParameter) << "another key";
    EXPECT_EQ(errorOfModifying(good, {{"PropertyList", test::arrayXml({"Caption", "Id"})}}),
              test::kInvalidParameter)
        << "the key is to become null";
    EXPECT_EQ(errorOfRun("ModifyInstance",
                         {{"ModifiedInstance", namedInstance(smallPath("Leaf", "z"), "Leaf", good)}}),
              test::kNotFound);
    EXPECT_EQ(errorOfRun("ModifyInstance",
                         {{"ModifiedInstance", namedInstance(smallPath("Nothing", "a"), "Nothing", good)}}),
              test::kInvalidClass);
    EXPECT_EQ(errorOfRun("ModifyInstance",
                         {{"ModifiedInstance", namedInstance(smallPath("Leaf", "a"), "Middle", good)}}),
              test::kInvalidParameter);
    EXPECT_EQ(errorOfRun("ModifyInstance", {{"ModifiedInstance", "<VALUE.NAMEDINSTANCE/>"}}),
              test::kInvalidParameter);
    EXPECT_EQ(errorOfRun("ModifyInstance", {}), test::kInvalidParameter);
    EXPECT_EQ(get("Leaf", "a"), before);
}

TEST_F(InstanceChangesTest, ModifyingTakesAwayTheInstancesOwnQualifiers) {
    space_.add(
        test::object(instance("Leaf",
                              "<PROPERTY NAME=\"Id\" TYPE=\"string\"><QUALIFIER NAME=\"Q\" "
                              "TYPE=\"string\"><VALUE>q</VALUE></QUALIFIER><VALUE>q</VALUE></PROPERTY>")));
    space_.run("ModifyInstance",
               {{"ModifiedInstance", namedInstance(smallPath("Leaf", "q"), "Leaf", text("Caption", "x"))}});
    EXPECT_EQ(get("Leaf", "q"), instance("Leaf", text("Id", "q") + text("Caption", "x")));
}

TEST_F(InstanceChangesTest, DeletesAnInstance) {
    space_.run("DeleteInstance", {{"InstanceName", smallPath("leaf", "a")}});
    EXPECT_FALSE(space_.extras().returnsValue);
    EXPECT_EQ(count(), 2U);
    EXPECT_EQ(errorOf([&] { get("Leaf", "a"); }), test::kNotFound);
    EXPECT_EQ(get("Leaf", "b"), instance("Leaf", text("Id", "b"))) << "what came after it is still found";
    EXPECT_EQ(errorOfRun("DeleteInstance", {{"InstanceName", smallPath("Leaf", "a")}}), test::kNotFound);
    EXPECT_EQ(errorOfRun("DeleteInstance", {{"InstanceName", smallPath("Nothing", "a")}}),
              test::kInvalidClass);
    EXPECT_EQ(errorOfRun("DeleteInstance", {}), test::kInvalidParameter);
}

TEST_F(InstanceChangesTest, SetsAProperty) {
    EXPECT_EQ(errorOfSetting("size", valueXml("12")), 0);
    EXPECT_FALSE(space_.extras().returnsValue);
    EXPECT_EQ(errorOfSetting("Caption", ""), 0);
    EXPECT_EQ(get("Leaf", "a"),
              instance("Leaf", text("Id", "a") + property("Caption", "string", "") +
                                   property("Size", "sint32", valueXml("12")) + kParentOfA));
}

TEST_F(InstanceChangesTest, RefusesToSetWhatCannotBe) {
    EXPECT_EQ(errorOfSetting("Odd", valueXml("1")), test::kNoSuchProperty);
    EXPECT_EQ(errorOfSetting("Size", valueXml("x")), test::kTypeMismatch);
    EXPECT_EQ(errorOfSetting("Size", test::arrayXml({"1"})), test::kTypeMismatch);
    EXPECT_EQ(errorOfSetting("Tags", valueXml("1")), test::kTypeMismatch);
    EXPECT_EQ(errorOfSetting("Id", valueXml("b")), test::kInvalidParameter);
    EXPECT_EQ(errorOfSetting("Id", valueXml("a")), 0) << "the same key";
    EXPECT_EQ(errorOfRun("SetProperty",
                         {{"InstanceName", smallPath("Leaf", "z")}, {"PropertyName", valueXml("Size")}}),
              test::kNotFound);
    EXPECT_EQ(errorOfRun("SetProperty", {{"InstanceName", smallPath("Leaf", "a")}}), test::kInvalidParameter);
}

}  // namespace
}  // namespace cimom
