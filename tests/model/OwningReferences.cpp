// A host whose references own their namespace.

#include <gtest/gtest.h>

#include "tests/model/ModelTest.h"
#include "vskcore/THostSetup.h"

namespace NQELVSK20 {
namespace {

class OwningReferences : public ModelTest {
protected:
    OwningReferences() : machine_(Nodes(1)) {
        THostSetup::SetReferencesOwnNamespace(true);
        Declare(machine_, {ClassXml("X_Fan", "", KeyXml("Id", "string")),
                           ClassXml("X_Cools", "",
                                    QualifierXml("Association") + ReferenceKeyXml("Antecedent", "X_Fan")),
                           InstanceXml("X_Cools", ReferenceXml("Antecedent", "X_Fan", "Id", "a"))});
        nameSpace_ = PluginTest::Connected(machine_);
        watched_ = nameSpace_;
        EXPECT_EQ(InstancesOf(GetClass(nameSpace_, "X_Cools")).size(), 1U);
    }

    TestMachine machine_;
    boost::shared_ptr<TCimHTTPNamespace> nameSpace_;
    boost::weak_ptr<TCimHTTPNamespace> watched_;
};

TEST_F(OwningReferences, DoNotKeepANamespaceThatTheHostDisconnected) {
    nameSpace_->disconnect();
    nameSpace_.reset();
    EXPECT_TRUE(watched_.expired());
}

TEST_F(OwningReferences, KeepANamespaceThatTheHostDidNotDisconnect) {
    nameSpace_.reset();
    ASSERT_FALSE(watched_.expired()) << "as the namespace's header says";
    watched_.lock()->DeInit();
    EXPECT_TRUE(watched_.expired());
}

}  // namespace
}  // namespace NQELVSK20
