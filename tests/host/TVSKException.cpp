#include "vskcore/TVSKException.h"

#include <gtest/gtest.h>

#include <set>

namespace NQELVSK20 {
namespace {

TEST(TVSKStatusCode, HasTheContractsNumbers) {
    EXPECT_EQ(eVSKSuccess, 0);
    EXPECT_EQ(eVSKNotOffered, 1);
    EXPECT_EQ(eVSKTypeMismatch, 14);
    EXPECT_EQ(eVSKNotFound, 15);
    EXPECT_EQ(eVSKAlreadyExists, 16);
    EXPECT_EQ(eVSKReferenceNotAllowed, 22);
    EXPECT_EQ(eVSKInvalidName, 25);
    EXPECT_EQ(eVSKQualifierConflict, 28);
    EXPECT_EQ(eVSKNotSupported, 31);
    EXPECT_EQ(eVSKMissingContextValue, 32);
    EXPECT_EQ(eVSKRemoteFailure, 42);
}

TEST(TVSKStatusCode, TellsEveryCodeApart) {
    std::set<std::string> texts;
    for (const EVSKStatusCode code :
         {eVSKSuccess, eVSKNotOffered, eVSKTypeMismatch, eVSKNotFound, eVSKAlreadyExists,
          eVSKReferenceNotAllowed, eVSKInvalidName, eVSKQualifierConflict, eVSKNotSupported,
          eVSKMissingContextValue, eVSKRemoteFailure}) {
        const std::string text = TVSKStatusCode(code).TranslateStatusCode();
        EXPECT_NE(text, "status " + std::to_string(code));
        EXPECT_TRUE(texts.insert(text).second) << text;
    }
}

TEST(TVSKStatusCode, GivesTheNumberOfACodeWithoutAText) {
    EXPECT_EQ(TVSKStatusCode(static_cast<EVSKStatusCode>(99)).TranslateStatusCode(), "status 99");
}

TEST(TVSKException, CarriesItsStatusAndSaysItsText) {
    try {
        throw TVSKException(eVSKNotFound);
    } catch (const std::exception& failure) {
        EXPECT_STREQ(failure.what(), TVSKStatusCode(eVSKNotFound).TranslateStatusCode().c_str());
        EXPECT_EQ(dynamic_cast<const TVSKException&>(failure).GetStatusCode(), eVSKNotFound);
    }
}

}  // namespace
}  // namespace NQELVSK20
