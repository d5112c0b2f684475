// What declarations of properties, methods and parameters share, tested on each of the three.

#include "model/TNamedElement.h"

#include <type_traits>

#include "tests/model/ElementTest.h"
#include "vskcore/ICIMQualifierDecl.h"

namespace NQELVSK20 {
namespace {

using Names = std::vector<std::string>;

/// A kind of element: its class, the host's interface of it, and what its log lines call it.
struct Property {
    using Element = TCimHTTPPropertyDecl;
    using Interface = ICIMPropertyDecl;
    static constexpr const char* kClass = "TCimHTTPPropertyDecl";
};
struct Method {
    using Element = TCimHTTPMethodDecl;
    using Interface = ICIMMethodDecl;
    static constexpr const char* kClass = "TCimHTTPMethodDecl";
};
struct Parameter {
    using Element = TCimHTTPParameterDecl;
    using Interface = ICIMParameterDecl;
    static constexpr const char* kClass = "TCimHTTPParameterDecl";
};

using Kinds = ::testing::Types<Property, Method, Parameter>;

template <class TKind>
class NamedElementTest : public ElementTest {
protected:
    using Element = typename TKind::Element;
    using Interface = typename TKind::Interface;

    boost::shared_ptr<Element> Make(const std::string& name) const {
        if constexpr (std::is_same_v<Element, TCimHTTPPropertyDecl>) {
            return MakeProperty(name);
        } else if constexpr (std::is_same_v<Element, TCimHTTPMethodDecl>) {
            return MakeMethod(name);
        } else {
            return MakeParameter(name);
        }
    }

    /// A qualifier for the element, of a declaration of its own.
    boost::shared_ptr<ICIMQualifier> Qualifier(const std::string& name, const TCIMValue& value,
                                               unsigned int flavor = 0) const {
        return element_->AllocateQualifier(LooseDeclaration(name, flavor), value, TContext());
    }

    Names QualifierNames() const {
        Names names;
        element_->EnumerateQualifiers(
            [&](boost::shared_ptr<ICIMQualifier> qualifier) {
                names.push_back(qualifier->GetName(TContext()));
                return true;
            },
            TContext());
        return names;
    }

    boost::shared_ptr<Element> element_ = Make("Speed");
};

struct KindName {
    template <class T>
    static std::string GetName(int) {
        return T::kClass;
    }
};

TYPED_TEST_SUITE(NamedElementTest, Kinds, KindName);

TYPED_TEST(NamedElementTest, KeepsTheSpellingOfItsName) {
    EXPECT_EQ(this->element_->GetName(TContext()), "Speed");
}

TYPED_TEST(NamedElementTest, AllocatesAQualifierFromADeclarationOfTheNamespaceWithoutAddingIt) {
    const auto declaration = this->Declare("Key", TCIMValue(false), 2);
    const auto qualifier = this->element_->AllocateQualifier("KEY", TCIMValue(true), TContext());
    EXPECT_EQ(qualifier->GetQualifierDecl(TContext()), declaration);
    EXPECT_EQ(qualifier->GetNamespace(TContext()), this->nameSpace_);
    EXPECT_TRUE(this->Same(qualifier->GetValue(TContext()), TCIMValue(true)));
    EXPECT_EQ(qualifier->GetFlavor(TContext()), 2u);
    EXPECT_EQ(this->QualifierNames(), Names());
}

TYPED_TEST(NamedElementTest, RefusesToAllocateAQualifierThatTheNamespaceDoesNotDeclare) {
    EXPECT_EQ(StatusOf([&] { this->element_->AllocateQualifier("Key", TCIMValue(true), TContext()); }),
              eVSKNotFound);
    EXPECT_TRUE(this->log_.Lines().empty());
}

TYPED_TEST(NamedElementTest, AllocatesAQualifierFromADeclarationWithoutAddingIt) {
    const auto declaration = this->LooseDeclaration("Key", 4);
    const auto qualifier = this->element_->AllocateQualifier(declaration, TCIMValue(true), TContext());
    EXPECT_EQ(qualifier->GetQualifierDecl(TContext()), declaration);
    EXPECT_EQ(qualifier->GetNamespace(TContext()), this->nameSpace_);
    EXPECT_EQ(qualifier->GetFlavor(TContext()), 4u);
    EXPECT_EQ(this->QualifierNames(), Names());
}

TYPED_TEST(NamedElementTest, GetsAllocatedQualifiersByTheirCommit) {
    const auto qualifier = this->Qualifier("Key", TCIMValue(true));
    qualifier->Commit(TContext());
    EXPECT_EQ(this->element_->GetQualifier("Key", TContext()), qualifier);
}

TYPED_TEST(NamedElementTest, TakesTheSameQualifierTwiceAsOne) {
    const auto first = this->Qualifier("MaxLen", TCIMValue(5u), 2);
    this->element_->AddQualifier(first, TContext());
    this->element_->AddQualifier(this->Qualifier("MAXLEN", TCIMValue(5u), 2), TContext());
    EXPECT_EQ(this->QualifierNames(), Names{"MaxLen"});
    EXPECT_EQ(this->element_->GetQualifier("maxlen", TContext()), first);
}

TYPED_TEST(NamedElementTest, ReplacesAQualifierThatMayBeOverridden) {
    this->element_->AddQualifier(this->Qualifier("MaxLen", TCIMValue(5u), 1), TContext());
    const auto second = this->Qualifier("MaxLen", TCIMValue("text"), 0);
    this->element_->AddQualifier(second, TContext());
    EXPECT_EQ(this->element_->GetQualifier("MaxLen", TContext()), second);
}

TYPED_TEST(NamedElementTest, RefusesAConflictingQualifierAndKeepsTheOldOne) {
    const auto first = this->Qualifier("MaxLen", TCIMValue(5u), 6);
    this->element_->AddQualifier(first, TContext());
    const auto add = [&](const TCIMValue& value, unsigned int flavor) {
        return StatusOf(
            [&] { this->element_->AddQualifier(this->Qualifier("MaxLen", value, flavor), TContext()); });
    };
    EXPECT_EQ(add(TCIMValue(6u), 6), eVSKQualifierConflict);
    EXPECT_EQ(add(TCIMValue(5u), 4), eVSKQualifierConflict);
    EXPECT_EQ(this->element_->GetQualifier("MaxLen", TContext()), first);
    EXPECT_TRUE(this->log_.Lines().empty());
}

TYPED_TEST(NamedElementTest, FindsAQualifierInAnyLetterCase) {
    const auto qualifier = this->Qualifier("MaxLen", TCIMValue(5u));
    this->element_->AddQualifier(qualifier, TContext());
    bool found = false;
    EXPECT_EQ(this->element_->FindQualifier("MAXLEN", found, TContext()), qualifier);
    EXPECT_TRUE(found);
}

TYPED_TEST(NamedElementTest, FindsNoAbsentQualifier) {
    bool found = true;
    EXPECT_FALSE(this->element_->FindQualifier("MaxLen", found, TContext()));
    EXPECT_FALSE(found);
}

TYPED_TEST(NamedElementTest, RefusesToGetAnAbsentQualifierAndLogsNothing) {
    EXPECT_EQ(StatusOf([&] { this->element_->GetQualifier("MaxLen", TContext()); }), eVSKNotFound);
    EXPECT_TRUE(this->log_.Lines().empty());
}

TYPED_TEST(NamedElementTest, EnumeratesQualifiersInTheOrderOfNormalisedNamesUntilFalse) {
    for (const char* name : {"Units", "abstract", "KEY"}) {
        this->element_->AddQualifier(this->Qualifier(name, TCIMValue(true)), TContext());
    }
    EXPECT_EQ(this->QualifierNames(), (Names{"abstract", "KEY", "Units"}));

    int calls = 0;
    this->element_->EnumerateQualifiers([&](boost::shared_ptr<ICIMQualifier>) { return ++calls < 2; },
                                        TContext());
    EXPECT_EQ(calls, 2);
}

TYPED_TEST(NamedElementTest, ComparesByNameWithoutRegardToCase) {
    EXPECT_TRUE(*this->element_ == *this->Make("SPEED"));
    EXPECT_FALSE(*this->element_ == *this->Make("Speed2"));
    EXPECT_TRUE(*this->element_ < *this->Make("sPEEDs"));
    EXPECT_FALSE(*this->element_ < *this->Make("Acceleration"));
    EXPECT_FALSE(*this->element_ < *this->Make("SPEED"));
}

TYPED_TEST(NamedElementTest, IsNotChangedByAssignment) {
    const auto qualifier = this->Qualifier("Key", TCIMValue(true));
    this->element_->AddQualifier(qualifier, TContext());
    const auto source = this->Make("Other");
    auto& asInterface = static_cast<typename TestFixture::Interface&>(*this->element_);

    EXPECT_EQ(&(*this->element_ = *source), this->element_.get());
    EXPECT_EQ(&(asInterface = *source), &asInterface);

    EXPECT_EQ(this->element_->GetName(TContext()), "Speed");
    EXPECT_EQ(this->element_->GetQualifier("Key", TContext()), qualifier);
}

TYPED_TEST(NamedElementTest, AcceptsAnyCimNameAndRefusesOthers) {
    this->element_->Validate(TContext());
    EXPECT_TRUE(this->log_.Lines().empty());
    EXPECT_EQ(StatusOf([&] { this->Make("no-name")->Validate(TContext()); }), eVSKInvalidName);
}

TYPED_TEST(NamedElementTest, CannotAllocateQualifiersOnceItsClassIsGone) {
    const auto declaration = this->LooseDeclaration("Key");
    this->class_.reset();
    ExpectMissingPointer(this->log_, std::string(TypeParam::kClass) + "::AllocateQualifier",
                         [&] { this->element_->AllocateQualifier(declaration, TCIMValue(1), TContext()); });
}

}  // namespace
}  // namespace NQELVSK20
