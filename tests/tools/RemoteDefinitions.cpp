#include "tools/machine/RemoteDefinitions.h"

#include <Pegasus/Common/CIMMethod.h>
#include <Pegasus/Common/CIMParameter.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMQualifier.h>
#include <Pegasus/Common/CIMValue.h>
#include <gmock/gmock.h>

#include "tools/values/ValueText.h"

namespace tool {

namespace {

using Pegasus::CIMName;
using Pegasus::CIMValue;
using Pegasus::String;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

Pegasus::CIMQualifier qualifier(const char* name, const CIMValue& value = CIMValue(Pegasus::Boolean(true))) {
    return Pegasus::CIMQualifier(CIMName(name), value);
}

CIMValue texts(const std::vector<const char*>& all) {
    Pegasus::Array<String> array;
    for (const char* text : all) {
        array.append(String(text));
    }
    return CIMValue(array);
}

Pegasus::CIMProperty property(const char* name, Pegasus::CIMType type, bool isArray = false) {
    return Pegasus::CIMProperty(CIMName(name), CIMValue(type, isArray));
}

Pegasus::CIMMethod reset(Pegasus::CIMType ofParameter = Pegasus::CIMTYPE_UINT16) {
    Pegasus::CIMMethod method(CIMName("Reset"), Pegasus::CIMTYPE_UINT32);
    method.addQualifier(qualifier("ValueMap", texts({"0", "1"})));
    method.addQualifier(qualifier("Description", CIMValue(String("Resets."))));
    Pegasus::CIMParameter parameter(CIMName("Kind"), ofParameter);
    parameter.addQualifier(qualifier("In"));
    parameter.addQualifier(qualifier("MaxLen", CIMValue(Pegasus::Uint32(8))));
    method.addParameter(parameter);
    return method;
}

/// A fan's definition, for a node to be different from.
class Fan {
public:
    explicit Fan(const char* superclass = "CIM_Device")
        : fan_(CIMName("CIM_Fan"), *superclass == '\0' ? CIMName() : CIMName(superclass)) {}

    Fan& with(Pegasus::CIMProperty&& added) {
        fan_.addProperty(added);
        return *this;
    }
    Fan& with(Pegasus::CIMMethod&& added) {
        fan_.addMethod(added);
        return *this;
    }
    Fan& with(Pegasus::CIMQualifier&& added) {
        fan_.addQualifier(added);
        return *this;
    }
    operator Pegasus::CIMClass() const { return fan_; }

private:
    Pegasus::CIMClass fan_;
};

std::vector<std::string> differences(const Pegasus::CIMClass& first, const Pegasus::CIMClass& other) {
    RemoteDefinitions definitions;
    definitions.add(1, other);
    definitions.add(0, first);
    return definitions.differencesOf("cim_fan");
}

std::vector<std::string> shown(const QualifierValues& qualifiers) {
    std::vector<std::string> all;
    for (const QualifierValue& each : qualifiers) {
        all.push_back(each.name + ' ' + mofText(each.value));
    }
    return all;
}

}  // namespace

TEST(RemoteDefinitions, KnowTheQualifiersOfMethodsAndParameters) {
    RemoteDefinitions definitions;
    definitions.add(2, Fan().with(reset()));
    EXPECT_THAT(shown(definitions.ofMethod("cim_FAN", "RESET")),
                ElementsAre(R"(ValueMap {"0", "1"})", R"(Description "Resets.")"));
    EXPECT_THAT(shown(definitions.ofParameter("CIM_Fan", "reset", "KIND")),
                ElementsAre("In TRUE", R"(MaxLen "8")"));
    EXPECT_THAT(definitions.ofMethod("CIM_Fan", "Stop"), IsEmpty());
    EXPECT_THAT(definitions.ofParameter("CIM_Fan", "Stop", "Kind"), IsEmpty());
    EXPECT_THAT(definitions.ofParameter("CIM_Fan", "Reset", "Other"), IsEmpty());
    EXPECT_THAT(definitions.ofMethod("CIM_Pump", "Reset"), IsEmpty());
}

TEST(RemoteDefinitions, TakeTheFirstNodesQualifiers) {
    RemoteDefinitions definitions;
    Pegasus::CIMMethod method(CIMName("Reset"), Pegasus::CIMTYPE_UINT32);
    definitions.add(1, Fan().with(reset()));
    definitions.add(0, Fan().with(std::move(method)));
    EXPECT_THAT(definitions.ofMethod("CIM_Fan", "Reset"), IsEmpty());
}

TEST(RemoteDefinitions, OfOneNodeOrThatAgreeDifferInNothing) {
    RemoteDefinitions definitions;
    EXPECT_THAT(definitions.differencesOf("CIM_Fan"), IsEmpty());
    definitions.add(1, Fan().with(property("Speed", Pegasus::CIMTYPE_UINT32)).with(reset()));
    EXPECT_THAT(definitions.differencesOf("CIM_Fan"), IsEmpty());
    definitions.add(2, Fan("cim_device").with(property("SPEED", Pegasus::CIMTYPE_UINT32)).with(reset()));
    EXPECT_THAT(definitions.differencesOf("CIM_Fan"), IsEmpty());
}

TEST(RemoteDefinitions, DifferInMembers) {
    EXPECT_THAT(differences(Fan().with(property("Speed", Pegasus::CIMTYPE_UINT32)).with(reset()), Fan()),
                ElementsAre("node 2: has no property Speed", "node 2: has no method Reset"));
    EXPECT_THAT(differences(Fan(), Fan().with(property("Speed", Pegasus::CIMTYPE_UINT32)).with(reset())),
                ElementsAre("node 2: has property Speed besides", "node 2: has method Reset besides"));
}

TEST(RemoteDefinitions, DifferInTypes) {
    EXPECT_THAT(differences(Fan().with(property("Speed", Pegasus::CIMTYPE_UINT32)),
                            Fan("CIM_Thing").with(property("Speed", Pegasus::CIMTYPE_UINT32, true))),
                ElementsAre("node 2: superclass is CIM_Thing, not CIM_Device",
                            "node 2: property Speed is uint32[], not uint32"));
    EXPECT_THAT(differences(Fan().with(reset()), Fan().with(reset(Pegasus::CIMTYPE_STRING))),
                ElementsAre("node 2: method Reset is uint32 (string Kind), not uint32 (uint16 Kind)"));
    EXPECT_THAT(differences(Fan(""), Fan("CIM_Device")),
                ElementsAre("node 2: superclass is CIM_Device, not none"));
}

TEST(RemoteDefinitions, DifferInQualifiers) {
    EXPECT_THAT(
        differences(Fan().with(qualifier("Version", CIMValue(String("1")))).with(qualifier("Abstract")),
                    Fan().with(qualifier("Version", CIMValue(String("2")))).with(qualifier("Terminal"))),
        ElementsAre("node 2: qualifier Version is 2, not 1", "node 2: has no qualifier Abstract",
                    "node 2: has qualifier Terminal besides"));
    Pegasus::CIMProperty key = property("Id", Pegasus::CIMTYPE_STRING);
    key.addQualifier(qualifier("Key"));
    EXPECT_THAT(differences(Fan().with(std::move(key)), Fan().with(property("Id", Pegasus::CIMTYPE_STRING))),
                ElementsAre("node 2: has no property Id: qualifier Key"));
}

}  // namespace tool
