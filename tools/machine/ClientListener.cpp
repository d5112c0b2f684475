#include "tools/machine/ClientListener.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>

#include "tools/common/Names.h"

namespace tool {

namespace {

using NQELVSK20::ClientFailure;
using NQELVSK20::ClientRequest;
using Kind = ClientFailure::Kind;

// Asked for by the plug-in itself, once a process.
constexpr const char* kHypervisorClass = "VMware_HypervisorSoftwareIdentity";

// What a person says for an operation of the client.
std::string wordsFor(const std::string& operation) {
    static const std::map<std::string, std::string> words = {
        {"GetClass", "definition of class"},
        {"EnumerateInstances", "instances of"},
        {"EnumerateInstanceNames", "instance names of"},
        {"EnumerateClassNames", "class names below"},
        {"InvokeMethod", "calling"},
        {"HTTPSConnect", "connecting over HTTPS"},
        {"HTTPConnect", "connecting over HTTP"},
        {"Reconnect", "waiting before it is connected anew"}};
    const auto found = words.find(operation);
    return found == words.end() ? operation : found->second;
}

// The library's text in a person's words, without a full stop: more may follow in the same line.
std::string inWords(std::string text) {
    if (text.compare(0, 15, "Invalid locator") == 0) {
        return "its name cannot be resolved";
    }
    if (!text.empty() && text.back() == '.') {
        text.pop_back();
    }
    return text;
}

std::string reasonOf(const ClientFailure& failure) {
    if (failure.kind == Kind::kTimeout) {
        return "no answer in time";
    }
    return (failure.kind == Kind::kCimError ? "CIM error: " : "") + inWords(failure.text);
}

// The server answered, and has no such namespace, class or object (DSP0200).
bool isAboutMissing(const ClientFailure& failure) {
    constexpr std::array<int, 3> kMissing = {3, 5, 6};
    return failure.kind == Kind::kCimError &&
           std::find(kMissing.begin(), kMissing.end(), failure.code) != kMissing.end();
}

}  // namespace

void ClientListener::beginConnect() {
    connecting_ = true;
}

void ClientListener::endConnect() {
    connecting_ = false;
    for (const std::size_t node : machine_.asked()) {
        const Machine::Link& link = machine_.link(node);
        if (!link.reached) {
            fail(node, machine_.where(node) + ": cannot connect: " + link.failures());
        } else if (!link.overHttps && !link.httpsFailure.empty()) {
            notices_.say(machine_.where(node) +
                         ": connected over HTTP, without encryption: HTTPS is not offered");
        }
    }
}

void ClientListener::leaveOut(std::size_t node, const std::string& why) {
    machine_.leaveOut(node);
    fail(node, machine_.where(node) + ": " + why);
}

void ClientListener::beginQuestion(Wanted wanted, const std::string& subject) {
    wanted_ = wanted;
    subject_ = subject;
}

// What the plug-in tells of its nodes, which are those that are asked, as told of the machine's.
template <typename TOLD>
TOLD ClientListener::ofMachine(const TOLD& told) const {
    TOLD ofNode = told;
    ofNode.node = machine_.asked().at(told.node);
    return ofNode;
}

bool ClientListener::AttemptFailed(const ClientFailure& failure) {
    const ClientFailure ofNode = ofMachine(failure);
    for (RequestListener* listener : requestListeners_) {
        listener->failed(ofNode);
    }
    return attemptFailed(ofNode);
}

bool ClientListener::attemptFailed(const ClientFailure& failure) {
    if (isGuessing_) {
        hasGuessFailed_ = true;
        return false;
    }
    if (failure.kind == Kind::kCannotConnect) {
        return loseLink(failure);
    }
    if (failure.kind == Kind::kRefusedCredentials) {
        refuse(failure.node);
        return false;
    }
    if (failure.kind == Kind::kCimError && isDetection(failure)) {
        if (first_) {
            sayRecovered(failure);  // the server does not know the hypervisor's class: it is none
        }
        return true;
    }
    failRequest(failure);
    return true;
}

void ClientListener::Recovered(const ClientFailure& failure) {
    sayRecovered(ofMachine(failure));
}

void ClientListener::sayRecovered(const ClientFailure& failure) {
    const bool isMethod = failure.operation == "InvokeMethod";
    notices_.say(first_.value_or(describe(failure) + ": " + reasonOf(failure)) +
                 "; the second attempt was answered" +
                 (isMethod ? ", and the method may have run twice" : ""));
    first_.reset();
}

void ClientListener::Warned(std::size_t node, const std::string& subject, const std::string& text) {
    notices_.say(machine_.where(machine_.asked().at(node)) + ": " + subject + ": " + text);
}

void ClientListener::Connected(std::size_t told, bool isEncrypted) {
    const std::size_t node = machine_.asked().at(told);
    Machine::Link& link = machine_.link(node);
    const bool wasOverHttps = link.reached && link.overHttps;
    link.reached = true;
    link.overHttps = isEncrypted;
    if (!connecting_ && wasOverHttps && !isEncrypted) {
        notices_.say(machine_.where(node) +
                     ": reconnected over HTTP, now without encryption: " + link.httpsFailure);
    }
}

// While the nodes are being connected only what comes out in the end is told.
bool ClientListener::loseLink(const ClientFailure& failure) {
    Machine::Link& link = machine_.link(failure.node);
    const bool isHttp = failure.operation == "HTTPConnect";
    const bool mayGoOn = !isHttp && machine_.nodes()[failure.node].mayUseHttp;
    (isHttp ? link.httpFailure : link.httpsFailure) = inWords(failure.text);
    if (connecting_) {
        link.reached = false;
    } else if (!mayGoOn) {
        sayLost(failure.node, isHttp);
    }
    return mayGoOn;
}

// The request that was under way fails for it: one line for both.
void ClientListener::sayLost(std::size_t node, bool wasHttpTried) {
    const bool isKept = !wasHttpTried && !machine_.nodes()[node].user.empty();
    const std::string why = "cannot reconnect: " + machine_.link(node).failures() +
                            (isKept ? "; HTTP would show the password, --transport auto allows it" : "");
    isLost_ = first_.has_value();
    if (isLost_) {
        *first_ += "; " + why;
    } else {
        fail(node, machine_.where(node) + ": " + why);
    }
}

void ClientListener::refuse(std::size_t node) {
    first_.reset();
    refusing_.insert(node);
    const std::string& user = machine_.nodes()[node].user;
    fail(node, machine_.where(node) +
                   (user.empty() ? ": asks for a user and a password: --user NAME or --node USER@HOST"
                                 : ": refuses user '" + user + "' with the password given"));
}

// A CIM error is an answer: no second attempt follows it. Between the first and the second attempt at a
// request, the client makes none at any other.
void ClientListener::failRequest(const ClientFailure& failure) {
    const std::string text = describe(failure) + ": " + reasonOf(failure);
    if (!first_ && failure.kind != Kind::kCimError) {
        first_ = text;
        return;
    }
    if (first_ && isLost_) {
        isLost_ = false;
        fail(failure.node, *first_);
        first_.reset();
        return;
    }
    if (first_) {
        sayFailed(*first_, failure);
        first_.reset();
    }
    sayFailed(text, failure);
}

void ClientListener::sayFailed(const std::string& text, const ClientFailure& failure) {
    if (isDetection(failure)) {
        notices_.say(text + "; it is taken for none");
    } else if (isOfReference(failure)) {
        notices_.say(text + "; only references name it");
    } else if (isAboutMissing(failure)) {
        nodeFailures_.addMissing(failure.node);
        notices_.fail(text);
    } else {
        fail(failure.node, text);
    }
}

void ClientListener::fail(std::size_t node, const std::string& text) {
    nodeFailures_.addFailed(node);
    notices_.fail(text);
}

bool ClientListener::isDetection(const ClientRequest& request) const {
    return request.operation == "EnumerateInstances" && request.subject == kHypervisorClass &&
           (connecting_ || wanted_ == Wanted::kDefinition);
}

// Content is asked for when its class is known, with all that it derives from.
bool ClientListener::isOfReference(const ClientRequest& request) const {
    return request.operation == "GetClass" && wanted_ == Wanted::kContent &&
           !sameName(request.subject, subject_);
}

std::string ClientListener::describe(const ClientRequest& request) const {
    const std::string question =
        isDetection(request)
            ? "looking for a hypervisor"
            : wordsFor(request.operation) + (request.subject.empty() ? "" : " " + request.subject);
    return machine_.where(request.node) + ": " + question;
}

void ClientListener::Begun(const ClientRequest& request) {
    if (request.operation == "EnumerateInstances") {
        progress_.note({});  // what an earlier answer held
    }
    const ClientRequest ofNode = ofMachine(request);
    progress_.begin(describe(ofNode));
    for (RequestListener* listener : requestListeners_) {
        listener->begun(ofNode, RequestListener::Clock::now());
    }
}

void ClientListener::Ended(const ClientRequest& request, bool answered) {
    for (RequestListener* listener : requestListeners_) {
        listener->ended(ofMachine(request), answered, RequestListener::Clock::now());
    }
    progress_.end();
}

void ClientListener::Received(const ClientRequest& request,
                              const Pegasus::Array<Pegasus::CIMInstance>& instances) {
    const std::size_t node = machine_.asked().at(request.node);
    progress_.note(fmt::format("{}: {} instances of {} received", machine_.where(node), instances.size(),
                               request.subject));
    received_.add(node, request.subject, instances);
    for (RequestListener* listener : requestListeners_) {
        listener->received(instances.size());
    }
}

void ClientListener::Defined(const ClientRequest& request, const Pegasus::CIMClass& definition) {
    definitions_.add(machine_.asked().at(request.node), definition);
    for (RequestListener* listener : requestListeners_) {
        listener->defined(request.subject);
    }
}

}  // namespace tool
