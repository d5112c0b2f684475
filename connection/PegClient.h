#pragma once

#include <Pegasus/Client/CIMClient.h>

#include <boost/function.hpp>
#include <memory>
#include <string>
#include <vector>

#include "connection/Export.h"

namespace NQELVSK20 {

/// The remote client of one node: one CIM-XML connection that remembers how it was opened.
///
/// No exception of the remote library leaves it: a failure is logged at level 3 and shows as false or as an
/// empty result. A request on a client that is not connected gives an empty result at once. A request that
/// times out is tried once more with twice the time; one whose connection breaks is tried once more after
/// `Reconnect`, with the time that the caller gave; one that the server answers with a CIM error is not
/// repeated.
///
/// Not thread-safe. Starts no thread; a reconnection blocks the caller for 5000 ms.
class CIMHTTP_EXPORT PegClient {
public:
    PegClient();
    ~PegClient();
    PegClient(const PegClient&) = delete;
    PegClient& operator=(const PegClient&) = delete;

    /// Opens a connection over HTTP. False when that failed; the reason is in the log.
    bool HTTPConnect(std::string host, std::string user, std::string password, int port);

    /// Opens a connection over TLS; the server's certificate is not checked.
    bool HTTPSConnect(std::string host, std::string user, std::string password, int port);

    /// HTTPS on port 5989, and HTTP on port 5988 when that fails.
    bool Connect(std::string host, std::string user, std::string password);

    void Disconnect();

    /// Disconnects, waits 5000 ms and connects as `Connect` with the host and credentials used last: also
    /// over plain HTTP when HTTPS fails, whichever of the two the connection was opened with before.
    void Reconnect();

    /// The remote library's client; owned by this object and valid as long as it.
    Pegasus::CIMClient* GetCIMClient() { return client_.get(); }

    /// A class definition; a null one after a failure. The time-out is in milliseconds, here and below.
    Pegasus::CIMClass GetClass(std::string nameSpace, std::string className, unsigned int timeout,
                               bool localOnly, bool includeQualifiers, bool includeClassOrigin,
                               const Pegasus::CIMPropertyList& propertyList);

    Pegasus::Array<Pegasus::CIMInstance> EnumerateInstances(std::string nameSpace, std::string className,
                                                            unsigned int timeout, bool deepInheritance,
                                                            bool localOnly, bool includeQualifiers,
                                                            bool includeClassOrigin,
                                                            const Pegasus::CIMPropertyList& propertyList);

    /// Runs a method; its return value, null after a failure. `outputs` is filled.
    Pegasus::CIMValue InvokeMethod(std::string nameSpace, const Pegasus::CIMObjectPath& path,
                                   std::string method, const Pegasus::Array<Pegasus::CIMParamValue>& inputs,
                                   Pegasus::Array<Pegasus::CIMParamValue>& outputs, unsigned int timeout);

    /// Class names in the server's order.
    std::vector<std::string> EnumerateClassNames(std::string nameSpace, std::string className,
                                                 bool deepInheritance, unsigned int timeout);

    /// Instance paths, as the remote library writes them, in the server's order.
    std::vector<std::string> EnumerateInstanceNames(std::string nameSpace, std::string className,
                                                    unsigned int timeout);

    /// True when the last request was given up because its last attempt timed out.
    bool LastRequestTimedOut() const { return timedOut_; }

private:
    enum State : int { kDisconnected = 0, kHttp = 1, kHttps = 2 };
    enum class Outcome { kDone, kTimedOut, kRefused, kBroken };

    bool Open(const char* operation, State newState, const boost::function<void()>& connect);
    void Remember(const std::string& host, const std::string& user, const std::string& password);

    /// How long the client library waits from now on, in milliseconds.
    void LimitWaiting(unsigned int timeout);
    void Request(const char* operation, unsigned int timeout, const boost::function<void()>& send);
    Outcome Attempt(const char* operation, const boost::function<void()>& send);

    int state_ = kDisconnected;
    std::string host_;
    std::string user_;
    std::string password_;
    std::unique_ptr<Pegasus::CIMClient> client_;
    bool timedOut_ = false;
};

}  // namespace NQELVSK20
