#include "convert/ToCore.h"

#include <gtest/gtest.h>

#include <string>

namespace NQELVSK20 {
namespace {

using Type = TCIMValue::TCIMType;

struct Row {
    Pegasus::CIMType remote;
    Type::ECIMType scalar;
    Type::ECIMType array;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << Pegasus::cimTypeToString(row.remote);
}

class TypeMappingTest : public ::testing::TestWithParam<Row> {};

TEST_P(TypeMappingTest, GivesTheScalarAndTheArrayCode) {
    EXPECT_EQ(ToCoreType(GetParam().remote, false), GetParam().scalar);
    EXPECT_EQ(ToCoreType(GetParam().remote, true), GetParam().array);
}

INSTANTIATE_TEST_SUITE_P(
    AllTypes, TypeMappingTest,
    ::testing::Values(Row{Pegasus::CIMTYPE_BOOLEAN, Type::eBoolean, Type::eBooleanArray},
                      Row{Pegasus::CIMTYPE_UINT8, Type::eUint8, Type::eUint8Array},
                      Row{Pegasus::CIMTYPE_SINT8, Type::eSint8, Type::eSint8Array},
                      Row{Pegasus::CIMTYPE_UINT16, Type::eUint16, Type::eUint16Array},
                      Row{Pegasus::CIMTYPE_SINT16, Type::eSint16, Type::eSint16Array},
                      Row{Pegasus::CIMTYPE_UINT32, Type::eUint32, Type::eUint32Array},
                      Row{Pegasus::CIMTYPE_SINT32, Type::eSint32, Type::eSint32Array},
                      Row{Pegasus::CIMTYPE_UINT64, Type::eUint64, Type::eUint64Array},
                      Row{Pegasus::CIMTYPE_SINT64, Type::eSint64, Type::eSint64Array},
                      Row{Pegasus::CIMTYPE_REAL32, Type::eReal32, Type::eReal32Array},
                      Row{Pegasus::CIMTYPE_REAL64, Type::eReal64, Type::eReal64Array},
                      Row{Pegasus::CIMTYPE_CHAR16, Type::eChar16, Type::eChar16Array},
                      Row{Pegasus::CIMTYPE_STRING, Type::eString, Type::eStringArray},
                      Row{Pegasus::CIMTYPE_DATETIME, Type::eDateTime, Type::eDateTimeArray},
                      Row{Pegasus::CIMTYPE_REFERENCE, Type::eReference, Type::eReferenceArray},
                      Row{Pegasus::CIMTYPE_OBJECT, Type::eUnknown, Type::eUnknownArray},
                      Row{Pegasus::CIMTYPE_INSTANCE, Type::eUnknown, Type::eUnknownArray}),
    [](const ::testing::TestParamInfo<Row>& row) {
        return std::string(Pegasus::cimTypeToString(row.param.remote));
    });

TEST(TypeMappingCodesTest, AreTheNumbersOfTheHost) {
    EXPECT_EQ(static_cast<int>(ToCoreType(static_cast<Pegasus::CIMType>(0), false)), 1);
    EXPECT_EQ(static_cast<int>(ToCoreType(static_cast<Pegasus::CIMType>(13), false)), 14);
    EXPECT_EQ(static_cast<int>(ToCoreType(static_cast<Pegasus::CIMType>(0), true)), 17);
    EXPECT_EQ(static_cast<int>(ToCoreType(static_cast<Pegasus::CIMType>(14), true)), 31);
    EXPECT_EQ(static_cast<int>(ToCoreType(static_cast<Pegasus::CIMType>(15), false)), 0);
    EXPECT_EQ(static_cast<int>(ToCoreType(static_cast<Pegasus::CIMType>(16), true)), 16);
}

}  // namespace
}  // namespace NQELVSK20
