#include "cimom/http/FaultPlan.h"

#include <gtest/gtest.h>

namespace cimom {
namespace {

Fault fault(int code) {
    Fault made;
    made.kind = Fault::Kind::HttpStatus;
    made.code = code;
    return made;
}

int take(FaultPlan& plan, const char* address = "127.0.0.1", const char* operation = "GetClass",
         const char* className = "C") {
    const auto taken = plan.take(address, operation, className);
    return taken ? taken->code : 0;
}

TEST(FaultPlan, AppliesAFaultWithoutCriteriaToEveryRequest) {
    FaultPlan plan;
    plan.add(fault(500));
    EXPECT_EQ(take(plan), 500);
    EXPECT_EQ(take(plan, "::1", "", ""), 500);
}

TEST(FaultPlan, AppliesAFaultOnlyWhereEveryCriterionMatches) {
    FaultPlan plan;
    Fault made = fault(500);
    made.address = "127.0.0.2";
    made.operation = "getclass";
    made.className = "omc_c";
    plan.add(made);
    EXPECT_EQ(take(plan, "127.0.0.2", "GetClass", "OMC_C"), 500);
    EXPECT_EQ(take(plan, "127.0.0.1", "GetClass", "OMC_C"), 0);
    EXPECT_EQ(take(plan, "127.0.0.2", "GetInstance", "OMC_C"), 0);
    EXPECT_EQ(take(plan, "127.0.0.2", "GetClass", "OMC_D"), 0);
}

TEST(FaultPlan, TriesFaultsInTheOrderAddedAndUsesThemUp) {
    FaultPlan plan;
    Fault first = fault(1);
    first.times = 2;
    plan.add(first);
    plan.add(fault(2));
    EXPECT_EQ(take(plan), 1);
    EXPECT_EQ(take(plan), 1);
    EXPECT_EQ(take(plan), 2);
}

TEST(FaultPlan, ForgetsAllWhenCleared) {
    FaultPlan plan;
    plan.add(fault(1));
    plan.clear();
    EXPECT_EQ(take(plan), 0);
}

}  // namespace
}  // namespace cimom
