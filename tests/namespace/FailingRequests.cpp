// What becomes of a lookup when any one of its requests fails: what it gives, what stays cached, and what the
// next one asks.

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMQualifier.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cimhttp/TCimHTTPNamespace.h"
#include "model/TCimHTTPClass.h"
#include "tests/support/FakeNodes.h"
#include "tests/support/PluginTest.h"

namespace NQELVSK20 {
namespace {

using Pegasus::CIMName;
using Pegasus::CIMValue;
using Names = std::vector<std::string>;

const Pegasus::CIMException kRefusal(Pegasus::CIM_ERR_FAILED);
const Pegasus::CannotConnectException kBreak(Pegasus::String("gone"));
const Pegasus::ConnectionTimeoutException kSilence;

/// How the line begins by which a lookup says that a class was not had in time.
const std::string kTimedOut = "TCimHTTPNamespace::GetClass after AllocateClass from Pegasus for: ";

/// A chain F_A > F_B > F_C > F_D, each class with a property of its own.
class FailingRequestsTest : public PluginTest {
protected:
    static Pegasus::CIMClass ClassOf(const char* name, const char* superclass, const char* property) {
        Pegasus::CIMClass definition(CIMName(name), *superclass == 0 ? CIMName() : CIMName(superclass));
        Pegasus::CIMProperty own(CIMName(property), CIMValue(Pegasus::String::EMPTY));
        own.addQualifier(Pegasus::CIMQualifier(CIMName("Description"), CIMValue(Pegasus::String("own"))));
        definition.addProperty(own);
        return definition;
    }

    static void DefineChain(FakeNodes& nodes) {
        nodes.Define(ClassOf("F_A", "", "A"));
        nodes.Define(ClassOf("F_B", "F_A", "B"));
        nodes.Define(ClassOf("F_C", "F_B", "C"));
        nodes.Define(ClassOf("F_D", "F_C", "D"));
    }

    boost::shared_ptr<TCimHTTPNamespace> ConnectedTo(FakeNodes& nodes) {
        const auto nameSpace = MakeNamespace();
        const Names none(nodes.Hosts().size());
        nameSpace->connect(nodes.Hosts(), none, none);
        log_.Clear();
        nodes.Clear();
        return nameSpace;
    }

    /// The cached classes, from the top of the tree down, each with the number of its ancestors.
    static Names Tree(const boost::shared_ptr<ICIMClass>& top, int depth = 0) {
        Names names;
        top->EnumerateSubclasses(
            [&](const boost::shared_ptr<ICIMClass>& subclass) {
                names.push_back(std::to_string(depth) + " " + subclass->GetName(TContext()));
                const Names below = Tree(subclass, depth + 1);
                names.insert(names.end(), below.begin(), below.end());
                return true;
            },
            false, TContext());
        return names;
    }

    static Names TreeOf(TCimHTTPNamespace& nameSpace) {
        return Tree(static_cast<ICIMNamespace&>(nameSpace).GetClass("", TContext()));
    }

    static Names PropertiesOf(const boost::shared_ptr<ICIMClass>& cimClass) {
        Names names;
        cimClass->EnumeratePropertyDecls(
            [&](const boost::shared_ptr<ICIMPropertyDecl>& declaration) {
                names.push_back(declaration->GetName(TContext()));
                return true;
            },
            TContext());
        return names;
    }
};

/// What one request of a lookup asks, whether the lookup goes on without its answer, and how many classes of
/// the chain are cached when it does not.
struct Step {
    const char* request;
    bool isNeeded;
    std::size_t cachedWithout;
};

const std::vector<Step> kOneNode = {
    {"0 GetClass F_D", true, 0}, {"0 GetClass F_C", true, 0},
    {"0 GetClass F_B", true, 0}, {"0 GetClass F_A", true, 0},   // the definitions, up the chain
    {"0 GetClass F_A", true, 0}, {"0 GetClass F_A", false, 4},  // a class's own members; its superclass
    {"0 GetClass F_B", true, 1}, {"0 GetClass F_B", false, 4},  //
    {"0 GetClass F_C", true, 2}, {"0 GetClass F_C", false, 4},  //
    {"0 GetClass F_D", true, 3}, {"0 GetClass F_D", false, 4},
};

const Names kChain = {"0 F_A", "1 F_B", "2 F_C", "3 F_D"};

/// The requests of `steps`, those up to the `last`.
Names RequestsUpTo(const std::vector<Step>& steps, std::size_t last) {
    Names requests;
    for (std::size_t i = 0; i < last; ++i) {
        requests.emplace_back(steps[i].request);
    }
    return requests;
}

/// What a lookup of F_D asks one node when the first `cached` classes of the chain are there.
Names RequestsWith(std::size_t cached) {
    Names requests;
    for (std::size_t i = 4; i > cached; --i) {
        requests.push_back("0 GetClass F_" + std::string(1, "ABCD"[i - 1]));
    }
    for (std::size_t i = cached; i < 4; ++i) {
        requests.insert(requests.end(), 2, "0 GetClass F_" + std::string(1, "ABCD"[i]));
    }
    return requests;
}

TEST_F(FailingRequestsTest, AnyOneRefusedCostsTheClassesFromThereDownAndTheNextLookupAsksForThoseAlone) {
    for (std::size_t nth = 1; nth <= kOneNode.size(); ++nth) {
        SCOPED_TRACE("request " + std::to_string(nth));
        const Step& step = kOneNode[nth - 1];
        FakeNodes nodes;
        DefineChain(nodes);
        const auto nameSpace = ConnectedTo(nodes);
        nodes.Fail(nth, kRefusal);
        const auto found = nameSpace->GetClass("F_D", TContext());
        EXPECT_EQ(found != nullptr, !step.isNeeded);
        EXPECT_EQ(nodes.Requests(), RequestsUpTo(kOneNode, step.isNeeded ? nth : kOneNode.size()));
        const auto cached = static_cast<std::ptrdiff_t>(step.cachedWithout);
        EXPECT_EQ(TreeOf(*nameSpace), Names(kChain.begin(), kChain.begin() + cached));

        nodes.Clear();
        const auto again = nameSpace->GetClass("F_D", TContext());
        ASSERT_TRUE(again);
        EXPECT_EQ(nodes.Requests(), RequestsWith(step.cachedWithout));
        EXPECT_EQ(TreeOf(*nameSpace), kChain);
        EXPECT_EQ(PropertiesOf(again), (Names{"D", "NodeID"}));
        EXPECT_TRUE(pauses_.empty());
    }
}

TEST_F(FailingRequestsTest, AnyOneWhoseConnectionBreaksIsRepeatedAndCostsNothing) {
    for (std::size_t nth = 1; nth <= kOneNode.size(); ++nth) {
        SCOPED_TRACE("request " + std::to_string(nth));
        FakeNodes nodes;
        DefineChain(nodes);
        const auto nameSpace = ConnectedTo(nodes);
        pauses_.clear();
        nodes.Fail(nth, kBreak);
        EXPECT_TRUE(nameSpace->GetClass("F_D", TContext()));
        Names expected = RequestsUpTo(kOneNode, kOneNode.size());
        expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(nth), kOneNode[nth - 1].request);
        EXPECT_EQ(nodes.Requests(), expected);
        EXPECT_EQ(pauses_, std::vector<unsigned int>{5000});
        EXPECT_EQ(TreeOf(*nameSpace), kChain);
    }
}

TEST_F(FailingRequestsTest, AnyOneThatTimesOutTwiceIsLoggedAsATimeOutWhereTheClassNeededIt) {
    for (std::size_t nth = 1; nth <= kOneNode.size(); ++nth) {
        SCOPED_TRACE("request " + std::to_string(nth));
        const Step& step = kOneNode[nth - 1];
        FakeNodes nodes;
        DefineChain(nodes);
        const auto nameSpace = ConnectedTo(nodes);
        nodes.Fail(nth, kSilence, 2);
        EXPECT_EQ(nameSpace->GetClass("F_D", TContext()) != nullptr, !step.isNeeded);
        const std::string missed = std::string(step.request).substr(std::string("0 GetClass ").size());
        EXPECT_EQ(log_.LinesWith(kTimedOut).size(), step.isNeeded ? 1U : 0U);
        EXPECT_EQ(log_.LinesWith(kTimedOut + missed + " returned").size(), step.isNeeded ? 1U : 0U);
        EXPECT_EQ(TreeOf(*nameSpace).size(), step.cachedWithout);
    }
}

// On two nodes, the questions for a class's own members come in pairs, and one answer of each will do.
TEST_F(FailingRequestsTest, OneOfTwoNodesIsEnoughForAClassesOwnMembers) {
    const Names all = {"0 GetClass F_B", "0 GetClass F_A", "0 GetClass F_A", "1 GetClass F_A",
                       "0 GetClass F_A", "0 GetClass F_B", "1 GetClass F_B", "0 GetClass F_B"};
    for (const std::size_t nth : {3U, 4U, 6U, 7U}) {
        SCOPED_TRACE("request " + std::to_string(nth));
        FakeNodes nodes(2);
        nodes.Define(0, ClassOf("F_A", "", "OnNode0"));
        nodes.Define(1, ClassOf("F_A", "", "OnNode1"));
        nodes.Define(0, ClassOf("F_B", "F_A", "OnNode0"));
        nodes.Define(1, ClassOf("F_B", "F_A", "OnNode1"));
        const auto nameSpace = ConnectedTo(nodes);
        nodes.Fail(nth, kRefusal);
        const auto bottom = nameSpace->GetClass("F_B", TContext());
        ASSERT_TRUE(bottom);
        EXPECT_EQ(nodes.Requests(), all);
        const auto top = nameSpace->GetClass("F_A", TContext());
        EXPECT_EQ(nodes.Requests(), all) << "cached, with what the other node said";
        const std::string other = nth == 3 || nth == 6 ? "OnNode1" : "OnNode0";
        EXPECT_EQ(PropertiesOf(nth < 5 ? top : bottom), (Names{"NodeID", other}));
        EXPECT_EQ(PropertiesOf(nth < 5 ? bottom : top), (Names{"NodeID", "OnNode0", "OnNode1"}));
    }
}

TEST_F(FailingRequestsTest, OneNodesTimeOutAndTheOthersRefusalCountAsATimeOut) {
    for (const bool isFirst : {true, false}) {
        SCOPED_TRACE(isFirst);
        FakeNodes nodes(2);
        DefineChain(nodes);
        const auto nameSpace = ConnectedTo(nodes);
        // The definition; then each node's members, the one that is silent asked twice.
        nodes.Fail(2, kSilence, 2);
        nodes.Fail(4, kRefusal);
        if (!isFirst) {
            nodes.Fail(2, kRefusal);
            nodes.Fail(3, kSilence, 2);
        }
        EXPECT_FALSE(nameSpace->GetClass("F_A", TContext()));
        EXPECT_EQ(nodes.Requests().size(), 4U);
        EXPECT_EQ(log_.LinesWith(kTimedOut + "F_A").size(), 1U);
        EXPECT_TRUE(TreeOf(*nameSpace).empty());
    }
}

TEST_F(FailingRequestsTest, RefusalsByEveryNodeAreNoTimeOut) {
    FakeNodes nodes(2);
    DefineChain(nodes);
    const auto nameSpace = ConnectedTo(nodes);
    nodes.Fail(2, kRefusal, 2);
    EXPECT_FALSE(nameSpace->GetClass("F_A", TContext()));
    EXPECT_EQ(nodes.Requests(), (Names{"0 GetClass F_A", "0 GetClass F_A", "1 GetClass F_A"}));
    EXPECT_TRUE(log_.LinesWith(kTimedOut).empty());
}

}  // namespace
}  // namespace NQELVSK20
