#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace cimom::test {

/// An HTTP answer as it came over the wire.
struct RawAnswer {
    int status = 0;
    std::string reason;
    std::map<std::string, std::string> fields;    ///< Names in lower case.
    std::map<std::string, std::string> trailers;  ///< Likewise.
    std::string body;                             ///< Transfer coding removed.
    bool complete = false;                        ///< Whether the answer ended as it should.
};

/// A connection to a server that sends what it is told and reads what comes, so that tests see every byte.
/// Nothing waits longer than ten seconds.
class RawConnection {
public:
    enum class Tls { None, Any, Only10, Only12, AtLeast12 };

    /// Throws std::runtime_error when it cannot connect or the handshake fails.
    RawConnection(const std::string& address, std::uint16_t port, Tls tls = Tls::None);
    ~RawConnection();

    /// Returns false when the peer has gone.
    bool send(std::string_view bytes);

    /// Says that nothing more will be sent.
    void finishSending();

    /// Reads one answer; `complete` is false when the connection ended inside it.
    RawAnswer readAnswer();

    /// Everything up to the end of the connection.
    std::string readToEnd();

    /// Whether something can be read within so many milliseconds; the end of the connection counts.
    bool readableWithin(int milliseconds) const;

    /// E.g. "TLSv1.2"; empty without TLS.
    std::string tlsVersion() const;

private:
    std::string readSome();
    std::string readLine();
    bool readFields(std::map<std::string, std::string>& fields);
    bool readExactly(std::size_t count, std::string& into);
    bool readChunks(RawAnswer& answer);

    struct Impl;
    std::unique_ptr<Impl> impl_;
    std::string buffer_;
};

}  // namespace cimom::test
