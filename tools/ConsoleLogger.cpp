#include "tools/ConsoleLogger.h"

#include <fmt/format.h>

namespace tool {

namespace {

constexpr int kErrorLevel = 0;

// What a person says for an operation of the client.
std::string wordsFor(const std::string& operation) {
    if (operation == "GetClass") {
        return "definition of class";
    }
    if (operation == "EnumerateInstances") {
        return "instances of";
    }
    if (operation == "EnumerateInstanceNames") {
        return "instance names of";
    }
    if (operation == "EnumerateClassNames") {
        return "class names below";
    }
    return operation == "InvokeMethod" ? "calling" : operation;
}

std::string reasonOf(const ClientFailure& failure) {
    if (failure.isTimeout()) {
        return "no answer in time";
    }
    return failure.isCimError() ? "CIM error: " + failure.message : failure.message;
}

}  // namespace

ConsoleLogger::ConsoleLogger(Machine& machine, Notices& notices, Progress& progress, bool verbose)
    : machine_(machine),
      notices_(notices),
      progress_(progress),
      verbose_(verbose),
      report_(machine.nodes().size()),
      conversation_(machine.nodes().size()) {}

void ConsoleLogger::Log(int level, const std::string& text) {
    if (level == kErrorLevel) {
        settle();
        fail(text);
        return;
    }
    if (verbose_) {
        notices_.trace(text);
    }
    const auto failure = clientFailureIn(text);
    if (!failure) {
        settle();  // the client writes no other lines: the request is over
    }
    follow(text);
    if (failure) {
        handle(*failure);
    } else if (const auto property = undeclaredPropertyIn(text)) {
        undeclared_.insert(*property);
    } else if (!isTrace(text)) {
        fail(text);
    }
}

ConnectReport& ConsoleLogger::beginConnect() {
    settle();
    connecting_ = true;
    report_ = ConnectReport(machine_.nodes().size());
    return report_;
}

void ConsoleLogger::beginQuestion(const std::string& subject) {
    settle();
    connecting_ = false;
    conversation_.begin(subject);
}

void ConsoleLogger::fail(const std::string& text) {
    ++failures_;
    notices_.say(text);
}

void ConsoleLogger::follow(const std::string& line) {
    if (connecting_ && beginsNodeConnect(line)) {
        report_.beginNode();
        if (!verbose_) {
            progress_.showNow("connecting " + machine_.where(report_.currentNode()));
        }
    }
    conversation_.see(line);
    showProgress(line);
}

void ConsoleLogger::handle(const ClientFailure& failure) {
    if (failure.isConnect()) {
        handleConnect(failure);
        return;
    }
    endReconnection();
    if (failure.isRefusedLogin()) {
        refuse(failure);
    }
    if (isDetection(failure) && failure.isCimError()) {
        sayAnswered();  // the server does not know the hypervisor's class: it is none
        return;
    }
    handleRequest(failure);
    if (failure.breaksConnection()) {
        beginReconnection(failure);
    }
}

void ConsoleLogger::handleConnect(const ClientFailure& failure) {
    if (connecting_) {
        report_.add(failure);
    } else if (reconnection_) {
        reconnection_->add(failure);
    } else {
        fail(describe(failure));
    }
}

// Several nodes that fail one after the other while a class is built cannot be told from one that fails
// twice: two failures in a row then count as one request's.
void ConsoleLogger::handleRequest(const ClientFailure& failure) {
    const FailedAttempt attempt{failure.operation, describe(failure), excuseFor(failure)};
    const bool isSecond = first_ && first_->operation == attempt.operation;
    if (isSecond) {
        sayFailed(*first_);
        first_.reset();
    } else {
        sayAnswered();
    }
    if (isSecond || failure.isCimError()) {
        sayFailed(attempt);
    } else {
        keep(attempt);
    }
}

void ConsoleLogger::refuse(const ClientFailure& failure) {
    first_.reset();
    refusal_ = CredentialsRefused{connecting_ ? report_.currentNode()
                                              : conversation_.nodeAskedBy(failure.operation)};
    throw *refusal_;
}

bool ConsoleLogger::isDetection(const ClientFailure& failure) const {
    return failure.operation == "EnumerateInstances" && conversation_.isLookingForHypervisor();
}

std::string ConsoleLogger::describe(const ClientFailure& failure) const {
    if (failure.isConnect()) {
        return "reconnecting: " + failure.message;  // the message names the host
    }
    const std::string where = machine_.where(conversation_.nodeAskedBy(failure.operation));
    const std::string& subject = conversation_.subjectOf(failure.operation);
    const std::string question = isDetection(failure)
                                     ? "looking for a hypervisor"
                                     : wordsFor(failure.operation) + (subject.empty() ? "" : " " + subject);
    return fmt::format("{}: {}: {}", where, question, reasonOf(failure));
}

std::string ConsoleLogger::excuseFor(const ClientFailure& failure) const {
    if (isDetection(failure)) {
        return "; it is taken for none";
    }
    const bool isReferenced = failure.operation == "GetClass" && conversation_.isFollowingReferences();
    return isReferenced ? "; only references name it" : "";
}

void ConsoleLogger::keep(const FailedAttempt& attempt) {
    first_ = attempt;
    if (!verbose_) {
        progress_.showNow(attempt.text + "; trying again");
    }
}

void ConsoleLogger::sayFailed(const FailedAttempt& attempt) {
    if (attempt.excuse.empty()) {
        fail(attempt.text);
    } else {
        notices_.say(attempt.text + attempt.excuse);
    }
}

void ConsoleLogger::sayAnswered() {
    if (first_) {
        const bool isMethod = first_->operation == "InvokeMethod";
        notices_.say(first_->text + "; the second attempt was answered" +
                     (isMethod ? ", and the method may have run twice" : ""));
        first_.reset();
    }
}

void ConsoleLogger::beginReconnection(const ClientFailure& failure) {
    if (connecting_) {
        report_.beginAgain();
    } else {
        reconnection_ = Reconnection{conversation_.nodeAskedBy(failure.operation), {}, {}};
    }
}

void ConsoleLogger::endReconnection() {
    if (reconnection_) {
        if (!reconnection_->node) {
            reconnection_->node = machine_.nodeNamedIn(reconnection_->httpsFailure);
        }
        sayReconnected(*reconnection_);
        reconnection_.reset();
    }
}

void ConsoleLogger::sayReconnected(const Reconnection& reconnection) {
    const std::optional<std::size_t> node = reconnection.node;
    if (!reconnection.httpFailure.empty()) {
        fail(machine_.where(node) + ": cannot reconnect: " + reconnection.httpsFailure + ' ' +
             reconnection.httpFailure);
        return;
    }
    const bool overHttps = reconnection.httpsFailure.empty();
    const bool wasOverHttps = !node || machine_.isOverHttps(*node);
    if (node) {
        machine_.setOverHttps(*node, overHttps);
    }
    if (wasOverHttps && !overHttps) {
        notices_.say(machine_.where(node) +
                     ": reconnected over HTTP, now without encryption: " + reconnection.httpsFailure);
    }
}

void ConsoleLogger::settle() {
    endReconnection();
    sayAnswered();
}

void ConsoleLogger::showProgress(const std::string& line) {
    if (verbose_ || !progress_.isEnabled()) {
        return;
    }
    if (const auto answer = nodeAnswerIn(line)) {
        progress_.show(fmt::format("{}: {} instances of {}", machine_.where(answer->node), answer->instances,
                                   answer->className));
    }
}

}  // namespace tool
