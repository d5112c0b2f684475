#include "inmem/TClassLayout.h"

#include <gtest/gtest.h>

#include <new>

#include "inmem/TInmemInstance.h"
#include "tests/host/CountingClass.h"
#include "tests/host/Schema.h"
#include "tests/support/StatusOf.h"
#include "vskcore/THostSetup.h"

namespace NQELVSK20 {
namespace {

/// A chain as deep as the wanted test, its classes counting what they are asked: Level0 is the topmost.
class TClassLayoutChain : public ::testing::Test {
protected:
    boost::shared_ptr<CountingClass> AddLevel() {
        const boost::shared_ptr<ICIMClass> superclass = levels_.empty() ? nullptr : levels_.back();
        auto level =
            boost::make_shared<CountingClass>(union_, "Level" + std::to_string(levels_.size()), superclass);
        if (levels_.empty()) {
            level->superclassQuery = [this] { return root_; };
        }
        levels_.push_back(level);
        return level;
    }

    boost::shared_ptr<TInmemInstance> MakeInstance() {
        return boost::make_shared<TInmemInstance>(levels_.back(), 1);
    }

    void ResetCounts() {
        for (const auto& level : levels_) {
            level->superclassQueries = level->propertyWalks = level->propertyQueries = 0;
        }
    }

    boost::shared_ptr<TInmemUnion> union_ = MakeUnion();
    boost::shared_ptr<ICIMClass> root_ = union_->AllocateClass("<root>", nullptr, {});
    std::vector<boost::shared_ptr<CountingClass>> levels_;
};

TEST_F(TClassLayoutChain, IsNotAskedWhenAnInstanceIsMade) {
    AddLevel();
    const auto instance = MakeInstance();
    EXPECT_EQ(levels_[0]->Calls(), 0);
}

TEST_F(TClassLayoutChain, IsNotWalkedForAPropertyThatTheClassItselfDeclares) {
    AddLevel();
    AddProperty(AddLevel(), "Own");
    ResetCounts();
    MakeInstance()->SetPropertyValue("own", TCIMValue("x"), {});
    EXPECT_EQ(levels_[1]->superclassQueries, 0);
    EXPECT_EQ(levels_[1]->propertyWalks, 1);
    EXPECT_EQ(levels_[0]->Calls(), 0);
}

TEST_F(TClassLayoutChain, IsWalkedOnlyAsFarAsAPropertyIsDeclared) {
    AddProperty(AddLevel(), "Top");
    AddProperty(AddLevel(), "Middle");
    AddLevel();
    ResetCounts();
    MakeInstance()->SetPropertyValue("MIDDLE", TCIMValue("x"), {});
    EXPECT_EQ(levels_[2]->superclassQueries, 1);
    EXPECT_EQ(levels_[1]->superclassQueries, 0);
    EXPECT_EQ(levels_[0]->Calls(), 0);
}

TEST_F(TClassLayoutChain, IsReadOnceForAnyNumberOfInstances) {
    AddKey(AddLevel(), "Id");
    for (int level = 0; level < 4; ++level) {
        AddProperty(AddLevel(), "Property" + std::to_string(level));
    }
    ResetCounts();
    for (int number = 0; number < 1000; ++number) {
        const auto instance = MakeInstance();
        instance->SetPropertyValue("id", TCIMValue(number), {});
        instance->SetPropertyValue("property0", TCIMValue("x"), {});
        ASSERT_EQ(PathOf(*instance), "Level4.Id=" + std::to_string(number));
    }
    for (const auto& level : levels_) {
        EXPECT_EQ(level->superclassQueries, 1);
        EXPECT_EQ(level->propertyWalks, 1);
        EXPECT_LE(level->propertyQueries, 2);  // at most once for each name that was not found at once
    }
}

TEST_F(TClassLayoutChain, IsReadForEveryInstanceInAHostThatRemembersNothing) {
    AddKey(AddLevel(), "Id");
    AddLevel();
    ResetCounts();
    THostSetup::SetRemembersLayouts(false);
    for (int number = 0; number < 3; ++number) {
        const auto instance = MakeInstance();
        instance->SetPropertyValue("Id", TCIMValue(number), {});
        EXPECT_EQ(PathOf(*instance), "Level1.Id=" + std::to_string(number));
    }
    THostSetup::SetRemembersLayouts(true);
    for (const auto& level : levels_) {
        EXPECT_EQ(level->superclassQueries, 3);
        EXPECT_EQ(level->propertyWalks, 3);
    }
}

TEST_F(TClassLayoutChain, GivesPositionsInTheOrderInWhichPropertiesAreSought) {
    AddKey(AddLevel(), "Id");
    AddProperty(AddLevel(), "Own");
    AddProperty(levels_[1], "Another");
    const auto layout = TClassLayout::Of(levels_[1]);
    EXPECT_EQ(layout->PositionOf("own"), 0U);
    EXPECT_EQ(layout->PositionOf("ID"), 1U);
    EXPECT_EQ(layout->PositionOf("Another", 2), 2U);
    for (const std::size_t expected : {std::size_t{0}, std::size_t{1}, std::size_t{9}}) {
        EXPECT_EQ(layout->PositionOf("Id", expected), 1U);
    }
    EXPECT_EQ(layout->NameAt(0), "Own");
    EXPECT_EQ(layout->InNameOrder(), (std::vector<std::size_t>{2, 1, 0}));
    ASSERT_EQ(layout->Keys().size(), 1U);
    EXPECT_EQ(layout->Keys().front().position, 1U);
}

TEST_F(TClassLayoutChain, IsSharedByTheClassesThatHaveItInCommon) {
    const auto top = AddLevel();
    AddKey(top, "Id");
    const auto left = boost::make_shared<CountingClass>(union_, "Left", top);
    const auto right = boost::make_shared<CountingClass>(union_, "Right", top);
    ResetCounts();
    for (const auto& cimClass : {left, right}) {
        TClassLayout::Of(cimClass)->Keys();
        EXPECT_EQ(cimClass->superclassQueries, 1);
    }
    EXPECT_EQ(top->superclassQueries, 1);
    EXPECT_EQ(top->propertyWalks, 1);
}

TEST_F(TClassLayoutChain, GivesTheKeysOfAllLevelsInOneOrderWithoutRegardToCase) {
    AddKey(AddLevel(), "SystemName");
    const auto middle = AddLevel();
    AddKey(middle, "deviceID");
    AddKey(middle, "CreationClassName");
    AddKey(AddLevel(), "Zone");
    std::vector<std::string> names;
    for (const TClassLayout::TKey& key : TClassLayout::Of(levels_[2])->Keys()) {
        names.push_back(key.name);
    }
    EXPECT_EQ(names, (std::vector<std::string>{"CreationClassName", "deviceID", "SystemName", "Zone"}));
}

TEST_F(TClassLayoutChain, GivesAKeyThatIsDeclaredTwiceOnceAsTheNearerClassSpellsIt) {
    AddKey(AddLevel(), "DeviceID");
    AddKey(AddLevel(), "DEVICEID");
    const auto keys = TClassLayout::Of(levels_[1])->Keys();
    ASSERT_EQ(keys.size(), 1U);
    EXPECT_EQ(keys.front().name, "DEVICEID");
}

TEST_F(TClassLayoutChain, GoesOnAboveAClassWithoutMembers) {
    AddKey(AddLevel(), "Id");
    AddLevel();
    AddLevel();
    EXPECT_EQ(TClassLayout::Of(levels_[2])->Keys().size(), 1U);
    EXPECT_NE(TClassLayout::Of(levels_[2])->PositionOf("ID"), TClassLayout::kNowhere);
}

TEST_F(TClassLayoutChain, EndsBelowTheRootClass) {
    AddProperty(root_, "OfTheRoot");
    AddLevel();
    EXPECT_EQ(TClassLayout::Of(levels_[0])->PositionOf("OfTheRoot"), TClassLayout::kNowhere);
}

TEST_F(TClassLayoutChain, EndsWhereItLeadsBack) {
    AddKey(AddLevel(), "Id");
    AddLevel();
    AddLevel();
    levels_[0]->superclassQuery = [this] { return levels_[1]; };
    EXPECT_EQ(TClassLayout::Of(levels_[2])->Keys().size(), 1U);
    EXPECT_EQ(TClassLayout::Of(levels_[2])->PositionOf("Nowhere"), TClassLayout::kNowhere);
    EXPECT_EQ(TClassLayout::Of(levels_[1])->Keys().size(), 1U);
    levels_[0]->superclassQuery = nullptr;
}

TEST_F(TClassLayoutChain, EndsWhereItLeadsBackToWhatItHasInCommonWithAnother) {
    AddKey(AddLevel(), "Id");
    AddLevel();
    bool leadsBack = false;
    levels_[0]->superclassQuery = [this, &leadsBack]() -> boost::shared_ptr<ICIMClass> {
        return leadsBack ? levels_[1] : nullptr;
    };
    EXPECT_EQ(TClassLayout::Of(levels_[1])->Keys().size(), 1U);
    leadsBack = true;
    const auto sibling = boost::make_shared<CountingClass>(union_, "Sibling", levels_[0]);
    EXPECT_EQ(TClassLayout::Of(sibling)->Keys().size(), 1U);
    EXPECT_EQ(TClassLayout::Of(sibling)->PositionOf("Nowhere"), TClassLayout::kNowhere);
}

TEST_F(TClassLayoutChain, EndsAtAClassThatIsItsOwnSuperclass) {
    const auto only = AddLevel();
    const CountingClass* self = only.get();
    only->superclassQuery = [self] {
        return boost::const_pointer_cast<ICIMClass>(
            boost::static_pointer_cast<const ICIMClass>(self->shared_from_this()));
    };
    EXPECT_EQ(TClassLayout::Of(only)->PositionOf("Nowhere"), TClassLayout::kNowhere);
}

TEST_F(TClassLayoutChain, EndsWhereASuperclassCannotBeToldAndIsNotAskedAgainWhileInUse) {
    AddKey(AddLevel(), "Id");
    AddKey(AddLevel(), "Own");
    ResetCounts();
    levels_[1]->superclassQuery = []() -> boost::shared_ptr<ICIMClass> { throw 42; };
    const auto first = MakeInstance();
    first->SetPropertyValue("Own", TCIMValue("x"), {});
    EXPECT_EQ(PathOf(*first), "Level1.Own=\"x\"");
    const auto second = MakeInstance();
    EXPECT_EQ(StatusOf([&second] { second->SetPropertyValue("Id", TCIMValue("x"), {}); }), eVSKNotFound);
    EXPECT_EQ(PathOf(*second), "Level1");
    EXPECT_EQ(levels_[1]->superclassQueries, 1);
}

TEST_F(TClassLayoutChain, IsAskedAgainOnceNobodyUsesWhatAFailureLeft) {
    AddKey(AddLevel(), "Id");
    AddLevel();
    AddLevel();
    bool fails = true;
    levels_[1]->superclassQuery = [this, &fails]() -> boost::shared_ptr<ICIMClass> {
        return fails ? nullptr : levels_[0];
    };
    MakeInstance()->GetReference({});
    fails = false;
    const auto instance = MakeInstance();
    instance->SetPropertyValue("Id", TCIMValue("x"), {});
    EXPECT_EQ(PathOf(*instance), "Level2.Id=\"x\"");
    EXPECT_EQ(levels_[1]->superclassQueries, 2);
}

TEST_F(TClassLayoutChain, FindsPropertiesAndKeysThatWereAddedLater) {
    AddLevel();
    AddProperty(AddLevel(), "Early");
    const auto instance = MakeInstance();
    instance->SetPropertyValue("Early", TCIMValue("x"), {});
    EXPECT_EQ(PathOf(*instance), "Level1");
    AddProperty(levels_[0], "LateAbove");
    AddKey(levels_[1], "LateKey");
    instance->SetPropertyValue("LATEABOVE", TCIMValue("x"), {});
    instance->SetPropertyValue("LATEKEY", TCIMValue("y"), {});
    EXPECT_EQ(PathOf(*instance), "Level1.LateKey=\"y\"");
}

TEST_F(TClassLayoutChain, TakesAnEmptyDeclarationForNone) {
    AddLevel();
    const auto instance = MakeInstance();
    EXPECT_EQ(StatusOf([&] { instance->SetPropertyValue("DateTimeOfCollection", TCIMValue(1), {}); }),
              eVSKNotFound);
}

TEST_F(TClassLayoutChain, IsReadAnewForAnotherClassAtTheSameAddress) {
    alignas(CountingClass) unsigned char place[sizeof(CountingClass)];
    const auto makeThere = [this, &place] {
        return boost::shared_ptr<CountingClass>(new (place) CountingClass(union_, "Passing", root_),
                                                [](CountingClass* passing) { passing->~CountingClass(); });
    };
    auto cimClass = makeThere();
    AddProperty(cimClass, "First");
    const auto first = TClassLayout::Of(cimClass);
    ASSERT_NE(first->PositionOf("First"), TClassLayout::kNowhere);
    cimClass.reset();
    cimClass = makeThere();
    AddProperty(cimClass, "Second");
    const auto second = TClassLayout::Of(cimClass);
    EXPECT_NE(second, first);
    EXPECT_EQ(second->PositionOf("First"), TClassLayout::kNowhere);
    EXPECT_NE(second->PositionOf("Second"), TClassLayout::kNowhere);
    EXPECT_EQ(TClassLayout::Of(cimClass), second);
}

TEST_F(TClassLayoutChain, IsForgottenWhenAnotherClassIsUsedUnlessAnInstanceNeedsIt) {
    AddKey(AddLevel(), "Id");
    AddLevel();
    auto instance = MakeInstance();
    PathOf(*instance);
    const std::weak_ptr<TClassLayout> layout = TClassLayout::Of(levels_[1]);
    const auto useAnother = [this] {
        TClassLayout::Of(boost::make_shared<CountingClass>(union_, "Another", root_))->Keys();
    };
    useAnother();
    useAnother();
    EXPECT_FALSE(layout.expired());
    instance.reset();
    EXPECT_TRUE(layout.expired());
    PathOf(*MakeInstance());
    const std::weak_ptr<TClassLayout> unused = TClassLayout::Of(levels_[1]);
    useAnother();
    useAnother();
    EXPECT_TRUE(unused.expired());
}

TEST_F(TClassLayoutChain, IsReadAnewWhenASuperclassWasReplaced) {
    const auto makeTop = [this](const std::string& key) {
        auto top = boost::make_shared<CountingClass>(union_, "Top", root_);
        AddKey(top, key);
        return top;
    };
    boost::shared_ptr<CountingClass> top = makeTop("Id");
    AddLevel()->superclassQuery = [&top] { return top; };
    AddProperty(levels_[0], "Own");
    AddProperty(AddLevel(), "Lowest");
    const auto before = MakeInstance();
    before->SetPropertyValue("Id", TCIMValue("x"), {});
    EXPECT_EQ(PathOf(*before), "Level1.Id=\"x\"");

    top = makeTop("Name");
    const auto after = MakeInstance();
    after->SetPropertyValue("Name", TCIMValue("y"), {});
    EXPECT_EQ(PathOf(*after), "Level1.Name=\"y\"");
    EXPECT_EQ(StatusOf([&after] { after->SetPropertyValue("Id", TCIMValue("x"), {}); }), eVSKNotFound);
    EXPECT_EQ(PathOf(*before), "Level1.Id=\"x\"");

    ResetCounts();
    EXPECT_EQ(PathOf(*MakeInstance()), "Level1");
    EXPECT_EQ(levels_[1]->Calls(), 0);
    levels_[0]->superclassQuery = nullptr;
}

TEST_F(TClassLayoutChain, DoesNotKeepItsClassesAlive) {
    AddKey(AddLevel(), "Id");
    AddLevel();
    TClassLayout::Of(levels_[1])->Keys();
    const boost::weak_ptr<CountingClass> top = levels_[0];
    const boost::weak_ptr<CountingClass> bottom = levels_[1];
    levels_.clear();
    EXPECT_TRUE(bottom.expired());
    EXPECT_TRUE(top.expired());
}

}  // namespace
}  // namespace NQELVSK20
