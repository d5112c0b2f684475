#include "tests/tools/support/Sensors.h"

#include "inmem/TInmemInstance.h"
#include "vskcore/ICIMParameterDecl.h"

namespace tool {

namespace {

using namespace NQELVSK20;
using TType = TCIMValue::TCIMType;

TCIMValue texts(const std::vector<TCIMValue>& elements) {
    return TCIMValue(TType::eString, 0, elements);
}

void declareQualifiers(TInmemUnion& nameSpace) {
    DeclareQualifier(nameSpace, "ValueMap", TCIMValue(TType(TType::eStringArray), 0));
    DeclareQualifier(nameSpace, "Values", TCIMValue(TType(TType::eStringArray), 0));
    DeclareQualifier(nameSpace, "MaxLen", TCIMValue(0U));
}

void addState(const boost::shared_ptr<ICIMClass>& cimClass) {
    auto state = cimClass->AllocatePropertyDecl("State", TCIMValue(TType(TType::eUint16), 0), {});
    Qualify(state, "ValueMap", texts({TCIMValue("0"), TCIMValue("2")}));
    Qualify(state, "Values", texts({TCIMValue("Unknown"), TCIMValue("OK")}));
    state->Commit({});
}

void addCalibrate(const boost::shared_ptr<ICIMClass>& cimClass) {
    const auto method = cimClass->AllocateMethodDecl("Calibrate", TType::eUint32, {});
    const std::vector<std::pair<const char*, TType::ECIMType>> parameters = {
        {"Flag", TType::eBoolean},        {"U8", TType::eUint8},          {"S8", TType::eSint8},
        {"U64", TType::eUint64},          {"S64", TType::eSint64},        {"R32", TType::eReal32},
        {"R64", TType::eReal64},          {"Letter", TType::eChar16},     {"Text", TType::eString},
        {"When", TType::eDateTime},       {"Who", TType::eReference},     {"Object", TType::eUnknown},
        {"Numbers", TType::eUint16Array}, {"Texts", TType::eStringArray}, {"Whose", TType::eReferenceArray}};
    for (const auto& [name, type] : parameters) {
        method->AllocateParameterDecl(name, type, {})->Commit({});
    }
    method->Commit({});
}

}  // namespace

Sensors::Sensors() : union_(MakeUnion()) {
    declareQualifiers(*union_);
    element_ = MakeClass(*union_, "TST_Element");
    Qualify(element_, "ABSTRACT", TCIMValue(true));
    AddKey(element_, "ID");
    AddProperty(element_, "Caption");
    addState(element_);
    sensor_ = MakeClass(*union_, "TST_Sensor", element_);
    Qualify(sensor_, "DESCRIPTION", TCIMValue("Says \"how warm\" it is."));
    AddKey(sensor_, "Number", TCIMValue(TType(TType::eUint8), 0));
    AddProperty(sensor_, "Reading", TCIMValue(-1));
    AddProperty(sensor_, "Samples", TCIMValue(TType(TType::eUint16Array), 0));
    AddProperty(sensor_, "NodeID", TCIMValue(""));
    addCalibrate(sensor_);
}

boost::shared_ptr<ICIMInstance> Sensors::make(const std::string& id, unsigned char number,
                                              const std::string& node) const {
    const auto instance = boost::make_shared<TInmemInstance>(sensor_, 1);
    instance->SetPropertyValue("ID", TCIMValue(id), {});
    instance->SetPropertyValue("Number", TCIMValue(number), {});
    instance->SetPropertyValue("State", TCIMValue(static_cast<unsigned short>(2)), {});
    instance->SetPropertyValue("Caption", TCIMValue(TType(TType::eString), 0), {});
    instance->SetPropertyValue("NodeID", TCIMValue(node), {});
    const std::vector<TCIMValue> samples{TCIMValue(static_cast<unsigned short>(7)),
                                         TCIMValue(static_cast<unsigned short>(8))};
    instance->SetPropertyValue("Samples", TCIMValue(TType::eUint16, 0, samples), {});
    return instance;
}

}  // namespace tool
