// The operations and what they bring.

#include <Pegasus/Common/CIMDateTime.h>

#include <algorithm>

#include "tests/cimxml/ClientTesting.h"

using namespace Pegasus;

namespace {

class Operations : public ClientTest {
protected:
    Operations() { serveAndConnect(); }

    CIMObjectPath pathOf(const char* className, Uint32 index = 0) {
        return client.enumerateInstanceNames(nameSpace, CIMName(className))[index];
    }

    /// The echo service's answer to a value, which comes back as it was sent.
    void expectEcho(const char* method, const CIMValue& value, const CIMValue& values) {
        Array<CIMParamValue> in;
        in.append(CIMParamValue(String("Value"), value));
        in.append(CIMParamValue(String("Values"), values));
        Array<CIMParamValue> out;
        const CIMValue returned =
            client.invokeMethod(nameSpace, pathOf("OMC_EchoService"), CIMName(method), in, out);
        if (value.getType() != CIMTYPE_REFERENCE) {
            EXPECT_TRUE(returned.equal(value)) << method << ": " << utf8(returned.toString());
        }
        ASSERT_EQ(out.size(), 2U) << method;
        EXPECT_EQ(utf8(out[0].getParameterName()), "ValueEcho");
        EXPECT_TRUE(out[0].getValue().equal(value)) << method << ": " << utf8(out[0].getValue().toString());
        EXPECT_TRUE(out[1].getValue().equal(values)) << method << ": " << utf8(out[1].getValue().toString());
    }

    template <class T>
    void expectEcho(const char* method, const T& first, const T& second) {
        Array<T> values;
        values.append(first);
        values.append(second);
        expectEcho(method, CIMValue(first), CIMValue(values));
    }
};

TEST_F(Operations, ClassNamesBelowAClassOneLevelOrAll) {
    const Array<CIMName> one = client.enumerateClassNames(nameSpace, CIMName("CIM_Sensor"), false);
    const Array<CIMName> all = client.enumerateClassNames(nameSpace, CIMName("CIM_Sensor"), true);
    EXPECT_EQ(one.size(), 2U);
    EXPECT_EQ(all.size(), 3U);
}

TEST_F(Operations, ClassNamesBelowNoneAreTheRoots) {
    const Array<CIMName> roots = client.enumerateClassNames(nameSpace);
    bool found = false;
    for (Uint32 i = 0; i < roots.size(); ++i) {
        found = found || roots[i].equal(CIMName("CIM_ManagedElement"));
        EXPECT_FALSE(roots[i].equal(CIMName("CIM_Sensor")));
    }
    EXPECT_TRUE(found);
}

TEST_F(Operations, AClassBringsItsElements) {
    const CIMClass cimClass =
        client.getClass(nameSpace, CIMName("CIM_EnabledLogicalElement"), false, true, true);
    EXPECT_TRUE(cimClass.getClassName().equal(CIMName("CIM_EnabledLogicalElement")));
    EXPECT_TRUE(cimClass.getSuperClassName().equal(CIMName("CIM_LogicalElement")));
    const Uint32 method = cimClass.findMethod(CIMName("RequestStateChange"));
    ASSERT_NE(method, PEG_NOT_FOUND);
    EXPECT_EQ(cimClass.getMethod(method).getType(), CIMTYPE_UINT32);
    const Uint32 property = cimClass.findProperty(CIMName("EnabledState"));
    ASSERT_NE(property, PEG_NOT_FOUND);
    EXPECT_EQ(cimClass.getProperty(property).getType(), CIMTYPE_UINT16);
    EXPECT_GT(cimClass.getProperty(property).getQualifierCount(), 0U);
}

TEST_F(Operations, AClassWithoutQualifiers) {
    const CIMClass cimClass = client.getClass(nameSpace, CIMName("CIM_Sensor"), true, false, false);
    EXPECT_EQ(cimClass.getQualifierCount(), 0U);
}

TEST_F(Operations, ClassesBelowAClass) {
    const Array<CIMClass> classes = client.enumerateClasses(nameSpace, CIMName("CIM_Sensor"), true);
    EXPECT_EQ(classes.size(), 3U);
    for (Uint32 i = 0; i < classes.size(); ++i) {
        EXPECT_FALSE(classes[i].getSuperClassName().isNull());
    }
}

TEST_F(Operations, InstanceNamesHaveNeitherHostNorNamespace) {
    const Array<CIMObjectPath> names = client.enumerateInstanceNames(nameSpace, CIMName("OMC_NumericSensor"));
    ASSERT_GT(names.size(), 1U);
    for (Uint32 i = 0; i < names.size(); ++i) {
        EXPECT_EQ(names[i].getHost().size(), 0U);
        EXPECT_TRUE(names[i].getNameSpace().isNull());
        EXPECT_EQ(names[i].getKeyBindings().size(), 4U);
    }
    EXPECT_EQ(utf8(names[0].toString()),
              "OMC_NumericSensor.CreationClassName=\"OMC_NumericSensor\",DeviceID=\"1.0.32.55\","
              "SystemCreationClassName=\"OMC_UnitaryComputerSystem\",SystemName=\"node-0.machine.example\"");
}

TEST_F(Operations, InstancesHaveTheirPathsWithoutHostAndNamespace) {
    const Array<CIMInstance> instances =
        client.enumerateInstances(nameSpace, CIMName("CIM_Sensor"), true, false);
    const Array<CIMObjectPath> names = client.enumerateInstanceNames(nameSpace, CIMName("CIM_Sensor"));
    ASSERT_EQ(instances.size(), names.size());
    for (Uint32 i = 0; i < instances.size(); ++i) {
        EXPECT_EQ(utf8(instances[i].getPath().toString()), utf8(names[i].toString()));
        EXPECT_NE(instances[i].findProperty(CIMName("DeviceID")), PEG_NOT_FOUND);
    }
}

TEST_F(Operations, APropertyListLimitsWhatComes) {
    Array<CIMName> wanted;
    wanted.append(CIMName("DeviceID"));
    const Array<CIMInstance> some = client.enumerateInstances(nameSpace, CIMName("OMC_NumericSensor"), true,
                                                              false, false, false, CIMPropertyList(wanted));
    const Array<CIMInstance> none =
        client.enumerateInstances(nameSpace, CIMName("OMC_NumericSensor"), true, false, false, false,
                                  CIMPropertyList(Array<CIMName>()));
    ASSERT_GT(some.size(), 0U);
    ASSERT_EQ(none.size(), some.size());
    EXPECT_EQ(some[0].getPropertyCount(), 1U);
    EXPECT_EQ(none[0].getPropertyCount(), 0U);
}

TEST_F(Operations, AnInstanceByItsPath) {
    const CIMObjectPath path = pathOf("OMC_NumericSensor");
    const CIMInstance instance = client.getInstance(nameSpace, path, false);
    const Uint32 name = instance.findProperty(CIMName("ElementName"));
    ASSERT_NE(name, PEG_NOT_FOUND);
    EXPECT_EQ(utf8(instance.getProperty(name).getValue().toString()), "Ambient Temp");
    EXPECT_EQ(utf8(instance.getPath().toString()), "OMC_NumericSensor")
        << "of an instance asked for by its path, the path is the class name";
}

TEST_F(Operations, NoInstancesIsAnEmptyArray) {
    EXPECT_EQ(client.enumerateInstances(nameSpace, CIMName("CIM_Indication")).size(), 0U);
    EXPECT_EQ(client.enumerateInstanceNames(nameSpace, CIMName("CIM_Indication")).size(), 0U);
}

TEST_F(Operations, AMethodEchoesEveryType) {
    expectEcho<Boolean>("EchoBoolean", true, false);
    expectEcho<Uint8>("EchoUint8", 255, 0);
    expectEcho<Sint8>("EchoSint8", -128, 127);
    expectEcho<Uint16>("EchoUint16", 65535, 0);
    expectEcho<Sint16>("EchoSint16", -32768, 32767);
    expectEcho<Uint32>("EchoUint32", 4294967295U, 0);
    expectEcho<Sint32>("EchoSint32", -2147483647 - 1, 2147483647);
    expectEcho<Uint64>("EchoUint64", PEGASUS_UINT64_LITERAL(18446744073709551615), 0);
    expectEcho<Sint64>("EchoSint64", -PEGASUS_SINT64_LITERAL(9223372036854775807) - 1, 1);
    expectEcho<Real32>("EchoReal32", Real32(-1.5), Real32(0.1F));
    expectEcho<Real64>("EchoReal64", 1e300, 0.1);
    expectEcho<Char16>("EchoChar16", Char16('x'), Char16(0x20AC));
    expectEcho<String>("EchoString", String("a <b> & \"c\" 'd'\n\te \xC3\xA4\xF0\x9F\x98\x80"), String("z"));
    expectEcho<CIMDateTime>("EchoDatetime", CIMDateTime(String("20260102030405.678901+060")),
                            CIMDateTime(String("00000012030405.678901:000")));
    expectEcho<CIMObjectPath>("EchoReference", CIMObjectPath(String("OMC_A.k=\"v\",n=1,b=TRUE")),
                              CIMObjectPath(String("root/b:OMC_B.k=\"w\"")));
}

TEST_F(Operations, AMethodWithoutOutputParametersEmptiesTheList) {
    Array<CIMParamValue> out;
    out.append(CIMParamValue(String("left"), CIMValue(String("over"))));
    const CIMValue result = client.invokeMethod(nameSpace, pathOf("OMC_EchoService"), CIMName("Ping"),
                                                Array<CIMParamValue>(), out);
    EXPECT_EQ(result.getType(), CIMTYPE_UINT32);
    EXPECT_EQ(out.size(), 0U);
}

TEST_F(Operations, AMethodIsNotSentTwice) {
    const CIMObjectPath service = pathOf("OMC_EchoService");
    server.clearRequests();
    cimom::Fault fault;
    fault.kind = cimom::Fault::Kind::CloseBeforeAnswer;
    fault.operation = "Ping";
    server.inject(fault);
    Array<CIMParamValue> out;
    EXPECT_THROW(client.invokeMethod(nameSpace, service, CIMName("Ping"), Array<CIMParamValue>(), out),
                 CIMClientMalformedHTTPException);
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST_F(Operations, ParametersAreSentInTheirOrder) {
    Array<CIMParamValue> in;
    in.append(CIMParamValue(String("B"), CIMValue(Uint32(1))));
    in.append(CIMParamValue(String("a"), CIMValue(Uint32(2))));
    Array<CIMParamValue> out;
    const CIMObjectPath service = pathOf("OMC_EchoService");
    server.clearRequests();
    try {
        client.invokeMethod(nameSpace, service, CIMName("Ping"), in, out);
    } catch (const CIMException&) {
        // The server may refuse parameters that the method does not have.
    }
    const std::string body = server.requests().at(0).body;
    EXPECT_LT(body.find("NAME=\"B\""), body.find("NAME=\"a\""));
    EXPECT_NE(body.find("NAME=\"a\""), std::string::npos);
}

TEST_F(Operations, EveryTypeAsAProperty) {
    const CIMInstance instance = client.getInstance(nameSpace, pathOf("OMC_AllTypes"), false);
    Uint32 seen = 0;
    for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        seen |= 1U << instance.getProperty(i).getType();
    }
    // All but the two that stand for embedded objects, which are strings on the wire.
    const Uint32 all = (1U << (CIMTYPE_REFERENCE + 1)) - 1;
    EXPECT_EQ(seen & all, all);
}

}  // namespace
