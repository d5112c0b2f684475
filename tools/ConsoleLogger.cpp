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

ConsoleLogger::ConsoleLogger(const Machine& machine, Notices& notices, Progress& progress, bool verbose)
    : machine_(machine),
      notices_(notices),
      progress_(progress),
      verbose_(verbose),
      report_(machine.nodes().size()),
      conversation_(machine.nodes().size()) {}

void ConsoleLogger::Log(int level, const std::string& text) {
    if (level == kErrorLevel) {
        fail(text);
        return;
    }
    if (verbose_) {
        notices_.trace(text);
    }
    follow(text);
    if (const auto failure = clientFailureIn(text)) {
        handle(*failure);
    } else if (const auto property = undeclaredPropertyIn(text)) {
        undeclared_.insert(*property);
    } else if (!isTrace(text)) {
        fail(text);
    }
}

ConnectReport& ConsoleLogger::beginConnect() {
    connecting_ = true;
    report_ = ConnectReport(machine_.nodes().size());
    return report_;
}

void ConsoleLogger::beginQuestion(const std::string& subject) {
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
    if (connecting_ && failure.isConnect()) {
        report_.add(failure);
        return;
    }
    const bool isDetection =
        failure.operation == "EnumerateInstances" && conversation_.isLookingForHypervisor();
    if (isDetection && failure.isCimError()) {
        return;  // the server does not know the hypervisor's class: it is none
    }
    if (failure.isRefusedLogin()) {
        refusal_ = CredentialsRefused{connecting_ ? report_.currentNode()
                                                  : conversation_.nodeAskedBy(failure.operation)};
        throw *refusal_;
    }
    fail(describe(failure));
}

std::string ConsoleLogger::describe(const ClientFailure& failure) const {
    if (failure.isConnect()) {
        return "reconnecting: " + failure.message;  // the message names the host
    }
    const std::string where = machine_.where(conversation_.nodeAskedBy(failure.operation));
    const std::string& subject = conversation_.subjectOf(failure.operation);
    const std::string question = wordsFor(failure.operation) + (subject.empty() ? "" : " " + subject);
    return fmt::format("{}: {}: {}", where, question, reasonOf(failure));
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
