#include "cimom/http/Delivery.h"

#include <gtest/gtest.h>

namespace cimom {
namespace {

HttpAnswer answer(const std::string& body) {
    HttpAnswer made;
    made.fields = {{"CIMOperation", "MethodResponse"}};
    made.body = body;
    return made;
}

Fault fault(Fault::Kind kind) {
    Fault made;
    made.kind = kind;
    return made;
}

TEST(Delivery, AnnouncesTheLengthOfTheBody) {
    const Delivery delivery = makeDelivery(answer("12345"), {}, std::nullopt);
    EXPECT_EQ(delivery.head, "HTTP/1.1 200 OK\r\nCIMOperation: MethodResponse\r\nContent-Length: 5\r\n\r\n");
    EXPECT_EQ(delivery.body, "12345");
    EXPECT_EQ(delivery.after, Delivery::After::Continue);
    EXPECT_EQ(delivery.status, 200);
}

TEST(Delivery, SaysWhenTheConnectionEnds) {
    const Delivery delivery = makeDelivery(answer(""), {0, false}, std::nullopt);
    EXPECT_NE(delivery.head.find("Connection: close\r\n"), std::string::npos);
    EXPECT_EQ(delivery.after, Delivery::After::Close);
}

TEST(Delivery, CutsABodyIntoChunksWithATrailer) {
    const Delivery delivery = makeDelivery(answer("0123456789abcdefXY"), {16, true}, std::nullopt);
    EXPECT_EQ(delivery.body, "10\r\n0123456789abcdef\r\n2\r\nXY\r\n0\r\nCIMStatusCode: 0\r\n\r\n");
    EXPECT_NE(delivery.head.find("Transfer-Encoding: chunked\r\n"), std::string::npos);
    EXPECT_EQ(delivery.head.find("Content-Length"), std::string::npos);
}

TEST(Delivery, DoesNotChunkRefusals) {
    const Delivery delivery = makeDelivery(plainAnswer(401, "Unauthorized"), {16, true}, std::nullopt);
    EXPECT_NE(delivery.head.find("Content-Length: 0\r\n"), std::string::npos);
}

TEST(Delivery, CutsAtAByteOfHeadAndBodyTogether) {
    Fault cut = fault(Fault::Kind::CloseAtByte);
    const Delivery whole = makeDelivery(answer("12345"), {}, std::nullopt);
    const std::string all = whole.head + whole.body;
    for (cut.bytes = 0; cut.bytes <= all.size() + 5; ++cut.bytes) {
        const Delivery delivery = makeDelivery(answer("12345"), {}, cut);
        EXPECT_EQ(delivery.head + delivery.body, all.substr(0, cut.bytes));
        EXPECT_EQ(delivery.after, Delivery::After::Cut);
    }
}

TEST(Delivery, SendsNothingBeforeAClose) {
    const Delivery delivery = makeDelivery(answer("x"), {}, fault(Fault::Kind::CloseBeforeAnswer));
    EXPECT_EQ(delivery.head + delivery.body, "");
    EXPECT_EQ(delivery.after, Delivery::After::Cut);
    EXPECT_EQ(delivery.status, 0);
}

TEST(Delivery, AnnouncesMoreThanItSends) {
    Fault wrong = fault(Fault::Kind::WrongLength);
    wrong.bytes = 100;
    const Delivery delivery = makeDelivery(answer("12345"), {}, wrong);
    EXPECT_NE(delivery.head.find("Content-Length: 105\r\n"), std::string::npos);
    EXPECT_EQ(delivery.body, "12345");
    EXPECT_EQ(delivery.after, Delivery::After::Cut);
}

TEST(Delivery, AnswersWithAnotherStatus) {
    Fault status = fault(Fault::Kind::HttpStatus);
    status.code = 503;
    status.text = "Busy";
    const Delivery delivery = makeDelivery(answer("x"), {}, status);
    EXPECT_EQ(delivery.head, "HTTP/1.1 503 Busy\r\nContent-Length: 0\r\n\r\n");
    EXPECT_EQ(delivery.body, "");
    EXPECT_EQ(delivery.status, 503);
}

TEST(Delivery, SpoilsTheXmlHalfWay) {
    const Delivery delivery = makeDelivery(answer("<A></A>"), {}, fault(Fault::Kind::MalformedXml));
    EXPECT_EQ(delivery.body, "<A><<& not XML");
    EXPECT_NE(delivery.head.find("Content-Length: 14\r\n"), std::string::npos);
}

TEST(Delivery, PutsBytesThatAreNoTextInEveryPlace) {
    Fault raw = fault(Fault::Kind::RawText);
    raw.text = "ue";
    raw.instead = "\xFCue";
    const Delivery delivery = makeDelivery(answer("<A>ue, ue</A>"), {}, raw);
    EXPECT_EQ(delivery.body, "<A>\xFCue, \xFCue</A>");
    EXPECT_NE(delivery.head.find("Content-Length: 15\r\n"), std::string::npos);
}

TEST(Delivery, ReportsAnErrorInTheTrailers) {
    Fault error = fault(Fault::Kind::TrailerError);
    error.code = 1;
    error.text = "broke half-way";
    const Delivery delivery = makeDelivery(answer("<A/>"), {}, error);
    EXPECT_EQ(delivery.body,
              "4\r\n<A/>\r\n0\r\nCIMStatusCode: 1\r\nCIMStatusCodeDescription: broke half-way\r\n\r\n");
}

TEST(Delivery, HoldsWithoutAnAnswer) {
    const Delivery delivery = makeDelivery(answer("x"), {}, fault(Fault::Kind::NoAnswer));
    EXPECT_EQ(delivery.head + delivery.body, "");
    EXPECT_EQ(delivery.after, Delivery::After::Hold);
    EXPECT_EQ(delivery.status, 0);
}

TEST(Delivery, SendsATextAsItStands) {
    Fault raw = fault(Fault::Kind::RawAnswer);
    raw.text = "anything";
    const Delivery delivery = makeDelivery(answer("x"), {}, raw);
    EXPECT_EQ(delivery.head + delivery.body, "anything");
    EXPECT_EQ(delivery.after, Delivery::After::Continue);
    EXPECT_EQ(delivery.status, 0);
}

TEST(Delivery, DelaysAWholeAnswer) {
    Fault delay = fault(Fault::Kind::Delay);
    delay.delay = std::chrono::milliseconds(70);
    const Delivery delivery = makeDelivery(answer("x"), {}, delay);
    EXPECT_EQ(delivery.delay, delay.delay);
    EXPECT_EQ(delivery.body, "x");
}

}  // namespace
}  // namespace cimom
