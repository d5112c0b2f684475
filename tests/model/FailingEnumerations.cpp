// What becomes of an enumeration when one node's request fails: what it delivers, what is kept, and what the
// next question asks.

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMQualifier.h>

#include <algorithm>

#include "tests/model/ModelTest.h"
#include "tests/support/FakeNodes.h"
#include "vskcore/ICIMInstance.h"

namespace NQELVSK20 {
namespace {

using Pegasus::CIMName;
using Pegasus::CIMValue;

/// Two nodes with an instance each of a class N_Fan.
class FailingEnumerationsTest : public ModelTest {
protected:
    FailingEnumerationsTest() : nodes_(2) {
        Pegasus::CIMClass definition{CIMName("N_Fan")};
        Pegasus::CIMProperty id(CIMName("Id"), CIMValue(Pegasus::String::EMPTY));
        id.addQualifier(Pegasus::CIMQualifier(CIMName("Key"), CIMValue(Pegasus::Boolean(true))));
        definition.addProperty(id);
        nodes_.Define(definition);
        nodes_.Add(0, Fan("left"));
        nodes_.Add(1, Fan("right"));
    }

    void SetUp() override {
        nameSpace_ = MakeNamespace();
        nameSpace_->connect(nodes_.Hosts(), Names(2), Names(2));
        class_ = GetClass(nameSpace_, "N_Fan");
        ASSERT_TRUE(class_);
        InstancesOf(class_);  // the host asks for a class's keys once, when it first forms a path
        nodes_.Clear();
        log_.Clear();
    }

    static Pegasus::CIMInstance Fan(const char* id) {
        const CIMValue value{Pegasus::String(id)};
        Pegasus::CIMInstance fan{CIMName("N_Fan")};
        fan.addProperty(Pegasus::CIMProperty(CIMName("Id"), value));
        Pegasus::Array<Pegasus::CIMKeyBinding> keys;
        keys.append(
            Pegasus::CIMKeyBinding(CIMName("Id"), Pegasus::String(id), Pegasus::CIMKeyBinding::STRING));
        fan.setPath(Pegasus::CIMObjectPath(Pegasus::String::EMPTY, Pegasus::CIMNamespaceName(),
                                           CIMName("N_Fan"), keys));
        return fan;
    }

    FakeNodes nodes_;
    Namespace nameSpace_;
    Class class_;
    const Names all_ = {"left", "right"};
    const Names asked_ = {"0 EnumerateInstances N_Fan", "1 EnumerateInstances N_Fan"};
};

TEST_F(FailingEnumerationsTest, TheOtherNodesInstancesAreDeliveredAndTheNextEnumerationAsksBothAgain) {
    ASSERT_EQ(TextsOf(InstancesOf(class_), "Id"), all_);
    for (std::size_t nth = 1; nth <= 2; ++nth) {
        SCOPED_TRACE("request " + std::to_string(nth));
        nodes_.Clear();
        nodes_.Fail(nth, Pegasus::CIMException(Pegasus::CIM_ERR_FAILED));
        EXPECT_EQ(TextsOf(InstancesOf(class_), "Id"), Names{all_[2 - nth]});
        EXPECT_EQ(nodes_.Requests(), asked_);

        nodes_.Clear();
        EXPECT_EQ(TextsOf(InstancesOf(class_), "Id"), all_);
        EXPECT_EQ(nodes_.Requests(), asked_);
    }
}

TEST_F(FailingEnumerationsTest, AnInstanceThatWasMissedIsAskedForAndOneThatWasReadIsNot) {
    const Names paths = PathsOf(InstancesOf(class_));
    ASSERT_EQ(paths.size(), 2U);
    for (std::size_t nth = 1; nth <= 2; ++nth) {
        SCOPED_TRACE("request " + std::to_string(nth));
        nodes_.Clear();
        nodes_.Fail(nth, Pegasus::CIMException(Pegasus::CIM_ERR_FAILED));
        InstancesOf(class_);
        nodes_.Clear();
        EXPECT_TRUE(class_->FindInstance(Reference(paths[2 - nth]), TContext()));
        EXPECT_TRUE(nodes_.Requests().empty()) << "collected";
        EXPECT_TRUE(class_->FindInstance(Reference(paths[nth - 1]), TContext()));
        EXPECT_EQ(nodes_.Requests(), asked_) << "missed";
    }
}

TEST_F(FailingEnumerationsTest, ANodeWhoseConnectionBreaksOnceIsAskedOnceMoreAndNothingIsMissing) {
    for (std::size_t nth = 1; nth <= 2; ++nth) {
        SCOPED_TRACE("request " + std::to_string(nth));
        nodes_.Clear();
        nodes_.Fail(nth, Pegasus::CannotConnectException(Pegasus::String("gone")));
        EXPECT_EQ(TextsOf(InstancesOf(class_), "Id"), all_);
        Names asked = asked_;
        asked.insert(asked.begin(), 1, asked_[nth - 1]);
        std::sort(asked.begin(), asked.end());
        EXPECT_EQ(nodes_.Requests(), asked);
    }
    EXPECT_EQ(pauses_, std::vector<unsigned int>(2, 5000));
}

TEST_F(FailingEnumerationsTest, ANodeThatStaysSilentIsAskedTwiceAndTheOtherIsAskedAllTheSame) {
    nodes_.Fail(1, Pegasus::ConnectionTimeoutException(), 2);
    EXPECT_EQ(TextsOf(InstancesOf(class_), "Id"), Names{"right"});
    EXPECT_EQ(nodes_.Requests(), (Names{asked_[0], asked_[0], asked_[1]}));
    EXPECT_TRUE(pauses_.empty());
}

}  // namespace
}  // namespace NQELVSK20
