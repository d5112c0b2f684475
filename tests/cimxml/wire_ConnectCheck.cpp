// What a caller gives that must not reach a server as it stands.

#include <algorithm>

#include "tests/cimxml/ClientTesting.h"

using namespace Pegasus;

namespace {

class WhatIsGiven : public ClientTest {
protected:
    WhatIsGiven() { serve(); }

    /// A text with everything that stands in it, zeros included.
    static String textOf(const std::string& text) {
        return String(text.data(), static_cast<Uint32>(text.size()));
    }

    template <class Expected>
    std::string refusal(const std::string& to, const std::string& user, const std::string& password,
                        bool encrypted = false) {
        return clientErrorOf<Expected>([&] {
            if (encrypted) {
                const SSLContext context(String(), nullptr, String());
                client.connect(textOf(to), port, context, textOf(user), textOf(password));
            } else {
                client.connect(textOf(to), port, textOf(user), textOf(password));
            }
        });
    }

    std::string cannotCarry(const std::string& what) const {
        return "Cannot connect to " + locator() + ". " + what + ", which Basic authentication cannot carry.";
    }

    /// Heads are lines of visible ASCII.
    static bool isPlain(const std::string& head) {
        for (std::size_t i = 0; i < head.size(); ++i) {
            const bool isLineEnd = head.compare(i, 2, "\r\n") == 0;
            if (!isLineEnd && (head[i] < ' ' || head[i] > '~')) {
                return false;
            }
            i += isLineEnd ? 1 : 0;
        }
        return true;
    }
};

TEST_F(WhatIsGiven, AsAHostIsRefusedWhenItCannotBeOne) {
    const std::string zero(1, '\0');
    for (const auto& [given, shown] :
         {std::pair<std::string, std::string>("127.0.0.1\r\nX-Other: 1", "127.0.0.1%0D%0AX-Other%3A%201"),
          {"127.0.0.1" + zero + "\r\nX-Other: 1", "127.0.0.1%00%0D%0AX-Other%3A%201"},
          {"[::1%1\r\nX-Other: 1]", "%5B%3A%3A1%251%0D%0AX-Other%3A%201%5D"},
          {"127.0.0.1 ", "127.0.0.1%20"},
          {"root@127.0.0.1", "root%40127.0.0.1"},
          {"127.0.0.1/cimom", "127.0.0.1%2Fcimom"},
          {"h\xC3\xB6st", "h%C3%B6st"}}) {
        for (const bool encrypted : {false, true}) {
            EXPECT_EQ(refusal<InvalidLocatorException>(given, "", "", encrypted),
                      "Invalid locator: " + shown + ":" + std::to_string(port));
            EXPECT_THROW(anyRequest(), NotConnectedException);
        }
    }
    EXPECT_EQ(server.connectionsAccepted(), 0U);
}

TEST_F(WhatIsGiven, AsCredentialsIsRefusedWhenTheyCannotBeSentAndIsNotShown) {
    const std::string zero(1, '\0');
    for (const bool encrypted : {false, true}) {
        for (const char* user : {"us\rer", "us\ner",
                                 "us\x7F"
                                 "er"}) {
            EXPECT_EQ(refusal<CannotConnectException>("127.0.0.1", user, "secret", encrypted),
                      cannotCarry("The user's name holds a control character"));
        }
        EXPECT_EQ(refusal<CannotConnectException>("127.0.0.1", "us" + zero + "er", "secret", encrypted),
                  cannotCarry("The user's name holds a control character"));
        EXPECT_EQ(refusal<CannotConnectException>("127.0.0.1", "user:secret", "", encrypted),
                  cannotCarry("The user's name holds a colon"));
        for (const char* password : {"sec\r\nret", "sec\tret"}) {
            EXPECT_EQ(refusal<CannotConnectException>("127.0.0.1", "user", password, encrypted),
                      cannotCarry("The password holds a control character"));
        }
        EXPECT_EQ(refusal<CannotConnectException>("127.0.0.1", "user", "sec" + zero, encrypted),
                  cannotCarry("The password holds a control character"));
    }
    EXPECT_EQ(server.connectionsAccepted(), 0U);
}

TEST_F(WhatIsGiven, AsCredentialsIsSentEncodedWhateverElseStandsInThem) {
    cimom::Endpoint guarded;
    guarded.repository = cimom::Repository::sampleNode(0);
    guarded.credentials = cimom::Credentials{"us er@m\xC3\xB6", "se cret: \xC3\xA9@"};
    const std::uint16_t guardedPort = server.listen(guarded);
    client.connect(host, guardedPort, textOf(guarded.credentials->user),
                   textOf(guarded.credentials->password));
    EXPECT_GT(anyRequest().size(), 0U);
    for (const cimom::SeenRequest& request : server.requests()) {
        EXPECT_TRUE(isPlain(request.head)) << request.head;
    }
}

TEST_F(WhatIsGiven, AsANameIsRefusedWhenItIsNone) {
    for (const std::string& text :
         {std::string("CIM_Fan\r\nX-Other: 1"), std::string("CIM\0Fan", 7), std::string("CIM Fan"),
          std::string("CIM@Fan"), std::string("CIM:Fan"), std::string("CIM\"Fan"), std::string("CIM<Fan")}) {
        EXPECT_THROW(static_cast<void>(CIMName(textOf(text))), InvalidNameException) << text;
        EXPECT_THROW(static_cast<void>(CIMNamespaceName(textOf("root/" + text))),
                     InvalidNamespaceNameException)
            << text;
    }
}

TEST_F(WhatIsGiven, AsANameIsSentEncodedWhenItIsNotAscii) {
    connect();
    const CIMNamespaceName strange(
        textOf("root/gr\xC3\xB6\xC3\x9F"
               "e"));
    EXPECT_THROW(client.enumerateClassNames(strange,
                                            CIMName(textOf("L\xC3\xBC"
                                                           "fter")),
                                            false),
                 CIMException);
    Array<CIMParamValue> outputs;
    EXPECT_THROW(client.invokeMethod(nameSpace, CIMObjectPath("CIM_Fan.Id=\"a\r\n\xC3\xA4\""),
                                     CIMName(textOf("Dr\xC3\xA4nge")), Array<CIMParamValue>(), outputs),
                 CIMException);
    const auto requests = server.requests();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_NE(requests[0].head.find("CIMObject: root%2Fgr%C3%B6%C3%9Fe\r\n"), std::string::npos);
    EXPECT_NE(requests[1].head.find("CIMMethod: Dr%C3%A4nge\r\n"), std::string::npos);
    for (const cimom::SeenRequest& request : requests) {
        EXPECT_TRUE(isPlain(request.head)) << request.head;
    }
}

}  // namespace
