#include "tools/machine/ClientListener.h"

#include <fmt/format.h>

#include <map>

#include "tools/common/Names.h"

namespace tool {

namespace {

using NQELVSK20::ClientFailure;
using Kind = ClientFailure::Kind;

// Asked for by the plug-in itself, once a process.
constexpr const char* kHypervisorClass = "VMware_HypervisorSoftwareIdentity";

// What a person says for an operation of the client.
std::string wordsFor(const std::string& operation) {
    static const std::map<std::string, std::string> words = {{"GetClass", "definition of class"},
                                                             {"EnumerateInstances", "instances of"},
                                                             {"EnumerateInstanceNames", "instance names of"},
                                                             {"EnumerateClassNames", "class names below"},
                                                             {"InvokeMethod", "calling"}};
    const auto found = words.find(operation);
    return found == words.end() ? operation : found->second;
}

std::string reasonOf(const ClientFailure& failure) {
    if (failure.kind == Kind::kTimeout) {
        return "no answer in time";
    }
    return failure.kind == Kind::kCimError ? "CIM error: " + failure.text : failure.text;
}

}  // namespace

void ClientListener::beginConnect() {
    connecting_ = true;
    showConnecting(0);
}

void ClientListener::endConnect() {
    connecting_ = false;
    for (std::size_t node = 0; node < machine_.nodes().size(); ++node) {
        const Machine::Link& link = machine_.link(node);
        if (!link.reached) {
            notices_.fail(machine_.where(node) + ": cannot connect: " + link.failures());
        } else if (!link.overHttps && !link.httpsFailure.empty()) {
            notices_.say(machine_.where(node) +
                         ": connected over HTTP, without encryption: HTTPS is not offered");
        }
    }
}

void ClientListener::beginQuestion(Wanted wanted, const std::string& subject) {
    wanted_ = wanted;
    subject_ = subject;
}

bool ClientListener::AttemptFailed(const ClientFailure& failure) {
    if (failure.kind == Kind::kCannotConnect) {
        loseLink(failure);
        return true;
    }
    if (failure.kind == Kind::kRefusedCredentials) {
        refuse(failure.node);
        return false;
    }
    if (failure.kind == Kind::kCimError && isDetection(failure)) {
        if (first_) {
            Recovered(failure);  // the server does not know the hypervisor's class: it is none
        }
        return true;
    }
    failRequest(failure);
    return true;
}

void ClientListener::Recovered(const ClientFailure& failure) {
    const bool isMethod = failure.operation == "InvokeMethod";
    notices_.say(first_.value_or(describe(failure)) + "; the second attempt was answered" +
                 (isMethod ? ", and the method may have run twice" : ""));
    first_.reset();
}

void ClientListener::Warned(std::size_t node, const std::string& subject, const std::string& text) {
    notices_.say(machine_.where(node) + ": " + subject + ": " + text);
}

void ClientListener::Connected(std::size_t node, bool isEncrypted) {
    Machine::Link& link = machine_.link(node);
    const bool wasOverHttps = link.reached && link.overHttps;
    link.reached = true;
    link.overHttps = isEncrypted;
    if (connecting_) {
        showConnecting(node + 1);
    } else if (wasOverHttps && !isEncrypted) {
        notices_.say(machine_.where(node) +
                     ": reconnected over HTTP, now without encryption: " + link.httpsFailure);
    }
}

// While the nodes are being connected only what comes out in the end is told.
void ClientListener::loseLink(const ClientFailure& failure) {
    Machine::Link& link = machine_.link(failure.node);
    const bool isLastWay = failure.operation == "HTTPConnect";
    (isLastWay ? link.httpFailure : link.httpsFailure) = failure.text;
    if (connecting_) {
        link.reached = false;
        showConnecting(failure.node + (isLastWay ? 1 : 0));
    } else if (isLastWay) {
        notices_.fail(machine_.where(failure.node) + ": cannot reconnect: " + link.failures());
    }
}

void ClientListener::refuse(std::size_t node) {
    first_.reset();
    refusing_.insert(node);
    const std::string& user = machine_.nodes()[node].user;
    notices_.fail(machine_.where(node) +
                  (user.empty() ? ": asks for a user and a password: --user NAME or --node USER@HOST"
                                : ": refuses user '" + user + "' with the password given"));
}

// A CIM error is an answer: no second attempt follows it. Between the first and the second attempt at a
// request, the client makes none at any other.
void ClientListener::failRequest(const ClientFailure& failure) {
    const std::string text = describe(failure);
    if (!first_ && failure.kind != Kind::kCimError) {
        first_ = text;
        progress_.showNow(text + "; trying again");
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
    } else {
        notices_.fail(text);
    }
}

void ClientListener::showConnecting(std::size_t node) {
    if (node < machine_.nodes().size()) {
        progress_.showNow("connecting " + machine_.where(node));
    }
}

bool ClientListener::isDetection(const ClientFailure& failure) const {
    return failure.operation == "EnumerateInstances" && failure.subject == kHypervisorClass &&
           (connecting_ || wanted_ == Wanted::kDefinition);
}

// Content is asked for when its class is known, with all that it derives from.
bool ClientListener::isOfReference(const ClientFailure& failure) const {
    return failure.operation == "GetClass" && wanted_ == Wanted::kContent &&
           !sameName(failure.subject, subject_);
}

std::string ClientListener::describe(const ClientFailure& failure) const {
    const std::string question =
        isDetection(failure)
            ? "looking for a hypervisor"
            : wordsFor(failure.operation) + (failure.subject.empty() ? "" : " " + failure.subject);
    return fmt::format("{}: {}: {}", machine_.where(failure.node), question, reasonOf(failure));
}

}  // namespace tool
