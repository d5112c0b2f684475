#pragma once

#include <Pegasus/Client/CIMClient.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace NQELVSK20 {

class ClientObserver;

/// The ports of CIM servers, as IANA assigned them (wbem-http, wbem-https).
constexpr int kHttpPort = 5988;
constexpr int kHttpsPort = 5989;

/// The remote client of one node: one CIM-XML connection that remembers how it was opened.
///
/// No exception of the remote library leaves it: a failure is logged at level 3 and shows as false or as an
/// empty result. A request on a client that is not connected gives an empty result at once. A request that
/// times out is tried once more with twice the time; one whose connection breaks is tried once more after
/// `Reconnect`, with the time that the caller gave; one that the server answers with a CIM error is not
/// repeated.
///
/// Not thread-safe. Starts no thread; a reconnection blocks the caller for 5000 ms. A host knows clients
/// by their pointers only: their operations are the plug-in's own, and are not exported.
class PegClient {
public:
    /// `node` is what the observer of its failures knows it by.
    explicit PegClient(std::size_t node = 0);
    ~PegClient();
    PegClient(const PegClient&) = delete;
    PegClient& operator=(const PegClient&) = delete;

    /// Opens a connection over HTTP. False when that failed; the reason is in the log.
    bool HTTPConnect(std::string host, std::string user, std::string password, int port);

    /// Opens a connection over TLS; the server's certificate is not checked.
    bool HTTPSConnect(std::string host, std::string user, std::string password, int port);

    /// HTTPS on port 5989, and HTTP on port 5988 when that fails, unless the observer forbids it.
    bool Connect(std::string host, std::string user, std::string password);

    void Disconnect();

    /// Disconnects, waits 5000 ms and connects as `Connect` with the host and credentials used last: also
    /// over plain HTTP when HTTPS fails, whichever of the two the connection was opened with before, unless
    /// the observer forbids it.
    void Reconnect();

    /// The remote library's client; owned by this object and valid as long as it.
    Pegasus::CIMClient* GetCIMClient();

    /// Who hears of failures from now on; not owned, must outlive its use. Null: nobody.
    void SetObserver(ClientObserver* observer);

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
    bool LastRequestTimedOut() const;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace NQELVSK20
