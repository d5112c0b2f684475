#include "model/RemoteClassReader.h"

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMQualifier.h>
#include <Pegasus/Common/CIMValue.h>
#include <gtest/gtest.h>

#include <string>

#include "model/ClassMembers.h"
#include "model/ClassNamespace.h"
#include "tests/model/ElementTest.h"

namespace NQELVSK20 {
namespace {

using Pegasus::CIMFlavor;
using Pegasus::CIMValue;
using ReadType = TCIMValue::TCIMType;

// Definitions as they may come from the remote library, flavors among them that CIM-XML cannot say alone.
class RemoteClassReaderTest : public ElementTest {
protected:
    static Pegasus::CIMQualifier Qualifier(const char* name, const CIMValue& value,
                                           const CIMFlavor& flavor = CIMFlavor::DEFAULTS) {
        return Pegasus::CIMQualifier(Pegasus::CIMName(name), value, flavor);
    }

    RemoteClassReader Reader() { return {ClassNamespace::Behind(nameSpace_), class_, members_}; }

    void ReadQualifier(const Pegasus::CIMQualifier& qualifier) {
        Pegasus::CIMClass definition{Pegasus::CIMName("CIM_Fan")};
        definition.addQualifier(qualifier);
        Reader().Read(definition);
    }

    const TCIMValue& ClassQualifier(const char* name) const {
        return class_->GetQualifier(name, TContext())->GetValue(TContext());
    }

    boost::shared_ptr<ICIMQualifierDecl> Declaration(const char* name) const {
        return nameSpace_->GetQualifierDecl(name, TContext());
    }

    ClassMembers members_;
};

TEST_F(RemoteClassReaderTest, ADeclarationHasTheFlavorOfTheQualifierThatItWasFirstSeenWith) {
    ReadQualifier(Qualifier("Handed", CIMValue(Pegasus::String("a")), CIMFlavor::TOSUBCLASS));
    ReadQualifier(Qualifier("Spoken", CIMValue(Pegasus::String("a")), CIMFlavor::TRANSLATABLE));
    ReadQualifier(Qualifier("Open", CIMValue(Pegasus::String("a")), CIMFlavor::OVERRIDABLE));
    EXPECT_EQ(Declaration("Handed")->GetFlavor(TContext()), ICIMQualifierDecl::eFlavorToSubclass);
    EXPECT_EQ(Declaration("Spoken")->GetFlavor(TContext()), ICIMQualifierDecl::eFlavorTranslatable);
    EXPECT_EQ(Declaration("Open")->GetFlavor(TContext()), ICIMQualifierDecl::eFlavorNone);
    EXPECT_EQ(class_->GetQualifier("Open", TContext())->GetFlavor(TContext()),
              ICIMQualifierDecl::eFlavorEnableOverride);
}

TEST_F(RemoteClassReaderTest, ADeclarationIsNoArrayEvenIfTheQualifierIsOne) {
    Pegasus::Array<Pegasus::String> names;
    names.append("a");
    names.append("b");
    ReadQualifier(Qualifier("Names", CIMValue(names)));
    EXPECT_FALSE(Declaration("Names")->IsArray(TContext()));
    EXPECT_EQ(Declaration("Names")->GetType(TContext()), ReadType::eString);
    EXPECT_TRUE(Declaration("Names")->GetValue(TContext()).IsNull());
    EXPECT_TRUE(ClassQualifier("Names").IsArray());
    EXPECT_EQ(ClassQualifier("Names").ToString(10), "a,b");
}

TEST_F(RemoteClassReaderTest, ANullQualifierHasItsTypesZeroForAValue) {
    ReadQualifier(Qualifier("Note", CIMValue(Pegasus::CIMTYPE_STRING, false)));
    ReadQualifier(Qualifier("Association", CIMValue(Pegasus::CIMTYPE_BOOLEAN, false)));
    ReadQualifier(Qualifier("Rating", CIMValue(Pegasus::CIMTYPE_UINT16, false)));
    EXPECT_TRUE(Same(ClassQualifier("Note"), TCIMValue("")));
    EXPECT_TRUE(Same(ClassQualifier("Association"), TCIMValue(false)));
    EXPECT_TRUE(Same(ClassQualifier("Rating"), TCIMValue(static_cast<unsigned short>(0))));
    EXPECT_FALSE(class_->IsAssociation(TContext()));
}

TEST_F(RemoteClassReaderTest, TheNodePropertyEntersWithTheFirstDefinition) {
    const auto definitionWith = [](const char* property, const CIMValue& value) {
        Pegasus::CIMClass definition{Pegasus::CIMName("CIM_Fan")};
        definition.addProperty(Pegasus::CIMProperty(Pegasus::CIMName(property), value));
        return definition;
    };
    RemoteClassReader reader = Reader();
    reader.Read(definitionWith("Speed", CIMValue(Pegasus::Uint16(1))));
    reader.Read(definitionWith("NODEID", CIMValue(Pegasus::Uint8(1))));
    const auto node = members_.FindProperty("NodeID");
    ASSERT_TRUE(node);
    EXPECT_EQ(node->GetName(TContext()), "NodeID");
    EXPECT_EQ(node->GetType(TContext()), ReadType::eString);
}

}  // namespace
}  // namespace NQELVSK20
