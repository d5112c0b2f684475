// A machine of one or two nodes whose servers answer arbitrary bytes, and a host that asks the plug-in for a
// class and then for its instances, and reads all of it. Then the servers come to their senses: what the host
// asks next is answered as if nothing had been.
//
// The first byte says how the host asks and how the answers come. The rest is the answers, one for each
// request, in the order of the requests, with "\n----\n" between them. One that begins with "HTTP/" is sent
// as it stands; any other is an answer's body and gets a header. When there are no more, servers close the
// connection. ID="1001" stands for the number of whatever request is answered.

#include <algorithm>
#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cimhttp/TCimHTTPNamespace.h"
#include "cimhttp/TCimHTTPNamespaceProvider.h"
#include "cimxml/client/CIMClientRep.h"
#include "cimxml/wire/ByteStream.h"
#include "cimxml/wire/Limits.h"
#include "connection/client/Nodes.h"
#include "connection/client/ServerLink.h"
#include "connection/client/Waiting.h"
#include "fuzz/CommonNamespace.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/ICIMInstance.h"
#include "vskcore/ICIMMethodDecl.h"
#include "vskcore/ICIMParameterDecl.h"
#include "vskcore/ICIMProperty.h"
#include "vskcore/ICIMQualifier.h"
#include "vskcore/TVSKException.h"

namespace {

using namespace NQELVSK20;

constexpr std::string_view kSeparator = "\n----\n";
constexpr std::string_view kIdInAnswers = "ID=\"1001\"";
constexpr std::string_view kIdInRequests = "<MESSAGE ID=\"";
constexpr const char* kNextClass = "X_Next";
constexpr std::string_view kDefinition =
    R"(<CIM><MESSAGE ID="1001"><SIMPLERSP><IMETHODRESPONSE NAME="GetClass"><IRETURNVALUE><CLASS NAME="X_Next">)"
    R"(<PROPERTY NAME="Id" TYPE="string"/></CLASS></IRETURNVALUE></IMETHODRESPONSE></SIMPLERSP></MESSAGE></CIM>)";
constexpr std::string_view kInstances =
    R"(<CIM><MESSAGE ID="1001"><SIMPLERSP><IMETHODRESPONSE NAME="EnumerateInstances"><IRETURNVALUE>)"
    R"(<VALUE.NAMEDINSTANCE><INSTANCENAME CLASSNAME="X_Next"/><INSTANCE CLASSNAME="X_Next">)"
    R"(<PROPERTY NAME="Id" TYPE="string"><VALUE>1</VALUE></PROPERTY></INSTANCE></VALUE.NAMEDINSTANCE>)"
    R"(</IRETURNVALUE></IMETHODRESPONSE></SIMPLERSP></MESSAGE></CIM>)";

/// What the servers have still to say, whichever of them is asked.
struct Script {
    std::string_view answers;
    std::size_t piece = 0;  ///< So many bytes come at a time.
    bool isSane = false;    ///< The answers are no longer from the script but right.

    std::string_view Next() {
        const std::size_t end = std::min(answers.find(kSeparator), answers.size());
        const std::string_view answer = answers.substr(0, end);
        answers.remove_prefix(std::min(end + kSeparator.size(), answers.size()));
        return answer;
    }
};

Script& TheScript() {
    static Script script;
    return script;
}

std::string IdOf(std::string_view request) {
    const std::size_t start = request.find(kIdInRequests);
    if (start == std::string_view::npos) {
        return {};
    }
    const std::string_view rest = request.substr(start + kIdInRequests.size());
    return std::string(rest.substr(0, rest.find('"')));
}

/// An answer as it goes over the connection.
std::string Framed(std::string_view answer, const std::string& id) {
    std::string text(answer);
    const std::size_t at = text.find(kIdInAnswers);
    if (at != std::string::npos) {
        text.replace(at, kIdInAnswers.size(), "ID=\"" + id + '"');
    }
    if (text.rfind("HTTP/", 0) == 0) {
        return text;
    }
    return "HTTP/1.1 200 OK\r\nCIMOperation: MethodResponse\r\nContent-Length: " +
           std::to_string(text.size()) + "\r\n\r\n" + text;
}

/// The right answer to a request, of a server whose classes are all alike and have one instance each.
std::string_view RightAnswer(std::string_view request) {
    return request.find("\"EnumerateInstances\"") == std::string_view::npos ? kDefinition : kInstances;
}

/// A connection to a server that answers each request as the script says.
class ScriptedStream : public cimxml::ByteStream {
public:
    void write(std::string_view bytes, cimxml::Deadline) override { request_ += bytes; }

    std::size_t read(char* buffer, std::size_t size, cimxml::Deadline) override {
        if (!request_.empty()) {
            Answer();
        }
        const std::size_t count = std::min({size, TheScript().piece, answer_.size() - sent_});
        std::memcpy(buffer, answer_.data() + sent_, count);
        sent_ += count;
        return count;
    }

    std::optional<std::size_t> readAvailable(char*, std::size_t) override {
        if (sent_ < answer_.size()) {
            return 0;  // bytes that nobody asked for: as good as closed
        }
        return std::nullopt;
    }

private:
    void Answer() {
        const std::string_view answer = TheScript().isSane ? RightAnswer(request_) : TheScript().Next();
        answer_ = answer.empty() ? std::string() : Framed(answer, IdOf(request_));
        sent_ = 0;
        request_.clear();
    }

    std::string request_;
    std::string answer_;
    std::size_t sent_ = 0;
};

cimxml::Limits SmallLimits() {
    cimxml::Limits limits;
    limits.headerBytes = 2048;
    limits.bodyBytes = 65536;
    limits.xmlNodes = 20000;
    limits.pieceBytes = 256;
    return limits;
}

/// The remote library's client over such connections.
class ScriptedLink : public ServerLink {
public:
    void Connect(const ServerAddress& to) override {
        client_.connect([](cimxml::Deadline) { return std::make_unique<ScriptedStream>(); }, to.host.c_str(),
                        static_cast<Pegasus::Uint32>(to.port), to.user.c_str(), to.password.c_str());
    }
    void Disconnect() override { client_.disconnect(); }
    void SetTimeout(unsigned int milliseconds) override { client_.setTimeout(milliseconds); }

    Pegasus::CIMClass GetClass(const Namespace& nameSpace, const Name& className, bool localOnly,
                               bool includeQualifiers, bool includeClassOrigin,
                               const Properties& propertyList) override {
        return client_.getClass(nameSpace, className, localOnly, includeQualifiers, includeClassOrigin,
                                propertyList);
    }
    Pegasus::Array<Pegasus::CIMInstance> EnumerateInstances(const Namespace& nameSpace, const Name& className,
                                                            bool deepInheritance, bool localOnly,
                                                            bool includeQualifiers, bool includeClassOrigin,
                                                            const Properties& propertyList) override {
        return client_.enumerateInstances(nameSpace, className, deepInheritance, localOnly, includeQualifiers,
                                          includeClassOrigin, propertyList);
    }

private:
    Pegasus::CIMClientRep client_{SmallLimits()};
};

/// A namespace that every run's are copies of: so that node 0's client, which stays until the process ends,
/// is one for all of them.
const TCimHTTPNamespace& Prototype() {
    static const auto prototype = [] {
        ReplacePause([](unsigned int) {});
        ReplaceServerLinks([] { return std::make_unique<ScriptedLink>(); });
        const auto made = boost::make_shared<TCimHTTPNamespace>(true, "root/cimv2");
        made->SetUpcallNamespace(CommonNamespace(), {});
        made->Init();
        return made;
    }();
    return *prototype;
}

boost::shared_ptr<TCimHTTPNamespace> Fresh() {
    const auto nameSpace = boost::make_shared<TCimHTTPNamespace>(Prototype());
    nameSpace->Initialize({{"pluginNameQualDeclValue", TCIMValue("cimhttp.nsp")}});
    return nameSpace;
}

void ReadQualifiers(const ICIMNamedElement& element) {
    element.EnumerateQualifiers(
        [](const boost::shared_ptr<ICIMQualifier>& qualifier) {
            qualifier->GetName({});
            qualifier->GetValue({}).ToString(10);
            return true;
        },
        {});
}

void ReadDefinition(const ICIMClass& cimClass) {
    cimClass.IsAssociation({});
    cimClass.EnumeratePropertyDecls(
        [](const boost::shared_ptr<ICIMPropertyDecl>& property) {
            property->GetName({});
            ReadQualifiers(*property);
            return true;
        },
        {});
    cimClass.EnumerateMethodDecls(
        [](const boost::shared_ptr<ICIMMethodDecl>& method) {
            method->EnumerateParameterDecls(
                [](const boost::shared_ptr<ICIMParameterDecl>& parameter) {
                    parameter->GetType({});
                    return true;
                },
                {});
            return true;
        },
        {});
}

std::size_t ReadInstances(ICIMClass& cimClass, bool deep) {
    std::size_t count = 0;
    cimClass.EnumerateInstances(
        [&](const boost::shared_ptr<ICIMInstance>& instance) {
            instance->GetReference({}).GetPath();
            instance->EnumerateProperties(
                [](const boost::shared_ptr<ICIMProperty>& property) {
                    property->GetValue({}).ToString(10);
                    return true;
                },
                {});
            ++count;
            return true;
        },
        deep, {});
    return count;
}

void Ask(TCimHTTPNamespace& nameSpace, bool deep) {
    try {
        if (const auto cimClass = nameSpace.GetClass("X_Class", {})) {
            ReadDefinition(*cimClass);
            ReadInstances(*cimClass, deep);
        }
    } catch (const TVSKException&) {
        // A status that the host is told.
    }
}

/// Whatever the answers were: they cost nothing but themselves.
void AskSaneServers(TCimHTTPNamespace& nameSpace) {
    TheScript().isSane = true;
    const auto next = nameSpace.GetClass(kNextClass, {});
    if (!next || ReadInstances(*next, false) == 0) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const unsigned options = data[0];
    const std::size_t nodes = options & 1U ? 2 : 1;
    TheScript() = {{reinterpret_cast<const char*>(data) + 1, size - 1}, options & 2U ? 7U : 65536U, false};
    HypervisorDetectionDone() = (options & 4U) != 0;
    const auto nameSpace = Fresh();
    const std::vector<std::string> credentials(nodes, "x");
    nameSpace->connect(std::vector<std::string>(nodes, "server"), credentials, credentials);
    Ask(*nameSpace, (options & 8U) == 0);
    AskSaneServers(*nameSpace);
    nameSpace->disconnect();
    return 0;
}
