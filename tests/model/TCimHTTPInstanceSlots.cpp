// The host calls an instance's operations by their slot.

#include <gtest/gtest.h>

#include "model/TCimHTTPInstance.h"
#include "tests/support/VtableSlot.h"

namespace NQELVSK20 {
namespace {

TEST(TCimHTTPInstanceSlots, AreTheContracts) {
    EXPECT_EQ(SlotOf(&TCimHTTPInstance::Validate), 2U);
    EXPECT_EQ(SlotOf(&TCimHTTPInstance::Commit), 3U);
    EXPECT_EQ(SlotOf(&TCimHTTPInstance::ModifyInstance), 4U);
    EXPECT_EQ(SlotOf(&TCimHTTPInstance::Delete), 5U);
    EXPECT_EQ(SlotOf(&TCimHTTPInstance::GetReference), 6U);
    EXPECT_EQ(SlotOf(&TCimHTTPInstance::GetInstanceReference), 7U);
    EXPECT_EQ(SlotOf(&TCimHTTPInstance::GetClass), 8U);
    EXPECT_EQ(SlotOf(&TCimHTTPInstance::GetPegasusNSPStr), 9U);
    EXPECT_EQ(SlotOf(&TCimHTTPInstance::EnumerateAssociatedInstances), 10U);
    EXPECT_EQ(SlotOf(&TCimHTTPInstance::EnumerateAssociationInstances), 11U);
    EXPECT_EQ(SlotOf(&TCimHTTPInstance::GetProperty), 12U);
    EXPECT_EQ(SlotOf(&TCimHTTPInstance::SetPropertyValue), 13U);
    EXPECT_EQ(SlotOf(&TCimHTTPInstance::EnumerateProperties), 14U);
    EXPECT_EQ(SlotOf(&TCimHTTPInstance::InvokeMethod), 15U);
    EXPECT_EQ(SlotOf(static_cast<bool (TCimHTTPInstance::*)(const ICIMInstance&) const>(
                  &TCimHTTPInstance::operator==)),
              16U);
    EXPECT_EQ(SlotOf(static_cast<bool (TCimHTTPInstance::*)(const ICIMInstance&) const>(
                  &TCimHTTPInstance::operator<)),
              17U);
    EXPECT_EQ(SlotOf(static_cast<ICIMInstance& (TCimHTTPInstance::*)(const ICIMInstance&)>(
                  &TCimHTTPInstance::operator=)),
              18U);
}

}  // namespace
}  // namespace NQELVSK20
