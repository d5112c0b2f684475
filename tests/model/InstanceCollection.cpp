#include "model/TCimHTTPInstance.h"

#include <gtest/gtest.h>

#include "inmem/TInmemInstance.h"

namespace NQELVSK20 {
namespace {

using Instance = boost::shared_ptr<ICIMInstance>;

Instance Make() {
    return Instance(new TInmemInstance(boost::shared_ptr<ICIMClass>(), 1));
}

class InstanceCollectionTest : public ::testing::Test {
protected:
    InstanceCollection collection_;
    const Instance a_ = Make();
    const Instance b_ = Make();
};

TEST_F(InstanceCollectionTest, KeepsTheFirstInstanceOfAPath) {
    collection_.Insert("X_Fan.Id=1", a_);
    collection_.Insert("X_Fan.Id=1", b_);
    EXPECT_EQ(collection_.Find("X_Fan.Id=1"), a_);
    EXPECT_EQ(collection_.InPathOrder(), InstanceCollection::Instances{a_});
}

TEST_F(InstanceCollectionTest, ListsInTheOrderOfThePathTexts) {
    collection_.Insert("X_Fan.Id=2", b_);
    collection_.Insert("X_Fan.Id=10", a_);
    EXPECT_EQ(collection_.InPathOrder(), (InstanceCollection::Instances{a_, b_}));
}

TEST_F(InstanceCollectionTest, ErasesByTheExactPath) {
    collection_.Insert("X_Fan.Id=1", a_);
    collection_.Erase("x_fan.id=1");
    EXPECT_EQ(collection_.Find("X_Fan.Id=1"), a_);
    collection_.Erase("X_Fan.Id=1");
    EXPECT_FALSE(collection_.Find("X_Fan.Id=1"));
}

TEST_F(InstanceCollectionTest, FindsAnInstanceByAnotherSpellingOfItsPath) {
    collection_.Insert("X_Fan.Id=1,Zone=\"a\"", a_);
    EXPECT_EQ(collection_.Find("root/cimv2:x_fan.ZONE=\"a\",ID=1"), a_);
    EXPECT_FALSE(collection_.Find("X_Fan.Id=2,Zone=\"a\""));
}

TEST_F(InstanceCollectionTest, AMalformedPathIsFoundByItsExactTextOnly) {
    collection_.Insert("X_Fan.Id=\"open", a_);
    EXPECT_EQ(collection_.Find("X_Fan.Id=\"open"), a_);
    EXPECT_FALSE(collection_.Find("x_fan.Id=\"open"));
}

TEST_F(InstanceCollectionTest, ChangesShowInTheNextSearch) {
    collection_.Insert("X_Fan.Id=1", a_);
    EXPECT_EQ(collection_.Find("x_fan.id=1"), a_);
    collection_.Insert("X_Fan.Id=2", b_);
    EXPECT_EQ(collection_.Find("x_fan.id=2"), b_);
    collection_.Erase("X_Fan.Id=1");
    EXPECT_FALSE(collection_.Find("x_fan.id=1"));
    collection_.Clear();
    EXPECT_FALSE(collection_.Find("x_fan.id=2"));
    EXPECT_TRUE(collection_.InPathOrder().empty());
}

}  // namespace
}  // namespace NQELVSK20
