#include "vskcore/TCIMReference.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>
#include <utility>
#include <vector>

#include "vskcore/TCIMValue.h"
#include "vskcore/THostSetup.h"
#include "vskcore/TMinimalNamespace.h"

namespace NQELVSK20 {
namespace {

TCIMReference Reference(const std::string& path, const TContext& keys = {}) {
    TCIMReference reference(nullptr, keys);
    reference.SetPath(path);
    return reference;
}

TEST(TCIMReference, HasNoPathAtFirst) {
    EXPECT_EQ(TCIMReference(nullptr, {}).GetPath(), "");
    EXPECT_EQ(TCIMReference(nullptr, {}).GetClassName(), "");
    EXPECT_EQ(TCIMReference(nullptr, {{"k", TCIMValue(1)}}).GetPath(), "");
}

TEST(TCIMReference, KeepsAPathAsItIs) {
    for (const char* path : {"Class.k=1", "//host/ns:Class.k=\"a\\\"b\"", "root/cimv2:Class", "...", ""}) {
        EXPECT_EQ(Reference(path).GetPath(), path);
    }
}

TEST(TCIMReference, FindsTheClassNameInEveryFormOfAPath) {
    const std::vector<std::pair<const char*, const char*>> paths{
        {"Class", "Class"},
        {"Class.k=1", "Class"},
        {"Class.k=\"a:b.c\"", "Class"},
        {"Class.k=\"//host/ns:Other.k=\\\"1\\\"\"", "Class"},
        {"Class.a=\"x\",b=\"root/cimv2:Other\"", "Class"},
        {"Class=@", "Class"},
        {"root/cimv2:Class", "Class"},
        {"root/cimv2:Class.k=\"a:b\"", "Class"},
        {"root:Class.k=1", "Class"},
        {":Class.k=1", "Class"},
        {"//host/ns:Class.k=\"a:b.c\"", "Class"},
        {"//host.example.com:5989/root/cimv2:Class.k=1", "Class"},
        {"//192.168.0.1/root/cimv2:Class", "Class"},
        {"//[fe80::1]:5989/root/cimv2:Class.k=1", "Class"},
        {"//host/:Class.k=1", "Class"},
        {"//host:5989/Class", "Class"},
    };
    for (const auto& [path, name] : paths) {
        EXPECT_EQ(Reference(path).GetClassName(), name) << path;
    }
}

TEST(TCIMReference, HasNoClassNameWhereThePathNamesNone) {
    for (const char* path : {"", "//host", "//host.example.com", "root/cimv2",
                             "root/cimv2:", "//host/ns:", ".k=1", "=", "\"", ":", "//", "/"}) {
        EXPECT_EQ(Reference(path).GetClassName(), "") << path;
    }
}

TEST(TCIMReference, TakesTheClassNameOfTheLastPath) {
    TCIMReference reference = Reference("A.k=1");
    reference.SetPath("B.k=1");
    EXPECT_EQ(reference.GetClassName(), "B");
    reference.SetPath("");
    EXPECT_EQ(reference.GetClassName(), "");
}

TEST(TCIMReference, AddsItsKeysToAPathWithoutKeys) {
    const TContext keys{{"b", TCIMValue("x\"y\\z")}, {"A", TCIMValue(5U)}, {"c", TCIMValue(true)}};
    EXPECT_EQ(Reference("Class", keys).GetPath(), "Class.A=5,b=\"x\\\"y\\\\z\",c=TRUE");
    EXPECT_EQ(Reference("root/cimv2:Class", keys).GetPath(), "root/cimv2:Class.A=5,b=\"x\\\"y\\\\z\",c=TRUE");
    EXPECT_EQ(Reference("Class", keys).GetClassName(), "Class");
}

TEST(TCIMReference, LeavesAPathWithKeysOrWithoutAClassAlone) {
    const TContext keys{{"k", TCIMValue(1)}};
    EXPECT_EQ(Reference("Class.a=2", keys).GetPath(), "Class.a=2");
    EXPECT_EQ(Reference("", keys).GetPath(), "");
}

TEST(TCIMReference, WritesKeysAsObjectPathsDo) {
    TCIMReference target = Reference("Other.k=\"1\"");
    const std::vector<std::pair<TCIMValue, std::string>> values{
        {TCIMValue(false), "FALSE"},
        {TCIMValue(-3), "-3"},
        {TCIMValue(1.5), "1.5"},
        {TCIMValue(18446744073709551615ULL), "18446744073709551615"},
        {TCIMValue(""), "\"\""},
        {TCIMValue("7"), "\"7\""},
        {TCIMValue(TCIMDateTime("20240229120000.000000+060")), "\"20240229120000.000000+060\""},
        {TCIMValue(TCIMChar16("65")), "\"A\""},
        {TCIMValue(TCIMChar16("34")), "\"\\\"\""},
        {TCIMValue(TCIMChar16("228")), "\"\xC3\xA4\""},
        {TCIMValue(TCIMChar16("8364")), "\"\xE2\x82\xAC\""},
        {TCIMValue(target), "\"Other.k=\\\"1\\\"\""},
    };
    for (const auto& [value, text] : values) {
        EXPECT_EQ(Reference("C", {{"k", value}}).GetPath(), "C.k=" + text);
    }
}

TEST(TCIMReference, LeavesNullKeysOut) {
    EXPECT_EQ(Reference("C", {{"a", TCIMValue()}, {"b", TCIMValue(1)}}).GetPath(), "C.b=1");
    EXPECT_EQ(Reference("C", {{"a", TCIMValue()}}).GetPath(), "C");
}

TEST(TCIMReference, EqualsOneOfTheSamePath) {
    EXPECT_TRUE(Reference("A.k=1") == Reference("A.k=1"));
    EXPECT_FALSE(Reference("A.k=1") == Reference("a.k=1"));
}

class ReferencesNamespace : public ::testing::Test {
protected:
    ~ReferencesNamespace() override { THostSetup::SetReferencesOwnNamespace(false); }

    boost::shared_ptr<ICIMNamespace> nameSpace_ = boost::make_shared<TMinimalNamespace>();
    const boost::weak_ptr<ICIMNamespace> watched_ = nameSpace_;
};

TEST_F(ReferencesNamespace, IsTheOneThatTheReferenceWasMadeWithOrBoundToLast) {
    const boost::shared_ptr<ICIMNamespace> other = boost::make_shared<TMinimalNamespace>();
    TCIMReference reference(nameSpace_, {});
    EXPECT_EQ(reference.GetNamespace(), nameSpace_);
    reference.SetNamespace(other);
    EXPECT_EQ(reference.GetNamespace(), other);
    reference.SetNamespace(nullptr);
    EXPECT_FALSE(reference.GetNamespace());
}

TEST_F(ReferencesNamespace, StaysThroughAPathAndInsideAValue) {
    TCIMReference reference(nameSpace_, {});
    reference.SetPath("Class.k=1");
    const TCIMValue value(reference);
    EXPECT_EQ(TCIMValue(value).operator TCIMReference().GetNamespace(), nameSpace_);
}

TEST_F(ReferencesNamespace, IsNotKeptAliveByTheReference) {
    const TCIMReference reference(nameSpace_, {});
    nameSpace_.reset();
    EXPECT_TRUE(watched_.expired());
    EXPECT_FALSE(reference.GetNamespace());
}

TEST_F(ReferencesNamespace, IsKeptAliveByEveryCopyWhereReferencesOwnTheirs) {
    THostSetup::SetReferencesOwnNamespace(true);
    TCIMReference reference(nullptr, {});
    reference.SetNamespace(nameSpace_);
    TCIMValue copy(reference);
    reference.SetNamespace(nullptr);
    nameSpace_.reset();
    EXPECT_FALSE(watched_.expired());
    EXPECT_EQ(copy.operator TCIMReference().GetNamespace(), watched_.lock());
    copy = TCIMValue();
    EXPECT_TRUE(watched_.expired());
}

TEST_F(ReferencesNamespace, StaysAsItWasBoundWhenTheHostChangesItsMind) {
    const TCIMReference weak(nameSpace_, {});
    THostSetup::SetReferencesOwnNamespace(true);
    const TCIMReference owning(nameSpace_, {});
    THostSetup::SetReferencesOwnNamespace(false);
    EXPECT_EQ(nameSpace_.use_count(), 2);
}

}  // namespace
}  // namespace NQELVSK20
