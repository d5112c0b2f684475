#pragma once

#include <optional>
#include <set>
#include <string>

#include "tools/ConnectReport.h"
#include "tools/Conversation.h"
#include "tools/CredentialsRefused.h"
#include "tools/FailedAttempt.h"
#include "tools/LogLine.h"
#include "tools/Machine.h"
#include "tools/Names.h"
#include "tools/Notices.h"
#include "tools/Progress.h"
#include "tools/Reconnection.h"
#include "vskcore/ILogger.h"

namespace tool {

/// The host's core logger: makes notices for a person out of the plug-in's lines. Errors and remote failures
/// are always said, with the node that failed and what it was asked; trace lines only when `verbose`. A
/// failure that did no harm, since the second attempt was answered or since nobody needs the answer, is said
/// too but does not count.
///
/// Throws CredentialsRefused out of the plug-in when a server wants another user or password.
class ConsoleLogger : public NQELVSK20::ILogger {
public:
    /// All must outlive the logger.
    ConsoleLogger(Machine& machine, Notices& notices, Progress& progress, bool verbose);

    void Log(int level, const std::string& text) override;

    /// The nodes are being connected from now on, until the next beginQuestion: failed attempts are collected
    /// instead of said. The report lives as long as the logger.
    ConnectReport& beginConnect();

    /// The plug-in is asked about `subject` from now on.
    void beginQuestion(const std::string& subject);

    /// The plug-in has come back: what it has not reported a failure of by now was answered.
    void endQuestion() { settle(); }

    /// Says a failure.
    void fail(const std::string& text);

    /// True once an error or a remote failure was said.
    bool hasFailed() const { return failures_ != 0; }

    /// How many were said so far.
    std::size_t failures() const { return failures_; }

    /// The refusal that was thrown, though the plug-in may have swallowed it.
    const std::optional<CredentialsRefused>& refusal() const { return refusal_; }
    void forgetRefusal() { refusal_.reset(); }

    /// Properties that servers sent and classes do not declare, so that the plug-in left them out.
    const std::set<std::string, NameLess>& undeclaredProperties() const { return undeclared_; }

private:
    void follow(const std::string& line);
    void handle(const ClientFailure& failure);
    void handleConnect(const ClientFailure& failure);
    void handleRequest(const ClientFailure& failure);
    [[noreturn]] void refuse(const ClientFailure& failure);
    bool isDetection(const ClientFailure& failure) const;
    std::string describe(const ClientFailure& failure) const;
    std::string excuseFor(const ClientFailure& failure) const;
    void keep(const FailedAttempt& attempt);
    void sayFailed(const FailedAttempt& attempt);
    void sayAnswered();
    void beginReconnection(const ClientFailure& failure);
    void endReconnection();
    void sayReconnected(const Reconnection& reconnection);
    void settle();
    void showProgress(const std::string& line);

    Machine& machine_;
    Notices& notices_;
    Progress& progress_;
    bool verbose_;
    bool connecting_ = false;
    ConnectReport report_;
    Conversation conversation_;
    std::optional<FailedAttempt> first_;        // its second attempt is under way, or was answered
    std::optional<Reconnection> reconnection_;  // under way, or at its end
    std::size_t failures_ = 0;
    std::optional<CredentialsRefused> refusal_;
    std::set<std::string, NameLess> undeclared_;
};

}  // namespace tool
