// What of user and password is left in memory. A program of its own: every block of memory that is freed, by
// the library too, passes here.

#include <malloc.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "tests/cimxml/ClientTesting.h"
#include "tests/support/Process.h"

namespace {

/// Looks for texts in the blocks that are freed while it is switched on.
class FreedMemory {
public:
    static void look(void* block) {
        const std::size_t size = malloc_usable_size(block);
        if (isOn) {
            for (const std::string_view text : sought) {
                found += memmem(block, size, text.data(), text.size()) != nullptr ? 1 : 0;
            }
        }
        std::memset(block, 0, size);  // what becomes of the memory next is no longer about this
    }

    static std::atomic<bool> isOn;
    static std::atomic<int> found;
    static std::array<std::string_view, 4> sought;
};

std::atomic<bool> FreedMemory::isOn{false};
std::atomic<int> FreedMemory::found{0};
std::array<std::string_view, 4> FreedMemory::sought;

void* allocate(std::size_t size) {
    if (void* const block = std::malloc(size == 0 ? 1 : size)) {  // NOLINT(cppcoreguidelines-no-malloc)
        return block;
    }
    throw std::bad_alloc();
}

void release(void* block) {
    if (block != nullptr) {
        FreedMemory::look(block);
        std::free(block);  // NOLINT(cppcoreguidelines-no-malloc)
    }
}

}  // namespace

void* operator new(std::size_t size) {
    return allocate(size);
}
void* operator new[](std::size_t size) {
    return allocate(size);
}
void operator delete(void* block) noexcept {
    release(block);
}
void operator delete[](void* block) noexcept {
    release(block);
}
void operator delete(void* block, std::size_t) noexcept {
    release(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    release(block);
}

namespace {

using namespace Pegasus;

struct Login {
    const char* name;  // of the case
    std::string_view user;
    std::string_view password;
    std::string_view utf16;   // how the password begins
    std::string_view base64;  // user and password
};

void PrintTo(const Login& login, std::ostream* out) {
    *out << login.name;
}

// One that a string keeps within itself, and one that it does not. A part is sought where the whole might
// begin anywhere within a group of base64.
const Login kLogins[] = {
    {"Short", "anna", "Geheim-7.Wort", {"G\0e\0h\0e\0i\0m\0-\0", 14}, "YW5uYTpHZWhlaW0tNy5Xb3J0"},
    {"Long",
     "berta",
     "correct-horse-battery-staple-2f91",
     {"c\0o\0r\0r\0e\0c\0t\0-\0", 16},
     "YmVydGE6Y29ycmVjdC1ob3JzZS1iYXR0ZXJ5LXN0YXBsZS0yZjkx"}};

/// cimom in a process of its own, whose memory is not looked at.
class GuardedServer {
public:
    explicit GuardedServer(const Login& login) {
        const std::string file = testing::TempDir() + "cimxml-memory-" + login.name;
        std::ofstream(file) << login.password << '\n';
        process_ = std::make_unique<support::Process>(
            std::vector<std::string>{CIMOM_PROGRAM, "--http-port", "0", "--https-port", "0", "--user",
                                     std::string(login.user), "--password-file", file});
        httpPort = portIn(process_->readLine());
        httpsPort = portIn(process_->readLine());
        std::remove(file.c_str());
    }

    Uint32 httpPort = 0;
    Uint32 httpsPort = 0;

private:
    static Uint32 portIn(const std::string& line) {
        return static_cast<Uint32>(std::stoul(line.substr(line.rfind(':') + 1)));
    }

    std::unique_ptr<support::Process> process_;
};

class CredentialsInMemory : public testing::TestWithParam<Login> {
protected:
    CredentialsInMemory() {
        FreedMemory::sought = {GetParam().password, GetParam().utf16, GetParam().base64,
                               "Authorization: Basic "};
    }

    static String textOf(std::string_view text) {
        return String(text.data(), static_cast<Uint32>(text.size()));
    }

    const String host_{"127.0.0.1"};
    const String user_ = textOf(GetParam().user);
    const String password_ = textOf(GetParam().password);
    const CIMNamespaceName nameSpace_{"root/cimv2"};
    const CIMName class_{"OMC_NumericSensor"};
};

INSTANTIATE_TEST_SUITE_P(Logins, CredentialsInMemory, testing::ValuesIn(kLogins),
                         [](const auto& login) { return login.param.name; });

TEST_P(CredentialsInMemory, AreFoundWhereATextIsJustFreed) {
    FreedMemory::found = 0;
    FreedMemory::isOn = true;
    { const std::vector<char> text(GetParam().password.begin(), GetParam().password.end()); }
    FreedMemory::isOn = false;
    EXPECT_EQ(FreedMemory::found, 1);
}

TEST_P(CredentialsInMemory, AreOverwrittenByTheLibraryBeforeItFreesAnything) {
    const GuardedServer server(GetParam());
    for (const bool encrypted : {false, true}) {
        Uint32 answers = 0;
        FreedMemory::found = 0;
        FreedMemory::isOn = true;
        {
            CIMClient client;
            for (int round = 0; round < 2; ++round) {
                if (encrypted) {
                    const SSLContext context(String(), nullptr, String());
                    client.connect(host_, server.httpsPort, context, user_, password_);
                } else {
                    client.connect(host_, server.httpPort, user_, password_);
                }
                answers += client.enumerateInstanceNames(nameSpace_, class_).size();
                answers += client.enumerateInstanceNames(nameSpace_, class_).size();
                if (round == 0) {
                    client.disconnect();
                }
            }
        }
        FreedMemory::isOn = false;
        EXPECT_EQ(answers, 4U * 13U) << "let in";
        EXPECT_EQ(FreedMemory::found, 0) << (encrypted ? "https" : "http");
    }
}

}  // namespace
