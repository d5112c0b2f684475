#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>

#include "qelc/TQELCNamespace.h"
#include "tests/model/ModelTest.h"
#include "tests/support/TCimHTTPNamespaceTestAccess.h"
#include "vskcore/ICIMQualifierDecl.h"

namespace NQELVSK20 {
namespace {

using Type = TCIMValue::TCIMType;

class TCimHTTPClassQueries : public ModelTest {
protected:
    static void AddQualifier(const Namespace& nameSpace, ICIMNamedElement& element, const std::string& name,
                             const TCIMValue& value) {
        const auto declaration = nameSpace->AllocateQualifierDecl(name, TCIMValue(Type(Type::eBoolean), 0),
                                                                  ICIMQualifierDecl::eScopeAny,
                                                                  ICIMQualifierDecl::eFlavorNone, TContext());
        element.AddQualifier(element.AllocateQualifier(declaration, value, TContext()), TContext());
    }

    static Names KeysOf(const Class& cimClass) {
        Names names;
        cimClass->EnumerateKeyPropertyNames(
            [&](const std::string& name) {
                names.push_back(name);
                return true;
            },
            TContext());
        return names;
    }

    static Names ReferencedBy(const Class& cimClass) {
        Names names;
        cimClass->EnumerateReferencedClasses(
            [&](const boost::shared_ptr<ICIMClass>& referenced) {
                names.push_back(referenced->GetName(TContext()));
                return true;
            },
            TContext());
        return names;
    }

    static Names ReferencedBy(const Class& cimClass, const std::string& name) {
        Names names;
        cimClass->EnumerateReferencedClassesByName(
            name,
            [&](const boost::shared_ptr<ICIMClass>& referenced) {
                names.push_back(referenced->GetName(TContext()));
                return true;
            },
            TContext());
        return names;
    }
};

TEST_F(TCimHTTPClassQueries, TheNameIsAsGivenAndTheNamespaceTheOneThatAllocatedTheClass) {
    Namespace nameSpace = MakeUninitNamespace();
    const Class fan = Allocate(nameSpace, "x_FAN");
    EXPECT_EQ(fan->GetName(TContext()), "x_FAN");
    EXPECT_EQ(fan->GetNamespace(TContext()), nameSpace);
    nameSpace.reset();
    EXPECT_FALSE(fan->GetNamespace(TContext()));
}

TEST_F(TCimHTTPClassQueries, ClassesCompareByTheirNamesByteForByte) {
    const Namespace nameSpace = MakeUninitNamespace();
    const Class fan = Allocate(nameSpace, "X_Fan");
    const Class same = Allocate(nameSpace, "X_Fan");
    const Class lower = Allocate(nameSpace, "x_fan");
    EXPECT_TRUE(*fan == *same);
    EXPECT_FALSE(*fan == *lower);
    EXPECT_TRUE(*fan < *lower);
    EXPECT_FALSE(*lower < *fan);
    EXPECT_FALSE(*fan < *same);
}

TEST_F(TCimHTTPClassQueries, AssigningAClassChangesNothing) {
    const Namespace nameSpace = MakeUninitNamespace();
    const Class fan = Allocate(nameSpace, "X_Fan");
    const Class other = Allocate(nameSpace, "X_Other");
    ICIMClass& assigned = static_cast<ICIMClass&>(*fan) = *other;
    EXPECT_EQ(&assigned, fan.get());
    *fan = *other;
    EXPECT_EQ(fan->GetName(TContext()), "X_Fan");
}

TEST_F(TCimHTTPClassQueries, AssociationAndAbstractNeedATrueQualifier) {
    const Namespace nameSpace = MakeUninitNamespace();
    const Class plain = Allocate(nameSpace, "X_Plain");
    EXPECT_FALSE(plain->IsAssociation(TContext()));
    EXPECT_FALSE(plain->IsAbstract(TContext()));

    const Class both = Allocate(nameSpace, "X_Both");
    AddQualifier(nameSpace, *both, "Association", TCIMValue(true));
    AddQualifier(nameSpace, *both, "Abstract", TCIMValue(true));
    EXPECT_TRUE(both->IsAssociation(TContext()));
    EXPECT_TRUE(both->IsAbstract(TContext()));

    const Class neither = Allocate(nameSpace, "X_Neither");
    AddQualifier(nameSpace, *neither, "ASSOCIATION", TCIMValue(Type(Type::eBoolean), 0));
    AddQualifier(nameSpace, *neither, "ABSTRACT", TCIMValue(false));
    EXPECT_FALSE(neither->IsAssociation(TContext()));
    EXPECT_FALSE(neither->IsAbstract(TContext()));
}

TEST_F(TCimHTTPClassQueries, AMissingPropertyIsRefusedButForOneSpelledExactly) {
    const Class fan = Allocate(MakeUninitNamespace(), "X_Fan");
    EXPECT_FALSE(fan->GetPropertyDecl("DateTimeOfCollection", TContext()));
    for (const char* name : {"datetimeofcollection", "DateTimeOfcollection", "Speed", ""}) {
        EXPECT_EQ(StatusOf([&] { fan->GetPropertyDecl(name, TContext()); }), eVSKNotFound) << name;
    }
    EXPECT_EQ(StatusOf([&] { fan->GetPropertyDecl("two words", TContext()); }), eVSKInvalidName);
    EXPECT_EQ(fan->GetPropertyDecl("NODEID", TContext())->GetName(TContext()), "NodeID");
}

TEST_F(TCimHTTPClassQueries, APresentDateTimeOfCollectionIsFoundUnderAnySpelling) {
    const Class fan = Allocate(MakeUninitNamespace(), "X_Fan");
    fan->AllocatePropertyDecl("DateTimeOfCollection", TCIMValue(), TContext())->Commit(TContext());
    EXPECT_TRUE(fan->GetPropertyDecl("DateTimeOfCollection", TContext()));
    EXPECT_TRUE(fan->GetPropertyDecl("datetimeofcollection", TContext()));
}

TEST_F(TCimHTTPClassQueries, AMissingMethodOrQualifierIsAnEmptyPointer) {
    const Class fan = Allocate(MakeUninitNamespace(), "X_Fan");
    EXPECT_FALSE(fan->GetMethodDecl("Stop", TContext()));
    EXPECT_FALSE(fan->GetQualifier("Note", TContext()));
}

TEST_F(TCimHTTPClassQueries, MembersComeInTheOrderOfTheirNormalisedNames) {
    const Namespace nameSpace = MakeUninitNamespace();
    const Class fan = Allocate(nameSpace, "X_Fan");
    for (const char* name : {"Zone", "alarm", "Speed", "_x"}) {
        fan->AllocatePropertyDecl(name, TCIMValue(), TContext())->Commit(TContext());
        fan->AllocateMethodDecl(name, Type::eUint32, TContext())->Commit(TContext());
        AddQualifier(nameSpace, *fan, name, TCIMValue(true));
    }
    EXPECT_EQ(PropertiesOf(fan), (Names{"_x", "alarm", "NodeID", "Speed", "Zone"}));
    EXPECT_EQ(MethodsOf(fan), (Names{"_x", "alarm", "Speed", "Zone"}));
    EXPECT_EQ(QualifiersOf(*fan), (Names{"_x", "alarm", "Speed", "Zone"}));
}

TEST_F(TCimHTTPClassQueries, EnumerationsStopAtTheFirstFalse) {
    const Namespace nameSpace = MakeUninitNamespace();
    const Class fan = Allocate(nameSpace, "X_Fan");
    for (const char* name : {"A", "B", "C"}) {
        const auto property = fan->AllocatePropertyDecl(name, TCIMValue(), TContext());
        property->Commit(TContext());
        AddQualifier(nameSpace, *property, "KEY", TCIMValue(true));
        fan->AllocateMethodDecl(name, Type::eUint32, TContext())->Commit(TContext());
        AddQualifier(nameSpace, *fan, name, TCIMValue(true));
        fan->AddSubclass(Allocate(nameSpace, name), TContext());
    }
    int calls = 0;
    const auto second = [&](const auto&) { return ++calls % 2 == 1; };
    fan->EnumeratePropertyDecls(second, TContext());
    EXPECT_EQ(calls, 2);
    fan->EnumerateMethodDecls(second, TContext());
    EXPECT_EQ(calls, 4);
    fan->EnumerateQualifiers(second, TContext());
    EXPECT_EQ(calls, 6);
    fan->EnumerateSubclasses(second, false, TContext());
    EXPECT_EQ(calls, 8);
    fan->EnumerateKeyPropertyNames(second, TContext());
    EXPECT_EQ(calls, 10);
}

TEST_F(TCimHTTPClassQueries, ACallbackMayChangeTheClass) {
    const Class fan = Allocate(MakeUninitNamespace(), "X_Fan");
    fan->AllocatePropertyDecl("PortType", TCIMValue(), TContext())->Commit(TContext());
    int calls = 0;
    fan->EnumeratePropertyDecls(
        [&](const boost::shared_ptr<ICIMPropertyDecl>&) {
            ++calls;
            fan->AllocatePropertyDecl("PortType", TCIMValue(), TContext())->Commit(TContext());
            return true;
        },
        TContext());
    EXPECT_EQ(calls, 2);
}

// Nothing enters member entries into a class. Naming a private member in an explicit instantiation is
// allowed, and so a test can.
struct MemberEntriesTag {
    using Entries = std::map<std::string, boost::shared_ptr<ICIMNamedElement>>;
    using Member = Entries TCimHTTPClass::*;
    friend Member MemberNamedBy(MemberEntriesTag);
};

template <class TTag, typename TTag::Member kMember>
struct TakenFromClass {
    friend typename TTag::Member MemberNamedBy(TTag) { return kMember; }
};

template struct TakenFromClass<MemberEntriesTag, &TCimHTTPClass::memberEntries_>;

class TCimHTTPClassMemberEntries : public TCimHTTPClassQueries {
protected:
    TCimHTTPClassMemberEntries() {
        auto& entries = (*class_).*MemberNamedBy(MemberEntriesTag());
        entries["speed"] = speed_;
        entries["alarm"] = alarm_;
    }

    Namespace namespace_ = MakeUninitNamespace();
    Class class_ = Allocate(namespace_, "X_Fan");
    boost::shared_ptr<ICIMNamedElement> speed_ =
        class_->AllocatePropertyDecl("Speed", TCIMValue(), TContext());
    boost::shared_ptr<ICIMNamedElement> alarm_ =
        class_->AllocatePropertyDecl("Alarm", TCIMValue(), TContext());
};

TEST_F(TCimHTTPClassMemberEntries, AreFoundUnderAnySpelling) {
    EXPECT_EQ(class_->GetMemberEntry("speed", TContext()), speed_);
    EXPECT_EQ(class_->GetMemberEntry("SPEED", TContext()), speed_);
    EXPECT_EQ(class_->GetMemberEntry("Alarm", TContext()), alarm_);
    EXPECT_EQ(StatusOf([&] { class_->GetMemberEntry("Zone", TContext()); }), eVSKNotFound);
    EXPECT_EQ(StatusOf([&] { class_->GetMemberEntry("two words", TContext()); }), eVSKInvalidName);
}

TEST_F(TCimHTTPClassMemberEntries, AreAllVisitedInOrderWhateverTheCallbackSays) {
    std::vector<boost::shared_ptr<ICIMNamedElement>> visited;
    class_->EnumerateMemberEntries(
        [&](const boost::shared_ptr<ICIMNamedElement>& entry) {
            visited.push_back(entry);
            return false;
        },
        TContext());
    EXPECT_EQ(visited, (std::vector<boost::shared_ptr<ICIMNamedElement>>{alarm_, speed_}));
}

TEST_F(TCimHTTPClassQueries, NoMemberEntriesExist) {
    const Class fan = Allocate(MakeUninitNamespace(), "X_Fan");
    EXPECT_EQ(StatusOf([&] { fan->GetMemberEntry("NodeID", TContext()); }), eVSKNotFound);
    int calls = 0;
    fan->EnumerateMemberEntries([&](const boost::shared_ptr<ICIMNamedElement>&) { return ++calls > 0; },
                                TContext());
    EXPECT_EQ(calls, 0);
}

TEST_F(TCimHTTPClassQueries, KeysAreTheClasssOwnPropertiesWithATrueKeyQualifier) {
    const Namespace nameSpace = MakeUninitNamespace();
    const Class fan = Allocate(nameSpace, "X_Fan");
    const auto add = [&](const char* name, const TCIMValue& isKey) {
        const auto property = fan->AllocatePropertyDecl(name, TCIMValue(), TContext());
        property->Commit(TContext());
        AddQualifier(nameSpace, *property, "KEY", isKey);
    };
    add("SystemName", TCIMValue(true));
    add("DeviceID", TCIMValue(true));
    add("NotThis", TCIMValue(false));
    add("NorThis", TCIMValue(Type(Type::eBoolean), 0));
    EXPECT_EQ(KeysOf(fan), (Names{"DeviceID", "SystemName"}));
}

TEST_F(TCimHTTPClassQueries, OperationsThatTheClassDoesNotOfferSaySo) {
    const Class fan = Allocate(MakeUninitNamespace(), "X_Fan");
    log_.Clear();
    bool found = true;
    EXPECT_EQ(StatusOf([&] { fan->Reserved4(TContext()); }), eVSKNotSupported);
    EXPECT_EQ(StatusOf([&] { fan->Reserved5(TContext()); }), eVSKNotSupported);
    EXPECT_EQ(StatusOf([&] { fan->Reserved21("NodeID", TContext()); }), eVSKNotSupported);
    EXPECT_EQ(StatusOf([&] { fan->FindQualifier("Note", found, TContext()); }), eVSKNotOffered);
    EXPECT_TRUE(fan->Reserved28("NodeID", TContext()).IsNull());
    EXPECT_FALSE(fan->Reserved32(TContext()));
    fan->Reserved33(TContext());
    fan->Validate(TContext());
    EXPECT_EQ(log_.Lines(), Lines{});
}

TEST_F(TCimHTTPClassQueries, OperationsThatDropTheirArgumentReleaseIt) {
    const Namespace nameSpace = MakeUninitNamespace();
    const Class fan = Allocate(nameSpace, "X_Fan");
    const Class other = Allocate(nameSpace, "X_Other");
    const auto instance = fan->CreateInstance(TContext());
    const auto property = fan->AllocatePropertyDecl("Speed", TCIMValue(), TContext());
    const auto method = fan->AllocateMethodDecl("Stop", Type::eUint32, TContext());
    fan->Reserved35(other, TContext());
    fan->Reserved38(instance, TContext());
    fan->Reserved39(instance, TContext());
    fan->Reserved41(property, TContext());
    fan->Reserved42(method, TContext());
    fan->Reserved43(method, TContext());
    EXPECT_EQ(other.use_count(), 1);
    EXPECT_EQ(instance.use_count(), 1);
    EXPECT_EQ(property.use_count(), 1);
    EXPECT_EQ(method.use_count(), 1);
    EXPECT_EQ(SubclassesOf(*fan), Names{});
    EXPECT_EQ(PropertiesOf(fan), Names{"NodeID"});
    EXPECT_EQ(MethodsOf(fan), Names{});
}

// A chain of four classes, one beside it, and one that stands alone.
class TCimHTTPClassTree : public TCimHTTPClassQueries {
protected:
    TCimHTTPClassTree() : machine_(Nodes(1)) {
        Declare(machine_, {ClassXml("X_Top", "", KeyXml("Id", "string")), ClassXml("X_Upper", "X_Top"),
                           ClassXml("X_Lower", "X_Upper"), ClassXml("X_Leaf", "X_Lower"),
                           ClassXml("X_Beside", "X_Upper"), ClassXml("X_Alone", "")});
        namespace_ = Connected(machine_);
        for (const char* name : {"X_Leaf", "X_Beside", "X_Alone"}) {
            classes_.push_back(GetClass(namespace_, name));
        }
    }

    Names RootClasses() {
        Names names;
        namespace_->EnumerateRootClasses(
            [&](const boost::shared_ptr<ICIMClass>& each) {
                names.push_back(each->GetName(TContext()));
                return true;
            },
            TContext());
        return names;
    }

    /// The server fails to tell of X_Made what its superclass is.
    static cimom::Fault NotTelling() {
        cimom::Fault fault;
        fault.kind = cimom::Fault::Kind::CimError;
        fault.code = 1;
        fault.className = "X_Made";
        return fault;
    }

    TestMachine machine_;
    Namespace namespace_;
    std::vector<Class> classes_;
};

TEST_F(TCimHTTPClassTree, AgreesWithTheSchema) {
    EXPECT_EQ(RootClasses(), (Names{"X_Top", "X_Upper", "X_Lower", "X_Leaf", "X_Beside", "X_Alone"}));
    EXPECT_EQ(SubclassesOf(*GetClass(namespace_, "<root>")), (Names{"X_Top", "X_Alone"}));
    EXPECT_EQ(SubclassesOf(*GetClass(namespace_, "X_Upper")), (Names{"X_Lower", "X_Beside"}));
    EXPECT_EQ(SubclassesOf(*GetClass(namespace_, "X_Upper"), true), (Names{"X_Lower", "X_Leaf", "X_Beside"}));
    EXPECT_EQ(SubclassesOf(*GetClass(namespace_, "X_Leaf"), true), Names{});
}

TEST_F(TCimHTTPClassTree, AClassIsASubclassOfItselfAndOfEveryAncestorAndOfNothingElse) {
    const Class leaf = GetClass(namespace_, "X_Leaf");
    const auto isSubclassOf = [&](const char* name) {
        return leaf->IsSubclassOf(GetClass(namespace_, name), TContext());
    };
    EXPECT_TRUE(isSubclassOf("X_Leaf"));
    EXPECT_TRUE(isSubclassOf("X_Lower"));
    EXPECT_TRUE(isSubclassOf("X_Upper"));
    EXPECT_TRUE(isSubclassOf("X_Top"));
    EXPECT_FALSE(isSubclassOf("X_Beside"));
    EXPECT_FALSE(isSubclassOf("X_Alone"));
    EXPECT_FALSE(isSubclassOf("<root>"));
    EXPECT_FALSE(GetClass(namespace_, "X_Top")->IsSubclassOf(leaf, TContext()));
    EXPECT_FALSE(leaf->IsSubclassOf(Allocate(MakeUninitNamespace(), "x_top"), TContext()));
    EXPECT_TRUE(leaf->IsSubclassOf(Allocate(MakeUninitNamespace(), "X_Top"), TContext()));
}

TEST_F(TCimHTTPClassTree, TheSuperclassIsAskedOfTheServer) {
    machine_.ClearRequests();
    EXPECT_EQ(GetClass(namespace_, "X_Leaf")->GetSuperClass(TContext()), GetClass(namespace_, "X_Lower"));
    EXPECT_EQ(GetClass(namespace_, "X_Top")->GetSuperClass(TContext()), GetClass(namespace_, "<root>"));
    EXPECT_EQ(machine_.Requests(), (Names{"0 GetClass X_Leaf", "0 GetClass X_Top"}));
}

TEST_F(TCimHTTPClassTree, WhenTheServerCannotTellTheSuperclassIsTheOneThatWasRegistered) {
    const Class leaf = GetClass(namespace_, "X_Leaf");
    machine_.Kill(0);
    EXPECT_EQ(leaf->GetSuperClass(TContext()), GetClass(namespace_, "X_Lower"));
}

TEST_F(TCimHTTPClassTree, WithoutAConnectionThereIsNoSuperclassAndNoRequest) {
    const Class leaf = GetClass(namespace_, "X_Leaf");
    namespace_->disconnect();
    machine_.ClearRequests();
    EXPECT_FALSE(leaf->GetSuperClass(TContext()));
    EXPECT_EQ(machine_.Requests(), Names{});
}

TEST_F(TCimHTTPClassTree, TheRootHasNoSuperclassAndNoServerIsAskedForOne) {
    const Class root = GetClass(namespace_, "<root>");
    machine_.ClearRequests();
    log_.Clear();
    EXPECT_FALSE(root->GetSuperClass(TContext()));
    EXPECT_EQ(machine_.Requests(), Names{});
    EXPECT_EQ(log_.Lines(), Lines{}) << "nor was it tried";
}

TEST_F(TCimHTTPClassTree, NoClassOfANamespaceWithoutARootIsTopLevel) {
    const Namespace nameSpace(new TCimHTTPNamespace(false, "root/cimv2"));  // not initialised
    nameSpace->SetUpcallNamespace(common_, TContext());
    EXPECT_FALSE(Allocate(nameSpace, "X_Top")->IsTopLevel(TContext()));
}

TEST_F(TCimHTTPClassTree, TopLevelMeansTheRootItselfWhileConnectedAndBelowTheRootOtherwise) {
    const Class root = GetClass(namespace_, "<root>");
    const Class top = GetClass(namespace_, "X_Top");
    const Class leaf = GetClass(namespace_, "X_Leaf");
    EXPECT_TRUE(root->IsTopLevel(TContext()));
    EXPECT_FALSE(top->IsTopLevel(TContext()));
    EXPECT_FALSE(leaf->IsTopLevel(TContext()));
    namespace_->disconnect();
    EXPECT_FALSE(root->IsTopLevel(TContext()));
    EXPECT_TRUE(top->IsTopLevel(TContext()));
    EXPECT_FALSE(leaf->IsTopLevel(TContext()));
}

TEST_F(TCimHTTPClassTree, AFalseEndsItsOwnLevelOnly) {
    Names names;
    const auto stopAtLeaf = [&](const boost::shared_ptr<ICIMClass>& each) {
        names.push_back(each->GetName(TContext()));
        return names.back() != "X_Lower";
    };
    GetClass(namespace_, "X_Top")->EnumerateSubclasses(stopAtLeaf, true, TContext());
    EXPECT_EQ(names, (Names{"X_Upper", "X_Lower"}));

    names.clear();
    namespace_->EnumerateRootClasses(stopAtLeaf, TContext());
    EXPECT_EQ(names, (Names{"X_Top", "X_Upper", "X_Lower", "X_Alone"}));
}

TEST_F(TCimHTTPClassTree, ACallbackThatThrowsForOneSubclassKeepsNoOtherFromBeingVisited) {
    Names names;
    GetClass(namespace_, "X_Top")
        ->EnumerateSubclasses(
            [&](const boost::shared_ptr<ICIMClass>& each) {
                names.push_back(each->GetName(TContext()));
                if (names.back() == "X_Lower") {
                    throw std::runtime_error("not this one");
                }
                return true;
            },
            true, TContext());
    EXPECT_EQ(names, (Names{"X_Upper", "X_Lower", "X_Beside"}));
}

TEST_F(TCimHTTPClassTree, AClassWhoseSuperclassTheServerDoesNotTellIsCommittedBelowTheRoot) {
    Declare(machine_, {ClassXml("X_Made", "X_Top")});
    const Class made = Allocate(namespace_, "X_Made");
    machine_.Server().inject(NotTelling());
    made->Commit(TContext());
    EXPECT_EQ(GetClass(namespace_, "X_Made"), made);
    EXPECT_EQ(SubclassesOf(*GetClass(namespace_, "<root>")), (Names{"X_Top", "X_Alone", "X_Made"}));
}

TEST_F(TCimHTTPClassTree, AClassWhoseSuperclassTheServerDoesNotTellIsCommittedBelowTheOneGiven) {
    Declare(machine_, {ClassXml("X_Made", "X_Alone")});
    const Class made = boost::dynamic_pointer_cast<TCimHTTPClass>(
        namespace_->AllocateClass("X_Made", GetClass(namespace_, "X_Top"), TContext()));
    EXPECT_TRUE(made->IsSubclassOf(GetClass(namespace_, "X_Top"), TContext()));
    const Names before = SubclassesOf(*GetClass(namespace_, "X_Top"));
    EXPECT_EQ(std::count(before.begin(), before.end(), "X_Made"), 0) << "not before it is committed";
    machine_.Server().inject(NotTelling());
    made->Commit(TContext());
    const Names after = SubclassesOf(*GetClass(namespace_, "X_Top"));
    EXPECT_EQ(std::count(after.begin(), after.end(), "X_Made"), 1);
    EXPECT_EQ(SubclassesOf(*GetClass(namespace_, "<root>")), (Names{"X_Top", "X_Alone"}));
}

TEST_F(TCimHTTPClassTree, TheServersSuperclassCountsMoreThanTheOneGiven) {
    Declare(machine_, {ClassXml("X_Made", "X_Alone")});
    const Class made = boost::dynamic_pointer_cast<TCimHTTPClass>(
        namespace_->AllocateClass("X_Made", GetClass(namespace_, "X_Top"), TContext()));
    made->Commit(TContext());
    EXPECT_EQ(SubclassesOf(*GetClass(namespace_, "X_Alone")), Names{"X_Made"});
    const Names top = SubclassesOf(*GetClass(namespace_, "X_Top"));
    EXPECT_EQ(std::count(top.begin(), top.end(), "X_Made"), 0);
}

TEST_F(TCimHTTPClassTree, ASuperclassThatCannotBeHadLeavesTheOneGiven) {
    Declare(machine_, {ClassXml("X_Lost", ""), ClassXml("X_Made", "X_Lost")});
    const Class made = boost::dynamic_pointer_cast<TCimHTTPClass>(
        namespace_->AllocateClass("X_Made", GetClass(namespace_, "X_Alone"), TContext()));
    cimom::Fault lost = NotTelling();
    lost.className = "X_Lost";
    machine_.Server().inject(lost);
    made->Commit(TContext());
    EXPECT_EQ(SubclassesOf(*GetClass(namespace_, "X_Alone")), Names{"X_Made"});
}

TEST_F(TCimHTTPClassTree, AClassThatIsAttachedElsewhereLeavesItsFormerSuperclass) {
    const Class alone = GetClass(namespace_, "X_Alone");
    GetClass(namespace_, "X_Top")->AddSubclass(alone, TContext());
    EXPECT_EQ(SubclassesOf(*GetClass(namespace_, "<root>")), Names{"X_Top"});
    EXPECT_TRUE(alone->IsSubclassOf(GetClass(namespace_, "X_Top"), TContext()));
}

TEST_F(TCimHTTPClassTree, AGivenSuperclassThatDerivesFromTheClassIsLeftOutOfAccount) {
    const Class top = GetClass(namespace_, "X_Top");
    top->SuggestSuperclass(GetClass(namespace_, "X_Leaf"));
    EXPECT_FALSE(top->IsSubclassOf(GetClass(namespace_, "X_Leaf"), TContext()));
    EXPECT_EQ(top->DeclaredType("NoSuchProperty"), TCIMValue::TCIMType::eUnknown) << "the chain has an end";
}

TEST_F(TCimHTTPClassTree, ASecondClassOfANameIsRefusedAndTheTreeStays) {
    log_.Clear();
    const Class second = Allocate(namespace_, "X_Leaf");
    log_.Clear();
    EXPECT_EQ(StatusOf([&] { second->Commit(TContext()); }), eVSKAlreadyExists);
    EXPECT_EQ(log_.Lines(), (Lines{{3, "TCimHTTPNamespace: class X_Leaf already defined"}}));
    EXPECT_EQ(GetClass(namespace_, "X_Leaf"), classes_[0]);
}

TEST_F(TCimHTTPClassQueries, ARedefinedClassTakesTheOldOnesPlaceInTheTree) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Top", ""), ClassXml("X_Upper", "X_Top"), ClassXml("X_Leaf", "X_Upper"),
                      ClassXml("X_Last", "X_Top")});
    const Namespace nameSpace = Connected(machine, "root/cimv2", true);
    const Class leaf = GetClass(nameSpace, "X_Leaf");
    const Class last = GetClass(nameSpace, "X_Last");
    const Class upper = Allocate(nameSpace, "X_Upper");
    upper->Commit(TContext());
    EXPECT_EQ(GetClass(nameSpace, "X_Upper"), upper);
    EXPECT_EQ(SubclassesOf(*GetClass(nameSpace, "X_Top"), true), (Names{"X_Upper", "X_Leaf", "X_Last"}));
    EXPECT_TRUE(leaf->IsSubclassOf(GetClass(nameSpace, "X_Top"), TContext()));
}

TEST_F(TCimHTTPClassQueries, ARedefinedClassLeavesTheSuperclassOfBefore) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Top", ""), ClassXml("X_Other", ""), ClassXml("X_Leaf", "X_Top")});
    const Namespace nameSpace = Connected(machine, "root/cimv2", true);
    const Class old = GetClass(nameSpace, "X_Leaf");
    const Class other = GetClass(nameSpace, "X_Other");
    const Class leaf =
        boost::dynamic_pointer_cast<TCimHTTPClass>(nameSpace->AllocateClass("X_Leaf", other, TContext()));
    cimom::Fault fault;
    fault.kind = cimom::Fault::Kind::CimError;
    fault.code = 1;
    machine.Server().inject(fault);
    leaf->Commit(TContext());
    EXPECT_EQ(SubclassesOf(*other), Names{"X_Leaf"});
    EXPECT_EQ(SubclassesOf(*GetClass(nameSpace, "X_Top")), Names{});
}

TEST_F(TCimHTTPClassQueries, OfSeveralNodesTheFirstIsAskedForTheSuperclass) {
    TestMachine machine(Nodes(2));
    DeclareOn(machine, 0, {ClassXml("X_Top", ""), ClassXml("X_Leaf", "X_Top")});
    DeclareOn(machine, 1, {ClassXml("X_Other", ""), ClassXml("X_Leaf", "X_Other")});
    const Namespace nameSpace = Connected(machine);
    const Class leaf = GetClass(nameSpace, "X_Leaf");
    machine.ClearRequests();
    EXPECT_EQ(leaf->GetSuperClass(TContext())->GetName(TContext()), "X_Top");
    EXPECT_EQ(machine.Requests(), Names{"0 GetClass X_Leaf"});
}

TEST_F(TCimHTTPClassQueries, ReferencedClassesAreThoseThatReferencePropertiesPointAt) {
    TestMachine machine(Nodes(1));
    Declare(machine,
            {ClassXml("X_Fan", "", KeyXml("Id", "string")), ClassXml("X_Zone", "", KeyXml("Id", "string")),
             ClassXml("X_Cools", "",
                      QualifierXml("Association") + ReferenceKeyXml("Fan", "X_Fan") +
                          PropertyXml("Note", "string") + ReferenceKeyXml("Zone", "X_Zone"))});
    const Namespace nameSpace = Connected(machine);
    const Class cools = GetClass(nameSpace, "X_Cools");
    machine.ClearRequests();
    EXPECT_EQ(ReferencedBy(cools), (Names{"X_Fan", "X_Zone"}));
    EXPECT_EQ(ReferencedBy(cools, "x_ZONE"), Names{"X_Zone"});
    EXPECT_EQ(ReferencedBy(cools, "X_Cools"), Names{});
    EXPECT_EQ(ReferencedBy(cools, ""), Names{});
    int calls = 0;
    cools->EnumerateReferencedClasses([&](const boost::shared_ptr<ICIMClass>&) { return ++calls == 0; },
                                      TContext());
    EXPECT_EQ(calls, 1);
}

TEST_F(TCimHTTPClassQueries, ReferencedClassesAreNotFetchedBeforeTheyAreAskedFor) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Fan", "", KeyXml("Id", "string")),
                      ClassXml("X_Cools", "", ReferenceKeyXml("Fan", "X_Fan"))});
    const Namespace nameSpace = Connected(machine);
    const Class cools = GetClass(nameSpace, "X_Cools");
    EXPECT_EQ(machine.Requests(), (Names{"0 GetClass X_Cools", "0 GetClass X_Cools", "0 GetClass X_Cools"}));
}

TEST_F(TCimHTTPClassQueries, AReferencedClassThatADefaultValueHoldsComesFirst) {
    TestMachine machine(Nodes(1));
    Declare(machine,
            {ClassXml("X_Fan", "", KeyXml("Id", "string")), ClassXml("X_Zone", "", KeyXml("Id", "string")),
             ClassXml("X_Cools", "", ReferenceKeyXml("Fan", "X_Fan"))});
    const Namespace nameSpace = Connected(machine);
    const Class cools = GetClass(nameSpace, "X_Cools");
    TCIMValue value(Type(Type::eReference), 0);
    value.SetReferencedClass(GetClass(nameSpace, "X_Zone"));
    cools->GetPropertyDecl("Fan", TContext())->SetValue(value, TContext());
    EXPECT_EQ(ReferencedBy(cools), Names{"X_Zone"});
}

TEST_F(TCimHTTPClassQueries, AReferencedClassThatCannotBeHadIsLeftOut) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Fan", "", KeyXml("Id", "string")),
                      ClassXml("X_Cools", "",
                               ReferenceKeyXml("Absent", "X_Absent") + ReferenceKeyXml("Fan", "X_Fan"))});
    EXPECT_EQ(ReferencedBy(GetClass(Connected(machine), "X_Cools")), Names{"X_Fan"});
}

}  // namespace
}  // namespace NQELVSK20
