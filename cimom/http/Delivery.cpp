#include "cimom/http/Delivery.h"

#include <algorithm>

namespace cimom {
namespace {

/// Fields that follow the body of a chunked answer.
using Trailers = HttpFields;

std::string headOf(const HttpAnswer& answer, bool keepAlive, const HttpFields& framingFields) {
    std::string head = "HTTP/1.1 " + std::to_string(answer.status) + " " + answer.reason + "\r\n";
    const auto append = [&](const HttpFields& fields) {
        for (const auto& [name, value] : fields) {
            head.append(name).append(": ").append(value).append("\r\n");
        }
    };
    append(answer.fields);
    append(framingFields);
    if (!keepAlive) {
        head += "Connection: close\r\n";
    }
    return head + "\r\n";
}

std::string hexadecimal(std::size_t number) {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    do {
        text.insert(text.begin(), kDigits[number % 16]);
        number /= 16;
    } while (number != 0);
    return text;
}

std::string chunked(const std::string& body, std::size_t chunkBytes, const Trailers& trailers) {
    std::string out;
    out.reserve(body.size() + body.size() / chunkBytes * 16 + 256);
    for (std::size_t at = 0; at < body.size(); at += chunkBytes) {
        const std::size_t size = std::min(chunkBytes, body.size() - at);
        out.append(hexadecimal(size)).append("\r\n").append(body, at, size).append("\r\n");
    }
    out += "0\r\n";
    for (const auto& [name, value] : trailers) {
        out.append(name).append(": ").append(value).append("\r\n");
    }
    return out + "\r\n";
}

Delivery deliverSized(HttpAnswer answer, bool keepAlive, std::size_t announced) {
    Delivery delivery;
    delivery.head = headOf(answer, keepAlive, {{"Content-Length", std::to_string(announced)}});
    delivery.body = std::move(answer.body);
    delivery.after = keepAlive ? Delivery::After::Continue : Delivery::After::Close;
    delivery.status = answer.status;
    return delivery;
}

Delivery deliverChunked(const HttpAnswer& answer, const Framing& framing, const Trailers& trailers) {
    Delivery delivery;
    delivery.head = headOf(
        answer, framing.keepAlive,
        {{"Transfer-Encoding", "chunked"}, {"Trailer", "CIMError, CIMStatusCode, CIMStatusCodeDescription"}});
    delivery.body = chunked(answer.body, framing.chunkBytes, trailers);
    delivery.after = framing.keepAlive ? Delivery::After::Continue : Delivery::After::Close;
    delivery.status = answer.status;
    return delivery;
}

Delivery deliver(HttpAnswer answer, const Framing& framing) {
    if (framing.chunkBytes != 0 && answer.status == 200) {
        return deliverChunked(answer, framing, {{"CIMStatusCode", "0"}});
    }
    const std::size_t size = answer.body.size();
    return deliverSized(std::move(answer), framing.keepAlive, size);
}

Delivery nothing(Delivery::After after) {
    Delivery delivery;
    delivery.after = after;
    return delivery;
}

Delivery cutAt(Delivery delivery, std::size_t bytes) {
    const std::size_t ofHead = std::min(bytes, delivery.head.size());
    delivery.head.resize(ofHead);
    delivery.body.resize(std::min(bytes - ofHead, delivery.body.size()));
    delivery.after = Delivery::After::Cut;
    return delivery;
}

Delivery rawAnswer(const std::string& text) {
    Delivery delivery;
    delivery.head = text;
    return delivery;
}

/// The first half of a message, then bytes that no XML text can hold there.
std::string spoiled(const std::string& body) {
    return body.substr(0, body.size() / 2) + "<<& not XML";
}

std::string withBytes(std::string body, const std::string& text, const std::string& instead) {
    for (std::size_t at = body.find(text); at != std::string::npos;
         at = body.find(text, at + instead.size())) {
        body.replace(at, text.size(), instead);
    }
    return body;
}

Delivery withTrailerError(const HttpAnswer& answer, Framing framing, const Fault& fault) {
    constexpr std::size_t kUsualChunk = 4096;
    framing.chunkBytes = framing.chunkBytes == 0 ? kUsualChunk : framing.chunkBytes;
    return deliverChunked(
        answer, framing,
        {{"CIMStatusCode", std::to_string(fault.code)}, {"CIMStatusCodeDescription", fault.text}});
}

}  // namespace

Delivery makeDelivery(HttpAnswer answer, const Framing& framing, const std::optional<Fault>& fault) {
    if (!fault) {
        return deliver(std::move(answer), framing);
    }
    switch (fault->kind) {
        case Fault::Kind::CloseAtByte:
            return cutAt(deliver(std::move(answer), framing), fault->bytes);
        case Fault::Kind::CloseBeforeAnswer:
            return nothing(Delivery::After::Cut);
        case Fault::Kind::WrongLength: {
            const std::size_t announced = answer.body.size() + fault->bytes;
            Delivery delivery = deliverSized(std::move(answer), true, announced);
            delivery.after = Delivery::After::Cut;
            return delivery;
        }
        case Fault::Kind::HttpStatus:
            return deliver(plainAnswer(fault->code, fault->text), framing);
        case Fault::Kind::RawText:
            answer.body = withBytes(std::move(answer.body), fault->text, fault->instead);
            return deliver(std::move(answer), framing);
        case Fault::Kind::MalformedXml:
            answer.body = spoiled(answer.body);
            return deliver(std::move(answer), framing);
        case Fault::Kind::TrailerError:
            return withTrailerError(answer, framing, *fault);
        case Fault::Kind::NoAnswer:
            return nothing(Delivery::After::Hold);
        case Fault::Kind::RawAnswer:
            return rawAnswer(fault->text);
        case Fault::Kind::Delay:
        case Fault::Kind::CimError:
            break;
    }
    Delivery delivery = deliver(std::move(answer), framing);
    delivery.delay = fault->kind == Fault::Kind::Delay ? fault->delay : std::chrono::milliseconds(0);
    return delivery;
}

}  // namespace cimom
