#include "tools/machine/Session.h"

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/Exception.h>

#include <algorithm>
#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>
#include <cstdlib>

#include "cimhttp/PegClient.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "cimhttp/TCimHTTPNamespaceProvider.h"
#include "qelc/TQELCNamespace.h"
#include "tools/common/Failure.h"
#include "tools/common/Names.h"
#include "tools/common/Nearest.h"
#include "tools/common/SafeText.h"
#include "tools/common/UsageError.h"
#include "tools/console/Terminal.h"
#include "tools/machine/Credentials.h"
#include "tools/machine/NodeSelection.h"
#include "tools/machine/RemoteText.h"
#include "union/TUnionNamespace.h"
#include "vskcore/INamespaceProviderManager.h"
#include "vskcore/THostSetup.h"
#include "vskcore/TRootObject.h"
#include "vskcore/TVSKException.h"

namespace tool {

namespace {

using namespace NQELVSK20;
using Wanted = ClientListener::Wanted;

constexpr std::size_t kEmbeddedNodes = 3;
constexpr const char* kProviderName = "cimhttp";

PasswordSources passwordSources(const Options& options) {
    PasswordSources sources;
    sources.file = options.passwordFile;
    sources.isFileGuarded = options.isPasswordFileGuarded;
    sources.command = options.passwordCommand;
    if (const char* variable = std::getenv("CIMHTTP_PASSWORD")) {
        sources.variable = variable;
    }
    if (terminal::isInput()) {
        sources.ask = terminal::readSecret;
    }
    return sources;
}

std::string textOf(const Pegasus::Exception& error) {
    return static_cast<const char*>(error.getMessage().getCString());
}

// What the plug-in or the client library has against the call; none when it came back.
template <typename CALL>
std::optional<std::string> complaintAbout(const CALL& call) {
    try {
        call();
    } catch (const TVSKException& error) {
        return error.what();
    } catch (const Pegasus::Exception& error) {
        return textOf(error);
    }
    return std::nullopt;
}

// The library takes slashes too many; servers do not.
void requireNamespace(const std::string& name) {
    const bool hasSlashTooMany =
        name.empty() || name.front() == '/' || name.back() == '/' || name.find("//") != std::string::npos;
    if (hasSlashTooMany || complaintAbout([&] { const Pegasus::CIMNamespaceName valid(name.c_str()); })) {
        throw UsageError("--namespace '" + cutTo(name, 24) +
                         "': names between single slashes, as in root/cimv2");
    }
}

void requireNode(std::optional<std::size_t> node, std::size_t nodes) {
    if (node && *node > nodes) {
        throw UsageError("--on " + std::to_string(*node) + ": a node's number from 1 to " +
                         std::to_string(nodes) + " is expected");
    }
}

// Zero stands for success; a method may as well return what is no number.
bool isOtherThanZero(const TCIMValue& value) {
    const TCIMValue::TCIMType::ECIMType type = value.GetType();
    const bool isInteger = type >= TCIMValue::TCIMType::eUint8 && type <= TCIMValue::TCIMType::eSint64;
    return isInteger && !value.IsNull() && value.ToString(10) != "0";
}

}  // namespace

Session::Session(const Options& options, Notices& notices, Progress& progress)
    : options_(options),
      notices_(notices),
      progress_(progress),
      machine_(nodesToAsk()),
      logger_(notices, options.verbose),
      listener_(machine_, notices, progress, received_, definitions_) {
    requireNode(options_.onNode, machine_.nodes().size());
    listener_.addListener(statistics_);
    if (!options_.traceFile.empty()) {
        trace_ = std::make_unique<RequestTrace>(options_.traceFile, notices_);
        listener_.addListener(*trace_);
    }
    setUpHost();
}

Session::~Session() {
    nameSpace_.reset();
    THostSetup::SetCoreLogger(nullptr);
}

std::vector<Node> Session::nodesToAsk() {
    try {
        return nodesOfOptions();
    } catch (const UsageError& error) {
        if (options_.machine.empty()) {
            throw;
        }
        throw UsageError("machine " + options_.machine + ": " + error.what());
    }
}

std::vector<Node> Session::nodesOfOptions() {
    requireNamespace(options_.nameSpace);
    if (options_.nodes.empty()) {
        return nodesOfEmbeddedMachine();
    }
    if (options_.transport == Transport::kHttp && options_.nodes.size() > 1) {
        throw UsageError("--transport http asks a single node; several are asked over https, or auto");
    }
    return namedNodes();
}

std::vector<Node> Session::namedNodes() const {
    std::vector<Node> nodes;
    for (const std::string& text : options_.nodes) {
        nodes.push_back(parseNode(text, options_.user));
    }
    addPasswords(nodes, passwordSources(options_));
    for (Node& node : nodes) {
        node.mayUseHttp = options_.transport ? options_.transport != Transport::kHttps : node.user.empty();
    }
    return nodes;
}

std::vector<Node> Session::nodesOfEmbeddedMachine() {
    const bool single = options_.transport == Transport::kHttp;
    if (single) {
        notices_.say("--transport http asks a single node: the embedded machine has one");
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
    // The plug-in keeps some classes from a machine of one node; a snapshot has what the server has.
    const std::size_t fewest = options_.question == Question::kSnapshot ? 2 : 1;
    THostSetup::SetNodeCount(std::max(machine_.nodes().size(), fewest));
    TCimHTTPNamespaceProvider::Initialize();
}

boost::shared_ptr<TCimHTTPNamespace> Session::allocateNamespace() {
    const auto provider = TRootObject::GetNamespaceProviderManager()->FindProvider(kProviderName);
    if (!provider) {
        throw Failure("the plug-in registered no provider \"cimhttp\"", Failure::Kind::kLocal);
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
    selectNodes();
    open();
}

void Session::selectNodes() {
    if (options_.onNode) {
        machine_.askOnly(*options_.onNode - 1);
    }
    NodeSelection selection(options_, machine_, listener_);
    selection.leaveOutWithoutPassword();
    if (!embedded_ && !machine_.asked().empty()) {
        progress_.begin("looking for the nodes' servers");
        selection.leaveOutUnreachable();
        progress_.end();
        isHttpTheOnlyWay_ = selection.isHttpTheOnlyWay();
    }
}

bool Session::goOnWithoutFirst() {
    const std::vector<std::size_t> asked = machine_.asked();
    if (wasAnswered_ || asked.empty() || !listener_.isRefusedBy(machine_.first())) {
        return false;
    }
    for (const std::size_t node : asked) {
        if (listener_.isRefusedBy(node)) {
            machine_.leaveOut(node);
        }
    }
    if (machine_.asked().empty()) {
        return false;
    }
    open();
    return true;
}

void Session::askOnly(std::size_t node) {
    machine_.askOnly(node);
    open();
}

void Session::open() {
    if (machine_.asked().empty()) {
        throw Failure();  // each was told
    }
    requireFirstForMethods();
    // Nodes keep their numbers when others are left out.
    THostSetup::SetBMCMapping([asked = machine_.asked()](int index) {
        return static_cast<int>(asked.at(static_cast<std::size_t>(index)));
    });
    nameSpace_ = allocateNamespace();
    nameSpace_->ObserveClients(&listener_);
    listener_.beginConnect();
    const auto complaint = complaintAbout([&] {
        nameSpace_->Init();
        connectNodes();
    });
    if (complaint) {
        throw Failure(*complaint);
    }
    requireFirstNode();
    listener_.endConnect();
    if (!machine_.link(machine_.first()).reached) {
        throw Failure(machine_.asked().size() == 1
                          ? ""
                          : "definitions, names and methods come from the first node: "
                            "without it nothing can be asked");
    }
    if (options_.timeoutMs) {
        nameSpace_->setTimeout(*options_.timeoutMs);
    }
}

// A method must not run on another node than was meant, only because that one does not answer.
void Session::requireFirstForMethods() const {
    if (machine_.first() == 0 || options_.onNode || options_.question == Question::kSnapshot) {
        return;
    }
    if (options_.question == Question::kInvoke) {
        throw Failure("methods go to the first node only: none was called");
    }
    notices_.say("definitions and names come from " + machine_.where(machine_.first()) +
                 " instead of node 1");
}

void Session::connectNodes() {
    const Node& first = machine_.nodes()[machine_.first()];
    if (options_.transport == Transport::kHttp || isHttpTheOnlyWay_) {
        nameSpace_->ConnectViaHttp(first.host, first.user, first.password, kHttpPort);
    } else if (machine_.asked().size() == 1) {
        nameSpace_->connect(first.host, first.user, first.password);
    } else {
        std::vector<std::string> hosts;
        std::vector<std::string> users;
        std::vector<std::string> passwords;
        for (const std::size_t index : machine_.asked()) {
            const Node& node = machine_.nodes()[index];
            hosts.push_back(node.host);
            users.push_back(node.user);
            passwords.push_back(node.password);
        }
        nameSpace_->connect(hosts, users, passwords);
    }
}

template <typename CALL>
void Session::ask(Wanted wanted, const std::string& subject, const CALL& call) {
    listener_.beginQuestion(wanted, subject);
    askedAll_ = true;
    if (const auto complaint = complaintAbout(call)) {
        throw Failure(subject + ": " + *complaint);
    }
}

template <typename CALL>
void Session::askFirstNode(Wanted wanted, const std::string& subject, const CALL& call) {
    ask(wanted, subject, call);
    askedAll_ = false;
    requireFirstNode();
    wasAnswered_ = true;
}

void Session::requireFirstNode() const {
    if (listener_.isRefusedBy(machine_.first())) {
        throw Failure();  // said by the listener
    }
}

// The classes are gone through from the top, which takes a question each: not more than a person waits for.
void Session::suggestClass(const std::string& className) {
    constexpr std::size_t kMostQuestions = 64;
    std::vector<std::string> names{""};
    listener_.beginGuess();
    for (std::size_t i = 0; i < std::min(names.size(), kMostQuestions) && !listener_.hasGuessFailed(); ++i) {
        std::vector<std::string> below;
        const auto ask = [&] { nameSpace_->EnumerateClassNames(options_.nameSpace, names[i], below, false); };
        if (complaintAbout(ask)) {
            break;
        }
        names.insert(names.end(), below.begin(), below.end());
    }
    listener_.endGuess();
    const auto meant = nearest(className, names);
    if (meant && !sameName(*meant, className)) {
        notices_.say("did you mean " + *meant + "?");
    }
}

template <typename CALL>
void Session::askAboutClass(Wanted wanted, const std::string& className, const CALL& call) {
    const bool isFirstQuestion = !wasAnswered_;
    askFirstNode(wanted, className, call);
    if (isFirstQuestion && isOnlyMissing() && !className.empty()) {
        suggestClass(className);
    }
}

std::vector<std::string> Session::classNames(const std::string& className) {
    std::vector<std::string> names;
    askAboutClass(Wanted::kContent, className,
                  [&] { nameSpace_->EnumerateClassNames(options_.nameSpace, className, names, false); });
    return names;
}

std::vector<std::string> Session::instanceNames(const std::string& className) {
    std::vector<std::string> names;
    askAboutClass(Wanted::kContent, className,
                  [&] { nameSpace_->EnumerateInstanceNames(options_.nameSpace, className, names); });
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
    const std::size_t failuresBefore = failures();
    askAboutClass(Wanted::kDefinition, className,
                  [&] { found = nameSpace_->GetClass(className, context()); });
    if (!found) {
        if (failures() != failuresBefore) {
            throw Failure();  // said
        }
        throw Failure(whyNotOffered(className), Failure::Kind::kNothingThere);
    }
    return found;
}

boost::shared_ptr<ICIMClass> Session::superclassOf(const ICIMClass& cimClass) {
    boost::shared_ptr<ICIMClass> superclass;
    askFirstNode(Wanted::kDefinition, cimClass.GetName(TContext()),
                 [&] { superclass = cimClass.GetSuperClass(TContext()); });
    const bool isTop = !superclass || superclass->GetName(TContext()) == "<root>";
    return isTop ? nullptr : superclass;
}

std::string Session::remoteNameSpaceName() const {
    return textOf(nameSpace_->getPegNSP()->getString());
}

void Session::sayFailure(const std::exception& failure) {
    if (*failure.what() != '\0') {
        notices_.say(failure.what());
    }
}

void Session::walk(const std::string& className) {
    received_.clear();
    askFirstNode(Wanted::kContent, className, [&] {
        nameSpace_->EnumerateInstances(*nameSpace_->getPegNSP(), Pegasus::CIMName(className.c_str()));
    });
}

void Session::enumerateInstances(ICIMClass& cimClass, bool deep,
                                 const ICIMInstance::InstanceCallback& callback) {
    received_.clear();
    ask(Wanted::kContent, cimClass.GetName(TContext()),
        [&] { cimClass.EnumerateInstances(callback, deep, TContext()); });
}

TCIMReference Session::reference(const std::string& path) const {
    TCIMReference reference(nameSpace_, TContext());
    reference.SetPath(path);
    return reference;
}

boost::shared_ptr<ICIMInstance> Session::getInstance(const std::string& path) {
    received_.clear();
    boost::shared_ptr<ICIMInstance> instance;
    const TCIMReference wanted = reference(path);
    askFirstNode(Wanted::kContent, wanted.GetClassName(),
                 [&] { instance = nameSpace_->GetInstance(wanted, context()); });
    return instance;
}

Session::MethodResult Session::invoke(ICIMClass& cimClass, const std::string& path, const std::string& method,
                                      const TContext& inputs) {
    MethodResult result;
    const std::size_t failuresBefore = failures();
    askFirstNode(Wanted::kContent, method, [&] {
        cimClass.InvokeMethod(result.value, reference(path), method, inputs, result.outputs, context());
    });
    if (failures() != failuresBefore) {
        throw Failure();
    }
    methodReturnedOther_ = isOtherThanZero(result.value);
    return result;
}

bool Session::isUnanswered() const {
    const NodeFailures& failing = listener_.nodeFailures();
    const std::vector<std::size_t>& asked = machine_.asked();
    const auto hasFailed = [&](std::size_t node) { return failing.hasFailed(node); };
    return asked.empty() ||
           (askedAll_ ? std::all_of(asked.begin(), asked.end(), hasFailed) : hasFailed(asked.front()));
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
