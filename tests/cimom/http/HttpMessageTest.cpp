#include "cimom/http/HttpMessage.h"

#include <gtest/gtest.h>

namespace cimom {
namespace {

TEST(HttpRequest, FindsFieldsWithoutRegardToCase) {
    HttpRequest request;
    request.fields = {{"Te", "trailers"}, {"Empty", ""}};
    ASSERT_NE(request.field("TE"), nullptr);
    EXPECT_EQ(*request.field("TE"), "trailers");
    EXPECT_EQ(*request.field("empty"), "");
    EXPECT_EQ(request.field("Other"), nullptr);
}

TEST(HttpRequest, FindsWordsInAList) {
    HttpRequest request;
    request.fields = {{"TE", "gzip;q=0.5 , Trailers;x=1,"}};
    EXPECT_TRUE(request.fieldHas("te", "trailers"));
    EXPECT_TRUE(request.fieldHas("te", "gzip"));
    EXPECT_FALSE(request.fieldHas("te", "trail"));
    EXPECT_FALSE(request.fieldHas("other", "gzip"));
}

}  // namespace
}  // namespace cimom
