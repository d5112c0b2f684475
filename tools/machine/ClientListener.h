#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "cimhttp/ClientObserver.h"
#include "tools/console/Notices.h"
#include "tools/console/Progress.h"
#include "tools/machine/Machine.h"
#include "tools/machine/NodeFailures.h"
#include "tools/machine/ReceivedInstances.h"
#include "tools/machine/RemoteDefinitions.h"
#include "tools/machine/RequestListener.h"

namespace tool {

/// Hears what becomes of the nodes' connections and requests, keeps the machine's links up to date and tells
/// a person what went wrong: which node, what it was asked, and why. A failure that did no harm, since the
/// second attempt was answered or since nobody needs the answer, is told too but does not count.
///
/// Credentials that were refused are not shown to the server again: controllers lock accounts. A node that
/// may not be asked over HTTP is not, when a connection over HTTPS cannot be opened.
///
/// The plug-in numbers the nodes that it was given; what is kept and said here counts all of the machine's.
class ClientListener : public NQELVSK20::ClientObserver {
public:
    /// What the program asks the plug-in for.
    enum class Wanted { kDefinition, kContent };

    /// All must outlive the listener.
    ClientListener(Machine& machine, Notices& notices, Progress& progress, ReceivedInstances& received,
                   RemoteDefinitions& definitions)
        : machine_(machine),
          notices_(notices),
          progress_(progress),
          received_(received),
          definitions_(definitions) {}

    /// Tells another of every request from now on; it must outlive the listener's last one.
    void addListener(RequestListener& listener) { requestListeners_.push_back(&listener); }

    /// The nodes are being connected until endConnect, which tells how it went: a namespace counts as
    /// connected even when no node answered.
    void beginConnect();
    void endConnect();

    /// A node is not asked: a failure, which is told.
    void leaveOut(std::size_t node, const std::string& why);

    /// The plug-in is asked about `subject` from now on, a class or a method.
    void beginQuestion(Wanted wanted, const std::string& subject);

    /// What is asked until endGuess is of no importance: its failures are not told, and not tried again.
    void beginGuess() { isGuessing_ = true; }
    void endGuess() { isGuessing_ = false; }
    bool hasGuessFailed() const { return hasGuessFailed_; }

    /// Whether a node has refused user or password.
    bool isRefusedBy(std::size_t node) const { return refusing_.count(node) != 0; }

    /// Who failed so far.
    const NodeFailures& nodeFailures() const { return nodeFailures_; }

    // ClientObserver
    bool AttemptFailed(const NQELVSK20::ClientFailure& failure) override;
    void Recovered(const NQELVSK20::ClientFailure& failure) override;
    void Warned(std::size_t node, const std::string& subject, const std::string& text) override;
    void Begun(const NQELVSK20::ClientRequest& request) override;
    void Ended(const NQELVSK20::ClientRequest& request, bool answered) override;
    void Received(const NQELVSK20::ClientRequest& request,
                  const Pegasus::Array<Pegasus::CIMInstance>& instances) override;
    void Defined(const NQELVSK20::ClientRequest& request, const Pegasus::CIMClass& definition) override;
    void Connected(std::size_t told, bool isEncrypted) override;

private:
    template <typename TOLD>
    TOLD ofMachine(const TOLD& told) const;
    bool attemptFailed(const NQELVSK20::ClientFailure& failure);
    bool loseLink(const NQELVSK20::ClientFailure& failure);
    void sayLost(std::size_t node, bool wasHttpTried);
    void refuse(std::size_t node);
    void failRequest(const NQELVSK20::ClientFailure& failure);
    void sayRecovered(const NQELVSK20::ClientFailure& failure);
    void sayFailed(const std::string& text, const NQELVSK20::ClientFailure& failure);
    bool isDetection(const NQELVSK20::ClientRequest& request) const;
    bool isOfReference(const NQELVSK20::ClientRequest& request) const;
    std::string describe(const NQELVSK20::ClientRequest& request) const;
    void fail(std::size_t node, const std::string& text);

    Machine& machine_;
    Notices& notices_;
    Progress& progress_;
    ReceivedInstances& received_;
    RemoteDefinitions& definitions_;
    std::vector<RequestListener*> requestListeners_;
    bool connecting_ = false;
    Wanted wanted_ = Wanted::kDefinition;
    std::string subject_;
    std::optional<std::string>
        first_;  // of a request whose second attempt is under way: how the first failed
    bool isGuessing_ = false;
    bool hasGuessFailed_ = false;
    bool isLost_ = false;             // the connection of that request did not come back
    std::set<std::size_t> refusing_;  // nodes
    NodeFailures nodeFailures_;
};

}  // namespace tool
