#include "model/TCimHTTPInstance.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/model/ModelTest.h"
#include "tests/support/schema/TInmemUnion.h"

namespace NQELVSK20 {
namespace {

class TCimHTTPInstanceTest : public ModelTest {
protected:
    TCimHTTPInstanceTest() : machine_(Nodes(1)) {
        Declare(machine_, {ClassXml("X_Fan", "", KeyXml("Id", "string"))});
        class_ = GetClass(Connected(machine_), "X_Fan");
    }

    Instance Make(const std::string& id) {
        const Instance instance = class_->CreateInstance(TContext());
        instance->SetPropertyValue("Id", TCIMValue(id), TContext());
        return instance;
    }

    Instance Collected(const std::string& path) { return class_->FindInstance(Reference(path), TContext()); }

    TestMachine machine_;
    Class class_;
};

TEST_F(TCimHTTPInstanceTest, IsCreatedEmpty) {
    for (const Instance& instance :
         {class_->CreateInstance(TContext()), class_->AllocateInstance(TContext())}) {
        ASSERT_TRUE(boost::dynamic_pointer_cast<TCimHTTPInstance>(instance));
        EXPECT_EQ(instance->GetClass(TContext()), class_);
        EXPECT_EQ(instance->GetPegasusNSPStr(TContext()), "");
        int properties = 0;
        instance->EnumerateProperties(
            [&](const boost::shared_ptr<ICIMProperty>&) { return ++properties > 0; }, TContext());
        EXPECT_EQ(properties, 0);
    }
}

TEST_F(TCimHTTPInstanceTest, JoinsItsClassByItsCommit) {
    const Instance instance = Make("a");
    instance->Commit(TContext());
    EXPECT_EQ(Collected("X_Fan.Id=\"a\""), instance);
}

TEST_F(TCimHTTPInstanceTest, GivesWayToOneOfTheSamePathThatIsThere) {
    const Instance first = Make("a");
    first->Commit(TContext());
    Make("a")->Commit(TContext());
    EXPECT_EQ(Collected("X_Fan.Id=\"a\""), first);
}

TEST_F(TCimHTTPInstanceTest, IsTakenOutByItsPath) {
    Make("a")->Commit(TContext());
    class_->RemoveInstance(Make("a"), TContext());
    EXPECT_FALSE(Collected("X_Fan.Id=\"a\""));
}

class InvalidInstance : public TCimHTTPInstance {
public:
    using TCimHTTPInstance::TCimHTTPInstance;
    using TCimHTTPInstance::operator=;
    void Validate(TContext) override { throw TVSKException(eVSKNotSupported); }
};

TEST_F(TCimHTTPInstanceTest, ThatIsNotValidIsNotStored) {
    const Instance invalid(new InvalidInstance(class_, boost::shared_ptr<ICIMClass>()));
    invalid->SetPropertyValue("Id", TCIMValue("a"), TContext());
    EXPECT_EQ(StatusOf([&] { invalid->Commit(TContext()); }), eVSKNotSupported);
    EXPECT_FALSE(Collected("X_Fan.Id=\"a\""));
}

TEST_F(TCimHTTPInstanceTest, HasOneReferenceUnderBothNames) {
    const Instance instance = Make("a");
    EXPECT_EQ(instance->GetReference(TContext()).GetPath(), "X_Fan.Id=\"a\"");
    EXPECT_EQ(instance->GetInstanceReference(TContext()).GetPath(), "X_Fan.Id=\"a\"");
}

class ForeignInstance : public ModelTest {};

TEST_F(ForeignInstance, OfAnotherKindOfClassCannotBeCommitted) {
    const auto foreign = union_->AllocateClass("X_Fan", boost::shared_ptr<ICIMClass>(), TContext());
    const Instance instance(new TCimHTTPInstance(foreign, boost::shared_ptr<ICIMClass>()));
#ifdef NDEBUG
    log_.Clear();
    instance->Commit(TContext());
    EXPECT_EQ(log_.Lines(), (Lines{{0, "TCimHTTPInstance::Commit: assertion failed: px != 0"}}));
#else
    EXPECT_DEATH(instance->Commit(TContext()), "px != 0");
#endif
}

}  // namespace
}  // namespace NQELVSK20
