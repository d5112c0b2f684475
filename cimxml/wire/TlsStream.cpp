#include "cimxml/wire/TlsStream.h"

#include <openssl/bio.h>
#include <openssl/err.h>
#include <openssl/ssl.h>
#include <openssl/x509_vfy.h>

#include <algorithm>
#include <climits>

#include "cimxml/wire/Silence.h"
#include "cimxml/wire/WireError.h"

namespace cimxml {

namespace {

constexpr std::size_t tlsPieceSize = 64U * 1024U;

bool looksLikeAddress(const std::string& host) {
    return host.find(':') != std::string::npos || host.find_first_not_of("0123456789.") == std::string::npos;
}

/// Empties the list of errors that calls of OpenSSL are judged by. Looking first is quicker: it mostly is
/// empty.
void forgetTlsErrors() {
    if (ERR_peek_error() != 0) {
        ERR_clear_error();
    }
}

int clampToInt(std::size_t size) {
    return static_cast<int>(std::min<std::size_t>(size, INT_MAX));
}

/// An empty memory buffer of OpenSSL that says "later", not "end", when it is read empty.
BIO* newBuffer() {
    BIO* buffer = BIO_new(BIO_s_mem());
    if (buffer != nullptr) {
        BIO_set_mem_eof_return(buffer, -1);
    }
    return buffer;
}

}  // namespace

void TlsStream::Free::operator()(ssl_st* ssl) const {
    SSL_free(ssl);
}

TlsStream::TlsStream(std::unique_ptr<ByteStream> below, std::shared_ptr<const TlsContext> context,
                     const std::string& host, Deadline deadline, std::chrono::milliseconds silence)
    : below_(std::move(below)), context_(std::move(context)), ssl_(SSL_new(context_->native())) {
    BIO* in = newBuffer();
    BIO* out = newBuffer();
    if (!ssl_ || in == nullptr || out == nullptr) {
        BIO_free(in);
        BIO_free(out);
        throw WireError(WireError::Kind::CannotConnect, "TLS: " + takeTlsError());
    }
    SSL_set_bio(ssl_.get(), in, out);
    announce(host);
    handshake(deadline, silence);
}

TlsStream::~TlsStream() = default;

void TlsStream::announce(const std::string& host) {
    if (!looksLikeAddress(host)) {
        SSL_set_tlsext_host_name(ssl_.get(), host.c_str());
    }
}

void TlsStream::handshake(Deadline deadline, std::chrono::milliseconds silence) {
    for (bool done = false; !done;) {
        endureSilence("TLS handshake", silence, deadline,
                      [&](Deadline until) { done = continueHandshake(until); });
    }
}

bool TlsStream::continueHandshake(Deadline deadline) {
    ERR_clear_error();
    const int result = SSL_connect(ssl_.get());
    const int reason = SSL_get_error(ssl_.get(), result);
    const std::string cause = reason == SSL_ERROR_SSL ? takeTlsError() : "connection closed";
    try {
        flush(deadline);
    } catch (const WireError& error) {
        throw WireError(
            error.kind() == WireError::Kind::Closed ? WireError::Kind::CannotConnect : error.kind(),
            "TLS handshake: " + cause);
    }
    if (result == 1) {
        return true;
    }
    if (reason != SSL_ERROR_WANT_READ || !fill(deadline)) {
        const long verification = SSL_get_verify_result(ssl_.get());
        const bool refused = verification != X509_V_OK && reason == SSL_ERROR_SSL;
        throw WireError(WireError::Kind::CannotConnect,
                        "TLS handshake: " + (refused ? X509_verify_cert_error_string(verification) : cause));
    }
    return false;
}

void TlsStream::write(std::string_view bytes, Deadline deadline) {
    while (!bytes.empty()) {
        forgetTlsErrors();
        const int written = SSL_write(ssl_.get(), bytes.data(), clampToInt(bytes.size()));
        const int reason = SSL_get_error(ssl_.get(), written);
        flush(deadline);
        if (written > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (reason != SSL_ERROR_WANT_READ || !fill(deadline)) {
            throw WireError(WireError::Kind::Closed, "TLS: " + takeTlsError());
        }
    }
}

std::optional<std::size_t> TlsStream::decrypt(char* buffer, std::size_t size) {
    if (isDrained_) {
        return std::nullopt;
    }
    forgetTlsErrors();
    const int received = SSL_read(ssl_.get(), buffer, clampToInt(size));
    if (received > 0) {
        isDrained_ = SSL_has_pending(ssl_.get()) == 0 && BIO_pending(SSL_get_rbio(ssl_.get())) == 0;
        return static_cast<std::size_t>(received);
    }
    if (SSL_get_error(ssl_.get(), received) == SSL_ERROR_WANT_READ) {
        isDrained_ = true;
        return std::nullopt;
    }
    // Either an orderly end or a record that cannot be decrypted: nothing more will come of this stream.
    ERR_clear_error();
    return 0;
}

std::size_t TlsStream::read(char* buffer, std::size_t size, Deadline deadline) {
    for (;;) {
        const auto received = decrypt(buffer, size);
        if (received) {
            return *received;
        }
        // A renegotiation or a key update asks for an answer in between.
        flush(deadline);
        if (!fill(deadline)) {
            return 0;
        }
    }
}

std::optional<std::size_t> TlsStream::readAvailable(char* buffer, std::size_t size) {
    for (;;) {
        const auto received = decrypt(buffer, size);
        if (received) {
            return received;
        }
        // Session tickets arrive unasked after the handshake; only what is left after them is data.
        piece_.resize(tlsPieceSize);
        const auto raw = below_->readAvailable(piece_.data(), piece_.size());
        if (!raw || *raw == 0) {
            return raw;
        }
        hand({piece_.data(), *raw});
    }
}

std::string TlsStream::protocol() const {
    return SSL_get_version(ssl_.get());
}

void TlsStream::flush(Deadline deadline) {
    char* pending = nullptr;
    BIO* out = SSL_get_wbio(ssl_.get());
    const long size = BIO_get_mem_data(out, &pending);
    if (size > 0) {
        below_->write({pending, static_cast<std::size_t>(size)}, deadline);
        (void)BIO_reset(out);
    }
}

bool TlsStream::fill(Deadline deadline) {
    piece_.resize(tlsPieceSize);
    const std::size_t received = below_->read(piece_.data(), piece_.size(), deadline);
    hand({piece_.data(), received});
    return received > 0;
}

void TlsStream::hand(std::string_view received) {
    if (!received.empty()) {
        isDrained_ = false;
        BIO_write(SSL_get_rbio(ssl_.get()), received.data(), clampToInt(received.size()));
    }
}

}  // namespace cimxml
