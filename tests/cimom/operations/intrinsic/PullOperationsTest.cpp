#include "cimom/operations/intrinsic/PullOperations.h"

#include <gtest/gtest.h>

#include "cimom/common/Xml.h"
#include "tests/cimom/support/SmallAssociations.h"
#include "tests/cimom/support/SmallNameSpace.h"
#include "tests/cimom/support/StatusCodes.h"

namespace cimom {
namespace {

using test::classNameXml;
using test::errorOf;
using test::objectsOf;
using test::smallPath;
using test::valueXml;
using test::xmlOf;

const char* const kPathOfA =
    "<INSTANCEPATH><NAMESPACEPATH><HOST>localhost</HOST><LOCALNAMESPACEPATH><NAMESPACE "
    "NAME=\"root\"></NAMESPACE>"
    "<NAMESPACE NAME=\"cimv2\"></NAMESPACE></LOCALNAMESPACEPATH></NAMESPACEPATH><INSTANCENAME "
    "CLASSNAME=\"Leaf\">"
    "<KEYBINDING NAME=\"Id\"><KEYVALUE "
    "VALUETYPE=\"string\">a</KEYVALUE></KEYBINDING></INSTANCENAME></INSTANCEPATH>";

class PullOperationsTest : public testing::Test {
protected:
    PullOperationsTest() { space_.add(test::kSmallAssociations); }

    int errorOfRun(const std::string& operation, const test::Arguments& arguments) {
        return errorOf([&] { space_.run(operation, arguments); });
    }

    /// What an operation and its pulls deliver, one object a time: "a | m | b". The first answer has `first`
    /// objects.
    std::string pulled(const std::string& open, const std::string& pull, test::Arguments arguments,
                       const std::string& first = "1") {
        arguments.emplace_back("MaxObjectCount", valueXml(first));
        std::string all = objectsOf(space_.run(open, arguments));
        for (int i = 0; i < 20 && space_.output("EndOfSequence") == "FALSE"; ++i) {
            const std::string context = space_.output("EnumerationContext");
            all += " | " + objectsOf(space_.run(pull, {{"EnumerationContext", valueXml(context)},
                                                       {"MaxObjectCount", valueXml("1")}}));
        }
        EXPECT_EQ(space_.output("EndOfSequence"), "TRUE");
        EXPECT_EQ(space_.output("EnumerationContext"), "");
        return all;
    }

    test::SmallNameSpace space_;
};

TEST_F(PullOperationsTest, EnumeratesInstancesInPieces) {
    const test::Arguments base{{"ClassName", classNameXml("base")}};
    EXPECT_EQ(pulled("OpenEnumerateInstances", "PullInstancesWithPath", base), "a | m | b");
    EXPECT_EQ(pulled("OpenEnumerateInstances", "PullInstancesWithPath", base, "3"), "a m b");
    EXPECT_EQ(pulled("OpenEnumerateInstancePaths", "PullInstancePaths", base, "2"), "a m | b");
}

TEST_F(PullOperationsTest, OpensWithoutAnyObjectUnlessTold) {
    EXPECT_EQ(objectsOf(space_.run("OpenEnumerateInstances", {{"ClassName", classNameXml("Base")}})), "");
    EXPECT_EQ(space_.output("EndOfSequence"), "FALSE");
    EXPECT_TRUE(space_.extras().returnsValue);
}

TEST_F(PullOperationsTest, FollowsAssociationsInPieces) {
    const test::Arguments leaf{{"InstanceName", smallPath("Leaf", "a")}};
    EXPECT_EQ(pulled("OpenAssociatorInstances", "PullInstancesWithPath", leaf), "m | b");
    EXPECT_EQ(pulled("OpenAssociatorInstancePaths", "PullInstancePaths", leaf), "m | b");
    EXPECT_EQ(pulled("OpenReferenceInstances", "PullInstancesWithPath", leaf), "am | ba");
    EXPECT_EQ(pulled("OpenReferenceInstancePaths", "PullInstancePaths", leaf), "am | ba");
}

TEST_F(PullOperationsTest, FollowsTheAssociationsAskedFor) {
    const auto leaf = [](const char* name, const std::string& value) {
        return test::Arguments{{"InstanceName", smallPath("Leaf", "a")}, {name, value}};
    };
    for (const std::string kind : {"Instances", "InstancePaths"}) {
        const std::string pull = kind == "Instances" ? "PullInstancesWithPath" : "PullInstancePaths";
        const auto associators = [&](const test::Arguments& more) {
            return pulled("OpenAssociator" + kind, pull, more);
        };
        EXPECT_EQ(associators(leaf("AssocClass", classNameXml("TightBond"))), "b");
        EXPECT_EQ(associators(leaf("ResultClass", classNameXml("Leaf"))), "b");
        EXPECT_EQ(associators(leaf("Role", valueXml("Upper"))), "b");
        EXPECT_EQ(associators(leaf("ResultRole", valueXml("Upper"))), "m");
        EXPECT_EQ(pulled("OpenReference" + kind, pull, leaf("ResultClass", classNameXml("TightBond"))), "ba");
        EXPECT_EQ(pulled("OpenReference" + kind, pull, leaf("Role", valueXml("Lower"))), "am");
    }
}

TEST_F(PullOperationsTest, SendsInstancesWithTheirWholePathsAndAllTheyHave) {
    const auto result = space_.run("OpenEnumerateInstances", {{"ClassName", classNameXml("Base")},
                                                              {"MaxObjectCount", valueXml("1")},
                                                              {"DeepInheritance", valueXml("FALSE")},
                                                              {"IncludeClassOrigin", valueXml("TRUE")}});
    EXPECT_EQ(
        xmlOf(firstElement(result)),
        std::string("<VALUE.INSTANCEWITHPATH>") + kPathOfA +
            "<INSTANCE CLASSNAME=\"Leaf\"><PROPERTY NAME=\"Id\" CLASSORIGIN=\"Base\" TYPE=\"string\"><VALUE>a"
            "</VALUE></PROPERTY><PROPERTY NAME=\"Caption\" CLASSORIGIN=\"Base\" TYPE=\"string\"><VALUE>First "
            "&amp; best</VALUE></PROPERTY><PROPERTY NAME=\"Level\" CLASSORIGIN=\"Base\" "
            "TYPE=\"uint16\"><VALUE>2"
            "</VALUE></PROPERTY></INSTANCE></VALUE.INSTANCEWITHPATH>");
    const auto one = space_.run("OpenEnumerateInstances", {{"ClassName", classNameXml("Base")},
                                                           {"MaxObjectCount", valueXml("1")},
                                                           {"PropertyList", test::arrayXml({"Size"})}});
    EXPECT_EQ(test::attributesOf(one.select_node("//INSTANCE").node(), "NAME"), "Size");
}

TEST_F(PullOperationsTest, SendsPathsAsTheyAre) {
    const auto result = space_.run("OpenEnumerateInstancePaths",
                                   {{"ClassName", classNameXml("Leaf")}, {"MaxObjectCount", valueXml("1")}});
    EXPECT_EQ(xmlOf(firstElement(result)), kPathOfA);
    EXPECT_EQ(space_.extras().parameters,
              "<PARAMVALUE NAME=\"EndOfSequence\" PARAMTYPE=\"boolean\"><VALUE>FALSE</VALUE></PARAMVALUE>"
              "<PARAMVALUE NAME=\"EnumerationContext\" PARAMTYPE=\"string\"><VALUE>1</VALUE></PARAMVALUE>");
}

TEST_F(PullOperationsTest, DeliversWhatThereWasWhenItWasOpened) {
    space_.run("OpenEnumerateInstancePaths", {{"ClassName", classNameXml("Base")}});
    const test::Arguments pull{{"EnumerationContext", valueXml(space_.output("EnumerationContext"))},
                               {"MaxObjectCount", valueXml("9")}};
    space_.run("DeleteInstance", {{"InstanceName", smallPath("Leaf", "a")}});
    EXPECT_EQ(objectsOf(space_.run("PullInstancePaths", pull)), "a m b");
}

TEST_F(PullOperationsTest, PullsWhatAQuerySelects) {
    const test::Arguments query{{"FilterQueryLanguage", valueXml("WQL")},
                                {"FilterQuery", valueXml("SELECT Id FROM Leaf")},
                                {"MaxObjectCount", valueXml("1")}};
    EXPECT_EQ(xmlOf(firstElement(space_.run("OpenQueryInstances", query))),
              "<INSTANCE CLASSNAME=\"Leaf\"><PROPERTY NAME=\"Id\" "
              "TYPE=\"string\"><VALUE>a</VALUE></PROPERTY></INSTANCE>");
    const test::Arguments pull{{"EnumerationContext", valueXml(space_.output("EnumerationContext"))},
                               {"MaxObjectCount", valueXml("9")}};
    const auto rest = space_.run("PullInstances", pull);
    EXPECT_STREQ(rest.select_node("INSTANCE/PROPERTY/VALUE").node().child_value(), "b");
    EXPECT_EQ(space_.output("EndOfSequence"), "TRUE");
}

TEST_F(PullOperationsTest, EndsAnEnumerationThatIsClosed) {
    space_.run("OpenEnumerateInstancePaths", {{"ClassName", classNameXml("Base")}});
    const test::Arguments context{{"EnumerationContext", valueXml(space_.output("EnumerationContext"))}};
    space_.run("CloseEnumeration", context);
    EXPECT_FALSE(space_.extras().returnsValue);
    EXPECT_EQ(space_.extras().parameters, "");
    EXPECT_EQ(errorOfRun("CloseEnumeration", context), test::kInvalidEnumerationContext);
}

TEST_F(PullOperationsTest, RefusesPullsThatContinueNothing) {
    for (const char* pull : {"PullInstancesWithPath", "PullInstancePaths", "PullInstances"}) {
        const test::Arguments count{{"MaxObjectCount", valueXml("1")}};
        test::Arguments both = count;
        both.emplace_back("EnumerationContext", valueXml("77"));
        EXPECT_EQ(errorOfRun(pull, both), test::kInvalidEnumerationContext);
        EXPECT_EQ(errorOfRun(pull, count), test::kInvalidParameter);
        EXPECT_EQ(errorOfRun(pull, {{"EnumerationContext", valueXml("77")}}), test::kInvalidParameter);
    }
    space_.run("OpenEnumerateInstancePaths", {{"ClassName", classNameXml("Base")}});
    const test::Arguments other{{"EnumerationContext", valueXml(space_.output("EnumerationContext"))},
                                {"MaxObjectCount", valueXml("1")}};
    EXPECT_EQ(errorOfRun("PullInstances", other), test::kInvalidEnumerationContext);
    EXPECT_EQ(errorOfRun("PullInstancesWithPath", other), test::kInvalidEnumerationContext);
    EXPECT_EQ(errorOfRun("PullInstancePaths", other), 0);
}

TEST_F(PullOperationsTest, RefusesToOpenWhatIsNotThere) {
    for (const char* open : {"OpenEnumerateInstances", "OpenEnumerateInstancePaths"}) {
        EXPECT_EQ(errorOfRun(open, {{"ClassName", classNameXml("Nothing")}}), test::kInvalidClass);
        EXPECT_EQ(errorOfRun(open, {}), test::kInvalidParameter);
    }
    for (const char* open : {"OpenReferenceInstances", "OpenReferenceInstancePaths",
                             "OpenAssociatorInstances", "OpenAssociatorInstancePaths"}) {
        EXPECT_EQ(errorOfRun(open, {{"InstanceName", smallPath("Leaf", "z")}}), test::kNotFound);
        EXPECT_EQ(errorOfRun(open, {{"InstanceName", smallPath("Nothing", "z")}}), test::kInvalidClass);
        EXPECT_EQ(
            errorOfRun(open, {{"InstanceName", smallPath("Leaf", "a")}, {"ResultClass", classNameXml("No")}}),
            test::kInvalidParameter);
        EXPECT_EQ(errorOfRun(open, {}), test::kInvalidParameter);
    }
}

TEST_F(PullOperationsTest, RefusesWhatItDoesNotOffer) {
    for (const char* open : {"OpenEnumerateInstances", "OpenEnumerateInstancePaths", "OpenReferenceInstances",
                             "OpenReferenceInstancePaths", "OpenAssociatorInstances",
                             "OpenAssociatorInstancePaths", "OpenQueryInstances"}) {
        const bool query = std::string(open) == "OpenQueryInstances";
        const auto error = [&](const char* name, const char* value) {
            test::Arguments arguments{{name, valueXml(value)}};
            if (query) {
                arguments.emplace_back("FilterQueryLanguage", valueXml("WQL"));
                arguments.emplace_back("FilterQuery", valueXml("SELECT * FROM Leaf"));
            } else if (std::string(open).find("Enumerate") != std::string::npos) {
                arguments.emplace_back("ClassName", classNameXml("Base"));
            } else {
                arguments.emplace_back("InstanceName", smallPath("Leaf", "a"));
            }
            return errorOfRun(open, arguments);
        };
        EXPECT_EQ(error("OperationTimeout", "1"), 0) << open;
        EXPECT_EQ(error("OperationTimeout", "3600"), 0);
        EXPECT_EQ(error("OperationTimeout", "0"), test::kInvalidOperationTimeout);
        EXPECT_EQ(error("OperationTimeout", "3601"), test::kInvalidOperationTimeout);
        EXPECT_EQ(error("OperationTimeout", "-1"), test::kInvalidParameter);
        EXPECT_EQ(error("MaxObjectCount", "many"), test::kInvalidParameter);
        EXPECT_EQ(error("ContinueOnError", "FALSE"), 0);
        EXPECT_EQ(error("ContinueOnError", "TRUE"), test::kContinuationOnErrorNotSupported);
        EXPECT_EQ(error("Odd", "1"), test::kInvalidParameter);
        if (!query) {
            EXPECT_EQ(error("FilterQuery", "Id = 'a'"), test::kFilteredEnumerationNotSupported);
            EXPECT_EQ(error("FilterQueryLanguage", "DMTF:FQL"), test::kFilteredEnumerationNotSupported);
        } else {
            EXPECT_EQ(error("ReturnQueryResultClass", "TRUE"), test::kNotSupported);
        }
    }
}

}  // namespace
}  // namespace cimom
