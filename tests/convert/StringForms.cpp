// Which of the host's two text forms of a value goes out to a server: the printed one or the text itself.

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMDateTime.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "convert/ToRemote.h"
#include "provider/contract/PegText.h"
#include "vskcore/TCIMDateTime.h"
#include "vskcore/THostSetup.h"

namespace NQELVSK20 {
namespace {

const char* const kTime = "20240229235959.999999+060";
const char* const kPrintedTime = "20250101000000.000000+000";

/// A host that prints strings and datetimes otherwise than it converts them, and tells the base.
class StringForms : public ::testing::Test {
protected:
    StringForms() {
        THostSetup::SetPrintedForm([](const std::string& text, unsigned char base) {
            return text == kTime ? kPrintedTime : text + " printed in " + std::to_string(base);
        });
    }
    ~StringForms() override { THostSetup::SetPrintedForm({}); }

    static Pegasus::CIMValue ToServer(const TCIMValue& value) {
        Pegasus::CIMValue out;
        ConvertToRemoteValue(value, out);
        return out;
    }

    template <class T>
    static T ContentOf(const Pegasus::CIMValue& value) {
        T content;
        value.get(content);
        return content;
    }

    static TCIMValue ArrayOf(const std::vector<TCIMValue>& elements) {
        return TCIMValue(elements.at(0).GetType(), 0, elements);
    }
};

TEST_F(StringForms, AScalarStringGoesOutAsItIsPrintedInDecimal) {
    const auto out = ContentOf<Pegasus::String>(ToServer(TCIMValue("fan")));
    EXPECT_EQ(ToText(out), "fan printed in 10");
}

TEST_F(StringForms, StringsInAnArrayGoOutAsTheyAre) {
    const auto out = ContentOf<Pegasus::Array<Pegasus::String>>(
        ToServer(ArrayOf({TCIMValue("fan"), TCIMValue("sensor")})));
    ASSERT_EQ(out.size(), 2U);
    EXPECT_EQ(ToText(out[0]), "fan");
    EXPECT_EQ(ToText(out[1]), "sensor");
}

TEST_F(StringForms, AScalarDateTimeGoesOutAsItIsPrinted) {
    const auto out = ContentOf<Pegasus::CIMDateTime>(ToServer(TCIMValue(TCIMDateTime(kTime))));
    EXPECT_EQ(ToText(out.toString()), kPrintedTime);
}

TEST_F(StringForms, DateTimesInAnArrayGoOutAsTheyArePrinted) {
    const auto out =
        ContentOf<Pegasus::Array<Pegasus::CIMDateTime>>(ToServer(ArrayOf({TCIMValue(TCIMDateTime(kTime))})));
    ASSERT_EQ(out.size(), 1U);
    EXPECT_EQ(ToText(out[0].toString()), kPrintedTime);
}

}  // namespace
}  // namespace NQELVSK20
