#include <Pegasus/Common/Exception.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/model/ModelTest.h"

namespace NQELVSK20 {
namespace {

using Type = TCIMValue::TCIMType;

// The embedded server carries out every method of OMC_EchoService by giving back what it gets; these tests
// declare the methods that they need.
class MethodInvocation : public ModelTest {
protected:
    static std::string Parameter(const std::string& name, const std::string& type, bool in = true,
                                 bool out = true) {
        const auto flag = [](bool value) { return std::string(value ? "TRUE" : "FALSE"); };
        return "<PARAMETER NAME=\"" + name + "\" TYPE=\"" + type + "\">" +
               QualifierXml("In", "boolean", flag(in)) + QualifierXml("Out", "boolean", flag(out)) +
               "</PARAMETER>";
    }

    static void DeclareService(TestMachine& machine, const std::string& methods,
                               const std::string& nameSpace = "root/cimv2") {
        Declare(machine,
                {ClassXml("OMC_EchoService", "", KeyXml("Name", "string") + methods),
                 InstanceXml("OMC_EchoService", PropertyXml("Name", "string", "echo"))},
                nameSpace);
    }

    static TCIMValue Invoke(const Class& service, const std::string& method, const TContext& inputs,
                            TContext& outputs, const std::string& path = "OMC_EchoService.Name=\"echo\"") {
        TCIMValue result("left over");
        service->InvokeMethod(result, Reference(path), method, inputs, outputs, TContext());
        return result;
    }

    static std::size_t PlaceOf(const std::string& parameter, const cimom::SeenRequest& request) {
        return request.body.find("<PARAMVALUE NAME=\"" + parameter + "\"");
    }
};

TEST_F(MethodInvocation, WithoutArgumentsSendsNoneAndLeavesTheOutputsAlone) {
    TestMachine machine(Nodes(1));
    DeclareService(machine, MethodXml("Ping", "uint32"));
    const Class service = GetClass(Connected(machine), "OMC_EchoService");
    machine.ClearRequests();
    TContext outputs{{"Mine", TCIMValue(5)}};
    const TCIMValue result = Invoke(service, "Ping", TContext(), outputs);
    EXPECT_EQ(result.GetType(), Type::eUint32);
    EXPECT_EQ(result.ToString(10), "0");
    ASSERT_EQ(outputs.size(), 1U);
    EXPECT_EQ(outputs.at("Mine").ToString(10), "5");
    const auto seen = machine.Server().requests();
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].operation, "Ping");
    EXPECT_EQ(seen[0].body.find("PARAMVALUE"), std::string::npos);
}

TEST_F(MethodInvocation, SendsTheArgumentsInTheByteOrderOfTheirNames) {
    TestMachine machine(Nodes(1));
    DeclareService(machine, MethodXml("Two", "uint32", Parameter("a", "string") + Parameter("B", "uint8")));
    const Class service = GetClass(Connected(machine), "OMC_EchoService");
    machine.ClearRequests();
    TContext outputs;
    const TContext inputs{{"a", TCIMValue("x")}, {"B", TCIMValue(static_cast<unsigned char>(7))}};
    Invoke(service, "Two", inputs, outputs);
    const auto seen = machine.Server().requests();
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_NE(PlaceOf("B", seen[0]), std::string::npos);
    EXPECT_NE(PlaceOf("a", seen[0]), std::string::npos);
    EXPECT_LT(PlaceOf("B", seen[0]), PlaceOf("a", seen[0]));
    EXPECT_NE(seen[0].body.find("PARAMTYPE=\"uint8\""), std::string::npos);
    EXPECT_EQ(outputs.at("a").ToString(10), "x");
    EXPECT_EQ(outputs.at("B").GetType(), Type::eUint8);
}

TEST_F(MethodInvocation, KeepsTheOutputsThatAreThere) {
    TestMachine machine(Nodes(1));
    DeclareService(machine, MethodXml("Two", "uint32", Parameter("a", "string") + Parameter("b", "string")));
    const Class service = GetClass(Connected(machine), "OMC_EchoService");
    TContext outputs{{"a", TCIMValue("mine")}};
    Invoke(service, "Two", {{"a", TCIMValue("x")}, {"b", TCIMValue("y")}}, outputs);
    EXPECT_EQ(outputs.at("a").ToString(10), "mine");
    EXPECT_EQ(outputs.at("b").ToString(10), "y");
}

TEST_F(MethodInvocation, OfSeveralNodesUsesTheFirstOnly) {
    TestMachine machine(Nodes(2));
    DeclareService(machine, MethodXml("Ping", "uint32"));
    const Class service = GetClass(Connected(machine), "OMC_EchoService");
    machine.ClearRequests();
    TContext outputs;
    Invoke(service, "Ping", TContext(), outputs);
    EXPECT_EQ(machine.Requests(), Names{"0 Ping OMC_EchoService"});
}

TEST_F(MethodInvocation, OfAVoidMethodGivesANullResult) {
    TestMachine machine(Nodes(1));
    DeclareService(machine, MethodXml("Silence", "uint32"));
    const Class service = GetClass(Connected(machine), "OMC_EchoService");
    TContext outputs;
    EXPECT_TRUE(Invoke(service, "Silence", TContext(), outputs).IsNull());
    EXPECT_TRUE(outputs.empty());
}

TEST_F(MethodInvocation, GoesToTheNamespaceByItsOwnName) {
    TestMachine machine(Nodes(1));
    DeclareService(machine, MethodXml("Ping", "uint32"), "root/cimv2");
    DeclareService(machine, MethodXml("Ping", "uint32"), "root/data");
    const Namespace nameSpace = MakeUninitNamespace("root/cimv2");
    nameSpace->Init("root/data");
    ConnectTo(*nameSpace, machine);
    const Class service = GetClass(nameSpace, "OMC_EchoService");
    ASSERT_TRUE(service);
    machine.ClearRequests();
    TContext outputs;
    EXPECT_EQ(Invoke(service, "Ping", TContext(), outputs).ToString(10), "0");
    const auto seen = machine.Server().requests();
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_NE(seen[0].body.find("<NAMESPACE NAME=\"cimv2\"/>"), std::string::npos);
    EXPECT_EQ(seen[0].body.find("<NAMESPACE NAME=\"data\"/>"), std::string::npos);
}

TEST_F(MethodInvocation, RunsOnTheClassForAPathWithoutKeys) {
    TestMachine machine(Nodes(1));
    DeclareService(machine, MethodXml("Ping", "uint32"));
    const Class service = GetClass(Connected(machine), "OMC_EchoService");
    machine.ClearRequests();
    TContext outputs;
    EXPECT_EQ(Invoke(service, "Ping", TContext(), outputs, "OMC_EchoService").ToString(10), "0");
    EXPECT_NE(machine.Server().requests().at(0).body.find("<LOCALCLASSPATH>"), std::string::npos);
}

TEST_F(MethodInvocation, ThroughAnInstanceRunsOnThatInstance) {
    TestMachine machine(Nodes(1));
    DeclareService(machine, MethodXml("Say", "string", Parameter("Value", "string")));
    const Instances instances = InstancesOf(GetClass(Connected(machine), "OMC_EchoService"));
    ASSERT_EQ(instances.size(), 1U);
    TCIMValue result;
    TContext outputs;
    instances[0]->InvokeMethod(result, "Say", {{"Value", TCIMValue("hello")}}, outputs, TContext());
    EXPECT_EQ(result.ToString(10), "hello");
    EXPECT_EQ(outputs.at("Value").ToString(10), "hello");
}

TEST_F(MethodInvocation, ThatFailsRemotelyIsLoggedAndGivesANullResult) {
    TestMachine machine(Nodes(1));
    DeclareService(machine, MethodXml("Ping", "uint32"));
    const Class service = GetClass(Connected(machine), "OMC_EchoService");
    log_.Clear();
    TContext outputs;
    EXPECT_TRUE(Invoke(service, "NoSuchMethod", TContext(), outputs).IsNull());
    EXPECT_TRUE(outputs.empty());
    ASSERT_EQ(log_.Lines().size(), 1U);
    EXPECT_EQ(log_.Lines()[0].first, 3);
    EXPECT_EQ(log_.Lines()[0].second.find("CIMException in PegClient::InvokeMethod(): "), 0U);
}

TEST_F(MethodInvocation, WithAMalformedPathOrNameThrowsTheLibrarysExceptionAndSendsNothing) {
    TestMachine machine(Nodes(1));
    DeclareService(machine, MethodXml("Ping", "uint32", Parameter("When", "datetime")));
    const Class service = GetClass(Connected(machine), "OMC_EchoService");
    machine.ClearRequests();
    TContext outputs;
    EXPECT_THROW(Invoke(service, "Ping", TContext(), outputs, "OMC_EchoService.Name=\"open"),
                 Pegasus::MalformedObjectNameException);
    EXPECT_THROW(Invoke(service, "two words", TContext(), outputs), Pegasus::InvalidNameException);
    EXPECT_THROW(Invoke(service, "Ping", {{"When", TCIMValue(TCIMDateTime("yesterday"))}}, outputs),
                 Pegasus::InvalidDateTimeFormatException);
    EXPECT_EQ(machine.Requests(), Names{});
    EXPECT_TRUE(pauses_.empty());
}

TEST_F(MethodInvocation, WithoutANamespaceIsABrokenPrecondition) {
    Class service;
    {
        const Namespace nameSpace = MakeUninitNamespace();
        service = Allocate(nameSpace, "OMC_EchoService");
    }
    TContext outputs;
#ifdef NDEBUG
    log_.Clear();
    EXPECT_TRUE(Invoke(service, "Ping", TContext(), outputs).IsNull());
    EXPECT_EQ(
        log_.Lines().at(0),
        RecordingLogger::Line(0, "TCimHTTPClass::InvokeMethod OMC_EchoService: assertion failed: px != 0"));
#else
    EXPECT_DEATH(Invoke(service, "Ping", TContext(), outputs), "px != 0");
#endif
}

// Values of every type from the host to the server and back: nothing may be lost on the way.
class RoundTrip : public ModelTest {
protected:
    RoundTrip() : namespace_(Connected(machine_)), service_(GetClass(namespace_, "OMC_EchoService")) {}

    TContext Echo(const TContext& inputs) {
        const Instances services = InstancesOf(service_);
        TCIMValue result;
        TContext outputs;
        services.at(0)->InvokeMethod(result, "EchoAll", inputs, outputs, TContext());
        EXPECT_EQ(result.ToString(10), "0");
        return outputs;
    }

    TCIMValue ReferenceTo(const std::string& path) {
        TCIMReference reference(namespace_, TContext());
        reference.SetPath(path);
        return TCIMValue(reference);
    }

    static TCIMValue Array(Type::ECIMType type, const std::vector<TCIMValue>& elements) {
        return TCIMValue(Type(type), 0, elements);
    }

    static TContext Scalars(bool largest) {
        const auto pick = [largest](auto sample) {
            using Limits = std::numeric_limits<decltype(sample)>;
            return TCIMValue(largest ? Limits::max() : Limits::lowest());
        };
        return {{"BooleanValue", TCIMValue(largest)},
                {"Uint8Value", pick(static_cast<unsigned char>(0))},
                {"Sint8Value", pick(static_cast<signed char>(0))},
                {"Uint16Value", pick(static_cast<unsigned short>(0))},
                {"Sint16Value", pick(static_cast<short>(0))},
                {"Uint32Value", pick(0U)},
                {"Sint32Value", pick(0)},
                {"Uint64Value", pick(0ULL)},
                {"Sint64Value", pick(0LL)},
                {"Real32Value", TCIMValue(largest ? 1.5e38F : -1.5e38F)},
                {"Real64Value", pick(0.0)},
                {"Char16Value", TCIMValue(TCIMChar16(largest ? "8364" : "65"))},
                {"StringValue", TCIMValue(largest ? "<&>\"' \xC3\xBC \xF0\x9F\x98\x80 end" : "")},
                {"DatetimeValue", TCIMValue(TCIMDateTime(largest ? "20991231235959.999999+720"
                                                                 : "00000000000000.000000:000"))}};
    }

    static void ExpectSame(const TContext& sent, const TContext& received) {
        for (const auto& [name, value] : sent) {
            const auto back = received.find(name);
            ASSERT_NE(back, received.end()) << name;
            EXPECT_FALSE(value != back->second)
                << name << " sent " << value.ToString(10) << ", received " << back->second.ToString(10);
        }
    }

    TestMachine machine_;
    Namespace namespace_;
    Class service_;
};

TEST_F(RoundTrip, KeepsTheSmallestAndTheLargestScalarOfEveryType) {
    for (const bool largest : {false, true}) {
        TContext inputs = Scalars(largest);
        inputs["ReferenceValue"] = ReferenceTo("OMC_NumericSensor.DeviceID=\"a \\\"b\\\" \\\\c\",Number=3");
        ExpectSame(inputs, Echo(inputs));
    }
}

TEST_F(RoundTrip, KeepsArraysOfEveryType) {
    const TContext low = Scalars(false);
    const TContext high = Scalars(true);
    TContext inputs;
    for (const auto& [name, value] : low) {
        const std::string array = name.substr(0, name.find("Value")) + "Array";
        inputs[array] = Array(value.GetType(), {value, high.at(name), value});
    }
    ASSERT_EQ(inputs.size(), 14U);
    ExpectSame(inputs, Echo(inputs));
}

TEST_F(RoundTrip, KeepsEmptyArrays) {
    TContext inputs;
    for (const auto& [name, value] : Scalars(false)) {
        inputs[name.substr(0, name.find("Value")) + "Array"] = Array(value.GetType(), {});
    }
    const TContext outputs = Echo(inputs);
    for (const auto& [name, value] : inputs) {
        const auto back = outputs.find(name);
        ASSERT_NE(back, outputs.end()) << name;
        EXPECT_TRUE(back->second.IsArray()) << name;
        const std::vector<TCIMValue>& elements = back->second;
        EXPECT_TRUE(elements.empty()) << name;
        EXPECT_EQ(back->second.GetType(), value.GetType()) << name;
    }
}

TEST_F(RoundTrip, SendsANullAsItsTypesZero) {
    TContext inputs;
    for (const auto& [name, value] : Scalars(false)) {
        inputs[name] = TCIMValue(value.GetType(), 0);
    }
    inputs.erase("DatetimeValue");  // an empty text is no datetime
    inputs.erase("Char16Value");    // XML has no character of code 0
    const TContext outputs = Echo(inputs);
    for (const auto& [name, value] : inputs) {
        const TCIMValue& back = outputs.at(name);
        EXPECT_FALSE(back.IsNull()) << name;
        EXPECT_EQ(back.GetType(), value.GetType()) << name;
        EXPECT_FALSE(back.operator bool()) << name;
    }
}

// OpenPegasus' client makes a null of an output without a value, which has no type but a null's: boolean.
void ExpectZero(const TCIMValue& zero, const TCIMValue& ofType, const std::string& name) {
    EXPECT_FALSE(zero.IsNull()) << name;
    EXPECT_FALSE(zero.IsArray()) << name;
    if (zero.GetType() == Type::eBoolean) {
        EXPECT_FALSE(zero.operator bool()) << name;
        return;
    }
    EXPECT_EQ(zero.GetType(), ofType.GetType()) << name;
    if (zero.GetType() == Type::eDateTime) {
        EXPECT_EQ(zero.ToString(10), "00000000000000.000000:000") << name;
    } else if (zero.GetType() == Type::eString) {
        EXPECT_EQ(zero.ToString(10), "") << name;
    } else {
        EXPECT_FALSE(zero.operator bool()) << name;
    }
}

TEST_F(RoundTrip, GivesANullOutputAsItsTypesZero) {
    const TContext outputs = Echo({});
    for (const auto& [name, value] : Scalars(false)) {
        ASSERT_EQ(outputs.count(name), 1U) << name;
        ExpectZero(outputs.at(name), value, name);
    }
}

// An answer says of an output that has no value what type it has, but not that it is an array.
TEST_F(RoundTrip, GivesANullArrayAsItsElementsZero) {
    const TContext outputs = Echo({});
    for (const auto& [name, value] : Scalars(false)) {
        const std::string array = name.substr(0, name.find("Value")) + "Array";
        ASSERT_EQ(outputs.count(array), 1U) << array;
        ExpectZero(outputs.at(array), value, array);
    }
}

TEST_F(RoundTrip, KeepsTheReturnValueOfEveryType) {
    const Instances services = InstancesOf(service_);
    for (const auto& [name, value] : Scalars(true)) {
        const std::string method = "Echo" + name.substr(0, name.find("Value"));
        TCIMValue result;
        TContext outputs;
        services.at(0)->InvokeMethod(result, method, {{"Value", value}}, outputs, TContext());
        EXPECT_FALSE(value != result) << method << " gave " << result.ToString(10);
        EXPECT_FALSE(value != outputs.at("ValueEcho")) << method;
    }
}

}  // namespace
}  // namespace NQELVSK20
