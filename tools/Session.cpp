#include "tools/Session.h"

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/Exception.h>

#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>
#include <cstdlib>

#include "cimhttp/PegClient.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "cimhttp/TCimHTTPNamespaceProvider.h"
#include "qelc/TQELCNamespace.h"
#include "tools/Credentials.h"
#include "tools/Failure.h"
#include "tools/Names.h"
#include "tools/Terminal.h"
#include "tools/UsageError.h"
#include "union/TUnionNamespace.h"
#include "vskcore/INamespaceProviderManager.h"
#include "vskcore/THostSetup.h"
#include "vskcore/TRootObject.h"
#include "vskcore/TVSKException.h"

namespace tool {

namespace {

using namespace NQELVSK20;

constexpr std::size_t kEmbeddedNodes = 3;
constexpr const char* kProviderName = "cimhttp";

PasswordSources passwordSources(const Options& options) {
    PasswordSources sources;
    sources.file = options.passwordFile;
    if (const char* variable = std::getenv("CIMHTTP_PASSWORD")) {
        sources.variable = variable;
    }
    if (terminal::isInput()) {
        sources.ask = terminal::readSecret;
    }
    return sources;
}

std::string nameOf(Transport transport) {
    return transport == Transport::kHttp ? "http" : "https";
}

std::string textOf(const Pegasus::Exception& error) {
    return static_cast<const char*>(error.getMessage().getCString());
}

// What the plug-in or the client library has against the call; none when it came back.
template <typename CALL>
std::optional<std::string> complaintAbout(const CALL& call) {
    try {
        call();
    } catch (const CredentialsRefused&) {
        // The logger keeps it: some of the plug-in's operations swallow exceptions.
    } catch (const TVSKException& error) {
        return error.what();
    } catch (const Pegasus::Exception& error) {
        return textOf(error);
    }
    return std::nullopt;
}

}  // namespace

Session::Session(const Options& options, Notices& notices, Progress& progress)
    : options_(options),
      notices_(notices),
      machine_(nodesToAsk()),
      logger_(machine_, notices, progress, options.verbose) {
    setUpHost();
}

Session::~Session() {
    nameSpace_.reset();
    THostSetup::SetCoreLogger(nullptr);
}

std::vector<Node> Session::nodesToAsk() {
    if (options_.nodes.empty()) {
        return nodesOfEmbeddedMachine();
    }
    if (options_.transport != Transport::kAuto && options_.nodes.size() > 1) {
        throw UsageError("--transport " + nameOf(options_.transport) +
                         " connects a single node; several nodes are connected with --transport auto");
    }
    std::vector<Node> nodes;
    for (const std::string& text : options_.nodes) {
        nodes.push_back(parseNode(text, options_.user));
    }
    addPasswords(nodes, passwordSources(options_));
    return nodes;
}

std::vector<Node> Session::nodesOfEmbeddedMachine() {
    const bool single = options_.transport != Transport::kAuto;
    if (single) {
        notices_.say("--transport " + nameOf(options_.transport) +
                     " connects a single node: the embedded machine has one");
    }
    embedded_ = std::make_unique<EmbeddedMachine>(single ? 1 : kEmbeddedNodes);
    std::vector<Node> nodes;
    for (const std::string& host : embedded_->hosts()) {
        nodes.push_back({host, {}, {}});
    }
    return nodes;
}

void Session::setUpHost() {
    THostSetup::SetCoreLogger(&logger_);
    THostSetup::SetNodeCount(machine_.nodes().size());
    THostSetup::SetBMCMapping([](int index) { return index; });
    TCimHTTPNamespaceProvider::Initialize();
}

boost::shared_ptr<TCimHTTPNamespace> Session::allocateNamespace() {
    const auto provider = TRootObject::GetNamespaceProviderManager()->FindProvider(kProviderName);
    if (!provider) {
        throw Failure("the plug-in registered no provider \"cimhttp\"");
    }
    const TContext context{{"pluginNameQualDeclValue", TCIMValue(kProviderName)}};
    const auto nameSpace = boost::dynamic_pointer_cast<TCimHTTPNamespace>(
        provider->AllocateNamespace(context, false, options_.nameSpace));
    const auto common = boost::make_shared<TQELCNamespace>();
    common->SetUpcallNamespace(boost::make_shared<TUnionNamespace>(), TContext());
    nameSpace->SetUpcallNamespace(common, TContext());
    return nameSpace;
}

void Session::connect() {
    nameSpace_ = allocateNamespace();
    ConnectReport& report = logger_.beginConnect();
    try {
        nameSpace_->Init();
        connectNodes();
    } catch (const TVSKException&) {
        throw Failure();  // said by the logger
    } catch (const CredentialsRefused& refusal) {
        report.finish(options_.transport);
        machine_.setOutcomes(report.outcomes());
        reportRefusal(refusal);
    }
    report.finish(options_.transport);
    machine_.setOutcomes(report.outcomes());
    logger_.beginQuestion({});
    reportConnection(report);
    if (!report.outcomes().front().reached) {
        throw Failure(machine_.nodes().size() == 1
                          ? ""
                          : "definitions, names and methods come from the first node: "
                            "without it nothing can be asked");
    }
    if (options_.timeoutMs) {
        nameSpace_->setTimeout(*options_.timeoutMs);
    }
}

void Session::connectNodes() {
    const std::vector<Node>& nodes = machine_.nodes();
    const Node& first = nodes.front();
    if (options_.transport == Transport::kHttp) {
        nameSpace_->ConnectViaHttp(first.host, first.user, first.password, kHttpPort);
    } else if (options_.transport == Transport::kHttps) {
        nameSpace_->ConnectViaHttps(first.host, first.user, first.password, kHttpsPort);
    } else if (nodes.size() == 1) {
        nameSpace_->connect(first.host, first.user, first.password);
    } else {
        std::vector<std::string> hosts;
        std::vector<std::string> users;
        std::vector<std::string> passwords;
        for (const Node& node : nodes) {
            hosts.push_back(node.host);
            users.push_back(node.user);
            passwords.push_back(node.password);
        }
        nameSpace_->connect(hosts, users, passwords);
    }
}

void Session::reportConnection(const ConnectReport& report) {
    for (std::size_t i = 0; i < report.outcomes().size(); ++i) {
        const ConnectReport::Outcome& outcome = report.outcomes()[i];
        const std::string where = machine_.where(i);
        if (!outcome.reached) {
            logger_.fail(where + ": cannot connect: " + outcome.httpsFailure +
                         (outcome.httpsFailure.empty() || outcome.httpFailure.empty() ? "" : " ") +
                         outcome.httpFailure);
        } else if (!outcome.httpsFailure.empty()) {
            notices_.say(where + ": connected over HTTP, without encryption: HTTPS is not offered");
        }
    }
}

template <typename CALL>
void Session::ask(const std::string& subject, const CALL& call) {
    logger_.beginQuestion(subject);
    const std::optional<std::string> complaint = complaintAbout(call);
    logger_.endQuestion();
    if (complaint) {
        throw Failure(subject + ": " + *complaint);
    }
    if (logger_.refusal()) {
        reportRefusal(*logger_.refusal());
    }
}

void Session::reportRefusal(CredentialsRefused refusal) {
    if (!refusal.node) {
        refusal.node = findRefusingNode();
    }
    const std::string user = refusal.node ? machine_.nodes()[*refusal.node].user : std::string();
    throw Failure(machine_.where(refusal.node) +
                  (user.empty() ? ": asks for a user and a password: --user NAME or --node USER@HOST"
                                : ": refuses user '" + user + "' with the password given"));
}

// The log does not tell every node from the others, so each is asked a small question alone.
std::optional<std::size_t> Session::findRefusingNode() {
    for (std::size_t i = 0; i < machine_.nodes().size(); ++i) {
        if (refuses(i)) {
            return i;
        }
    }
    return std::nullopt;
}

bool Session::refuses(std::size_t node) {
    const auto alone = allocateNamespace();
    const Node& asked = machine_.nodes()[node];
    logger_.forgetRefusal();
    logger_.beginConnect();
    try {
        alone->Init();
        alone->connect(asked.host, asked.user, asked.password);
        std::vector<std::string> names;
        alone->EnumerateClassNames(options_.nameSpace, {}, names, false);
    } catch (const CredentialsRefused&) {
        return true;
    }
    return false;
}

std::vector<std::string> Session::classNames(const std::string& className) {
    std::vector<std::string> names;
    ask(className, [&] { nameSpace_->EnumerateClassNames(options_.nameSpace, className, names, false); });
    return names;
}

std::vector<std::string> Session::instanceNames(const std::string& className) {
    std::vector<std::string> names;
    ask(className, [&] { nameSpace_->EnumerateInstanceNames(options_.nameSpace, className, names); });
    return names;
}

// A class that a server does not know ends in a failure that was said; what is left are the plug-in's rules.
std::string Session::whyNotOffered(const std::string& className) const {
    const std::string text = "the plug-in offers no class " + className;
    return text + (machine_.nodes().size() == 1 ? " on a machine of one node"
                                                : ": it refuses definitions that the nodes disagree on");
}

boost::shared_ptr<ICIMClass> Session::getClass(const std::string& className) {
    requireClassName(className);
    boost::shared_ptr<ICIMClass> found;
    const std::size_t failuresBefore = logger_.failures();
    ask(className, [&] { found = nameSpace_->GetClass(className, context()); });
    if (!found) {
        throw Failure(logger_.failures() != failuresBefore ? std::string() : whyNotOffered(className));
    }
    return found;
}

boost::shared_ptr<ICIMClass> Session::superclassOf(const ICIMClass& cimClass) {
    boost::shared_ptr<ICIMClass> superclass;
    ask(cimClass.GetName(TContext()), [&] { superclass = cimClass.GetSuperClass(TContext()); });
    const bool isTop = !superclass || superclass->GetName(TContext()) == "<root>";
    return isTop ? nullptr : superclass;
}

void Session::sayFailure(const std::exception& failure) {
    if (*failure.what() != '\0') {
        notices_.say(failure.what());
    }
}

void Session::walk(const std::string& className) {
    ask(className, [&] {
        nameSpace_->EnumerateInstances(*nameSpace_->getPegNSP(), Pegasus::CIMName(className.c_str()));
    });
}

void Session::enumerateInstances(ICIMClass& cimClass, bool deep,
                                 const ICIMInstance::InstanceCallback& callback) {
    ask(cimClass.GetName(TContext()), [&] { cimClass.EnumerateInstances(callback, deep, TContext()); });
}

TCIMReference Session::reference(const std::string& path) const {
    TCIMReference reference(nameSpace_, TContext());
    reference.SetPath(path);
    return reference;
}

boost::shared_ptr<ICIMInstance> Session::getInstance(const std::string& path) {
    boost::shared_ptr<ICIMInstance> instance;
    const TCIMReference wanted = reference(path);
    ask(wanted.GetClassName(), [&] { instance = nameSpace_->GetInstance(wanted, context()); });
    return instance;
}

Session::MethodResult Session::invoke(ICIMClass& cimClass, const std::string& path, const std::string& method,
                                      const TContext& inputs) {
    MethodResult result;
    const std::size_t failuresBefore = logger_.failures();
    ask(method, [&] {
        cimClass.InvokeMethod(result.value, reference(path), method, inputs, result.outputs, context());
    });
    if (logger_.failures() != failuresBefore) {
        throw Failure();
    }
    return result;
}

std::vector<boost::shared_ptr<ICIMQualifierDecl>> Session::qualifierDecls() {
    std::vector<boost::shared_ptr<ICIMQualifierDecl>> declarations;
    nameSpace_->EnumerateQualifierDecls(
        [&](const boost::shared_ptr<ICIMQualifierDecl>& declaration) {
            declarations.push_back(declaration);
            return true;
        },
        TContext());
    return declarations;
}

TContext Session::context() const {
    TContext context;
    if (options_.timeoutMs) {
        context["GCTimeout"] = TCIMValue(*options_.timeoutMs);
        context["EITimeout"] = TCIMValue(*options_.timeoutMs);
    }
    return context;
}

}  // namespace tool
