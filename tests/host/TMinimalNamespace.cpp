#include "vskcore/TMinimalNamespace.h"

#include <gtest/gtest.h>

#include "qelc/TQELCNamespace.h"
#include "tests/support/StatusOf.h"
#include "vskcore/ICIMIndicationFilter.h"
#include "vskcore/ICIMSubscription.h"
#include "vskcore/INamespaceProvider.h"
#include "vskcore/IProvider.h"

namespace NQELVSK20 {
namespace {

class TMinimalNamespaceTest : public ::testing::Test {
protected:
    boost::shared_ptr<TQELCNamespace> namespace_{new TQELCNamespace};
};

TEST_F(TMinimalNamespaceTest, FindsNothing) {
    EXPECT_FALSE(namespace_->GetNamespaceProvider({}));
    EXPECT_FALSE(namespace_->GetClass("CIM_Fan", {}));
    EXPECT_FALSE(namespace_->GetQualifierDecl("KEY", {}));
    EXPECT_FALSE(namespace_->GetInstance(TCIMReference(nullptr, {}), {}));
}

TEST_F(TMinimalNamespaceTest, EnumeratesNothing) {
    int calls = 0;
    const auto count = [&calls](const auto&) {
        ++calls;
        return true;
    };
    namespace_->EnumerateRootClasses(count, {});
    namespace_->EnumerateProviders(count, {});
    namespace_->EnumerateQualifierDecls(count, {});
    namespace_->ClearInstances();
    EXPECT_EQ(calls, 0);
}

TEST_F(TMinimalNamespaceTest, RefusesWhatWouldChangeOrAllocateSomething) {
    const TCIMReference nothing(nullptr, {});
    std::string query;
    const std::vector<std::function<void()>> operations{
        [this] { namespace_->AddUnderlyingNamespace(namespace_, {}); },
        [this] { namespace_->AllocateClass("CIM_Fan", nullptr, {}); },
        [this] {
            namespace_->AllocateQualifierDecl("KEY", TCIMValue(false), ICIMQualifierDecl::eScopeAny,
                                              ICIMQualifierDecl::eFlavorNone, {});
        },
        [this] { namespace_->Subscribe(nullptr, {}, {}); },
        [this, &nothing] { namespace_->DeleteInstance(nothing, {}); },
        [this, &nothing] { namespace_->ModifyInstance(nothing, {}, {}); },
        [this, &query] { namespace_->ExecuteQuery({}, query, {}, {}); },
    };
    for (const auto& operation : operations) {
        EXPECT_EQ(StatusOf(operation), eVSKNotSupported);
    }
}

TEST_F(TMinimalNamespaceTest, KeepsItsUpcallNamespace) {
    EXPECT_FALSE(namespace_->GetUpcallNamespace());
    const boost::shared_ptr<TQELCNamespace> upcall(new TQELCNamespace);
    namespace_->SetUpcallNamespace(upcall, {});
    EXPECT_EQ(namespace_->GetUpcallNamespace(), upcall);
    namespace_->SetUpcallNamespace(nullptr, {});
    EXPECT_FALSE(namespace_->GetUpcallNamespace());
}

TEST_F(TMinimalNamespaceTest, IsNotCopiedByAssignment) {
    TQELCNamespace other;
    other.SetUpcallNamespace(namespace_, {});
    ICIMNamespace& source = other;
    static_cast<ICIMNamespace&>(*namespace_) = source;
    EXPECT_FALSE(namespace_->GetUpcallNamespace());
}

}  // namespace
}  // namespace NQELVSK20
