#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <exception>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tools/common/Options.h"
#include "tools/console/ConsoleLogger.h"
#include "tools/console/Notices.h"
#include "tools/console/Progress.h"
#include "tools/machine/ClientListener.h"
#include "tools/machine/EmbeddedMachine.h"
#include "tools/machine/Machine.h"
#include "tools/machine/ReceivedInstances.h"
#include "tools/machine/RemoteDefinitions.h"
#include "tools/machine/RequestStatistics.h"
#include "tools/machine/RequestTrace.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/ICIMInstance.h"
#include "vskcore/ICIMQualifierDecl.h"
#include "vskcore/TCIMReference.h"
#include "vskcore/TCIMValue.h"
#include "vskcore/TContext.h"

namespace NQELVSK20 {
class TCimHTTPNamespace;
}  // namespace NQELVSK20

namespace tool {

/// The host around the plug-in: loads its provider, has a namespace allocated and connected to the machine's
/// nodes, and passes questions on. Failures on the way are said on standard error.
///
/// One session a process: the plug-in and the host's services are process-wide. A node that cannot be asked
/// costs its own part of the answer, and the next one stands in for the first. Every operation but
/// enumerateInstances throws Failure when the first node refuses user or password.
class Session {
public:
    /// What `options` says: the nodes with their passwords, or the embedded machine. Throws UsageError when
    /// they do not go together. Connects nothing. `notices` and `progress` must outlive the session.
    Session(const Options& options, Notices& notices, Progress& progress);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Connects every node that can be reached and says which could not. Throws Failure when there is none,
    /// and when there is a method to run and the machine's first node is not among them.
    void connect();

    /// After a Failure: when the first node refused user or password before anything was answered, connects
    /// the others that did not. False when that is not so, or when none is left.
    bool goOnWithoutFirst();

    /// Connects one of the nodes that can be reached, and asks only that one from now on. Throws Failure when
    /// it is lost.
    void askOnly(std::size_t node);

    /// Direct subclasses of a class, of none: the top-level classes. In the server's order.
    std::vector<std::string> classNames(const std::string& className);

    /// Paths of a class's instances on the first node, in the server's order.
    std::vector<std::string> instanceNames(const std::string& className);

    /// The class of a name. Throws UsageError for what is no name and Failure when there is no such class;
    /// the plug-in's namespace shares ownership.
    boost::shared_ptr<NQELVSK20::ICIMClass> getClass(const std::string& className);

    /// The superclass; empty at the top.
    boost::shared_ptr<NQELVSK20::ICIMClass> superclassOf(const NQELVSK20::ICIMClass& cimClass);

    /// Reads every instance and property of a class on the first node, subclasses included.
    void walk(const std::string& className);

    /// Every node's instances, until the callback returns false.
    void enumerateInstances(NQELVSK20::ICIMClass& cimClass, bool deep,
                            const NQELVSK20::ICIMInstance::InstanceCallback& callback);

    /// The instance of a path whose class is known; empty when there is none.
    boost::shared_ptr<NQELVSK20::ICIMInstance> getInstance(const std::string& path);

    struct MethodResult {
        NQELVSK20::TCIMValue value;
        NQELVSK20::TContext outputs;
    };

    /// Runs a method on the first node. Throws Failure when the call failed.
    MethodResult invoke(NQELVSK20::ICIMClass& cimClass, const std::string& path, const std::string& method,
                        const NQELVSK20::TContext& inputs);

    /// The qualifier declarations that the namespace has come to know, in the order of their names.
    std::vector<boost::shared_ptr<NQELVSK20::ICIMQualifierDecl>> qualifierDecls();

    /// A path as a value that can be sent.
    NQELVSK20::TCIMReference reference(const std::string& path) const;

    /// Says a failure that does not end the command, unless it was said already.
    void sayFailure(const std::exception& failure);

    /// Who sees the instances of every answer from now on; empty: nobody.
    void passInstancesTo(ReceivedInstances::Listener listener) { received_.passOnTo(std::move(listener)); }

    /// What the servers gave for the question for instances that was asked last.
    const ReceivedInstances& received() const { return received_; }

    /// The definitions of the classes fetched so far, as the nodes gave them.
    const RemoteDefinitions& definitions() const { return definitions_; }

    /// What became of all requests so far.
    const RequestStatistics& statistics() const { return statistics_; }

    const std::string& nameSpaceName() const { return options_.nameSpace; }

    /// The namespace as the servers call it.
    std::string remoteNameSpaceName() const;

    const Machine& machine() const { return machine_; }
    bool hasFailed() const { return failures() != 0; }

    /// All failures so far are nodes that have not what was asked for.
    bool isOnlyMissing() const { return listener_.nodeFailures().isOnlyMissing(); }

    /// Every node that the last question went to has failed, now or before.
    bool isUnanswered() const;

    /// A method was run, and its return value is a number other than 0.
    bool hasMethodReturnedOther() const { return methodReturnedOther_; }

    /// Errors and remote failures that were said so far.
    std::size_t failures() const { return notices_.failures(); }

private:
    std::vector<Node> nodesToAsk();
    std::vector<Node> nodesOfOptions();
    std::vector<Node> namedNodes() const;
    std::vector<Node> nodesOfEmbeddedMachine();
    void selectNodes();
    void open();
    void requireFirstForMethods() const;
    void setUpHost();
    boost::shared_ptr<NQELVSK20::TCimHTTPNamespace> allocateNamespace();
    void connectNodes();
    void requireFirstNode() const;
    std::string whyNotOffered(const std::string& className) const;
    NQELVSK20::TContext context() const;

    template <typename CALL>
    void ask(ClientListener::Wanted wanted, const std::string& subject, const CALL& call);
    template <typename CALL>
    void askFirstNode(ClientListener::Wanted wanted, const std::string& subject, const CALL& call);

    /// The same about a class that a person named: when there is none of that name, and nothing was answered
    /// before, says which one may have been meant.
    template <typename CALL>
    void askAboutClass(ClientListener::Wanted wanted, const std::string& className, const CALL& call);
    void suggestClass(const std::string& className);

    const Options options_;
    Notices& notices_;
    Progress& progress_;
    std::unique_ptr<EmbeddedMachine> embedded_;  // null when nodes were named
    Machine machine_;
    ConsoleLogger logger_;
    ReceivedInstances received_;
    RemoteDefinitions definitions_;
    RequestStatistics statistics_;
    std::unique_ptr<RequestTrace> trace_;  // null: none is wanted
    ClientListener listener_;
    bool askedAll_ = false;  // by the last question: every node, not the first one only
    bool methodReturnedOther_ = false;
    bool wasAnswered_ = false;                                   // by the first node
    bool isHttpTheOnlyWay_ = false;                              // to the only node
    boost::shared_ptr<NQELVSK20::TCimHTTPNamespace> nameSpace_;  // goes before logger, listener and machine
};

}  // namespace tool
