#include "cimom/http/RequestHandler.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>

#include <cctype>
#include <exception>
#include <mutex>

#include "cimom/common/CimError.h"
#include "cimom/common/Text.h"
#include "cimom/data/RepositoryData.h"
#include "cimom/methods/MethodTable.h"
#include "cimom/operations/CimAnswer.h"
#include "cimom/operations/CimRequest.h"
#include "cimom/operations/IntrinsicOperations.h"
#include "cimom/operations/ProtocolError.h"

namespace cimom {
namespace {

std::string base64(const std::string& text) {
    std::string encoded(4 * ((text.size() + 2) / 3) + 1, '\0');
    const int size =
        EVP_EncodeBlock(reinterpret_cast<unsigned char*>(&encoded[0]),
                        reinterpret_cast<const unsigned char*>(text.data()), static_cast<int>(text.size()));
    encoded.resize(static_cast<std::size_t>(size));
    return encoded;
}

std::string percentEncoded(std::string_view text) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte > 0x20 && byte < 0x7F && c != '%') {
            encoded += c;
        } else {
            encoded.append("%").append(1, kDigits[byte >> 4]).append(1, kDigits[byte & 0xF]);
        }
    }
    return encoded;
}

int hexDigit(char c) {
    if (std::isxdigit(static_cast<unsigned char>(c)) == 0) {
        return -1;
    }
    return c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10;
}

HttpAnswer refusal(const ProtocolError& error) {
    HttpFields fields;
    if (!error.cimError().empty()) {
        fields.emplace_back("CIMError", error.cimError());
    }
    if (*error.what() != '\0') {
        fields.emplace_back("PGErrorDetail", percentEncoded(error.what()));
    }
    return plainAnswer(error.status(), error.reason(), std::move(fields));
}

[[noreturn]] void mismatch(const std::string& why) {
    throw ProtocolError(400, "Bad Request", "header-mismatch", why);
}

void checkContentType(const HttpRequest& request) {
    const std::string* type = request.field("Content-Type");
    if (type == nullptr) {
        return;
    }
    const std::string_view media = trimmed(std::string_view(*type).substr(0, type->find(';')));
    if (!sameName(media, "application/xml") && !sameName(media, "text/xml")) {
        throw ProtocolError(415, "Unsupported Media Type", "", "Content-Type is not application/xml");
    }
}

void checkOperationField(const HttpRequest& request) {
    const std::string* operation = request.field("CIMOperation");
    if (operation == nullptr || !sameName(*operation, "MethodCall")) {
        throw ProtocolError(400, "Bad Request", "unsupported-operation",
                            "the header CIMOperation is not MethodCall");
    }
    if (request.field("CIMBatch") != nullptr) {
        throw ProtocolError(501, "Not Implemented", "multiple-requests-unsupported",
                            "several requests in one message are not supported");
    }
}

/// Whether CIMObject names what the message names. Of a path, namespace and class are compared.
bool objectMatches(const std::string& object, const CimRequest& call) {
    if (call.intrinsic) {
        return sameName(object, call.nameSpace);
    }
    const auto colon = object.find(':');
    if (colon == std::string::npos || !sameName(object.substr(0, colon), call.nameSpace)) {
        return false;
    }
    const std::string path = object.substr(colon + 1);
    return sameName(path.substr(0, path.find('.')), call.target.className);
}

void checkMatch(const HttpRequest& request, const CimRequest& call) {
    const std::string* method = request.field("CIMMethod");
    const std::string* object = request.field("CIMObject");
    if (method == nullptr || object == nullptr) {
        mismatch("the header CIMMethod or CIMObject is missing");
    }
    if (!sameName(percentDecoded(*method), call.operation)) {
        mismatch("CIMMethod is " + *method + ", the message calls " + call.operation);
    }
    if (!objectMatches(percentDecoded(*object), call)) {
        mismatch("CIMObject is " + *object + ", which is not what the message names");
    }
}

/// Whether something of the real answer is sent in spite of the fault; otherwise the operation is not run.
bool needsAnswer(Fault::Kind kind) {
    return kind != Fault::Kind::CloseBeforeAnswer && kind != Fault::Kind::HttpStatus &&
           kind != Fault::Kind::NoAnswer && kind != Fault::Kind::RawAnswer;
}

std::string run(const CimRequest& call, const Endpoint& endpoint) {
    Repository::Data& data = endpoint.repository->data();
    const std::lock_guard<std::mutex> lock(data.mutex);
    try {
        NameSpace* nameSpace = data.find(call.nameSpace);
        if (nameSpace == nullptr) {
            throw CimError(CimStatus::InvalidNamespace, "there is no namespace '" + call.nameSpace + "'");
        }
        return successMessage(call, [&](std::string& out) {
            if (call.intrinsic) {
                return runIntrinsicOperation(call, *nameSpace, out, endpoint.localOnly);
            }
            runExtrinsicMethod(call, *nameSpace, out, endpoint.sendNullOutputs);
            return AnswerExtras();
        });
    } catch (const CimError& error) {
        return errorMessage(call, static_cast<int>(error.status()), error.what());
    } catch (const std::exception& error) {
        // E.g. a method whose class in these data lacks what it changes: one call fails, not the server.
        return errorMessage(call, static_cast<int>(CimStatus::Failed), error.what());
    }
}

}  // namespace

std::string percentDecoded(const std::string& text) {
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '%' && i + 2 < text.size() ? hexDigit(text[i + 1]) : -1;
        const int low = high >= 0 ? hexDigit(text[i + 2]) : -1;
        if (low < 0) {
            decoded += text[i];
        } else {
            decoded += static_cast<char>(high * 16 + low);
            i += 2;
        }
    }
    return decoded;
}

RequestHandler::RequestHandler(const Endpoint& endpoint, FaultPlan& faults)
    : endpoint_(endpoint), faults_(faults) {
    if (endpoint.credentials) {
        authorization_ = base64(endpoint.credentials->user + ":" + endpoint.credentials->password);
    }
}

Handled RequestHandler::handle(const HttpRequest& request) const {
    Handled handled;
    if (auto refused = refuseBeforeReading(request)) {
        handled.answer = *refused;
    } else {
        try {
            return answerOperation(request);
        } catch (const ProtocolError& error) {
            handled.answer = refusal(error);
        }
    }
    // The message was not read; its header still tells what was asked for.
    const std::string* method = request.field("CIMMethod");
    handled.answer.operation = method == nullptr ? "" : percentDecoded(*method);
    if (handled.answer.status != 401) {
        handled.fault = faults_.take(endpoint_.address, handled.answer.operation, "");
    }
    return handled;
}

std::optional<HttpAnswer> RequestHandler::refuseBeforeReading(const HttpRequest& request) const {
    if (request.method == "M-POST") {
        // DSP0200 lets a client try M-POST first and fall back to POST after this.
        return plainAnswer(501, "Not Implemented");
    }
    if (request.method != "POST") {
        return plainAnswer(405, "Method Not Allowed", {{"Allow", "POST"}});
    }
    if (request.target != "/cimom") {
        return plainAnswer(404, "Not Found");
    }
    if (request.version >= 11 && request.field("Host") == nullptr) {
        return plainAnswer(400, "Bad Request");
    }
    if (!isAuthorized(request)) {
        return plainAnswer(401, "Unauthorized", {{"WWW-Authenticate", "Basic realm=\"cimom\""}});
    }
    return std::nullopt;
}

bool RequestHandler::isAuthorized(const HttpRequest& request) const {
    if (authorization_.empty()) {
        return true;
    }
    const std::string* field = request.field("Authorization");
    constexpr std::string_view kScheme = "Basic ";
    if (field == nullptr || !sameName(std::string_view(*field).substr(0, kScheme.size()), kScheme)) {
        return false;
    }
    const std::string_view given = trimmed(std::string_view(*field).substr(kScheme.size()));
    return given.size() == authorization_.size() &&
           CRYPTO_memcmp(given.data(), authorization_.data(), given.size()) == 0;
}

Handled RequestHandler::answerOperation(const HttpRequest& request) const {
    checkContentType(request);
    checkOperationField(request);
    pugi::xml_document document;
    CimRequest call = CimRequest::read(request.body, document);
    checkMatch(request, call);
    if (const std::string* host = request.field("Host"); host != nullptr && !host->empty()) {
        call.host = *host;
    }
    const auto fault = faults_.take(endpoint_.address, call.operation, call.className());
    return {answerCall(call, fault), fault};
}

HttpAnswer RequestHandler::answerCall(const CimRequest& call, const std::optional<Fault>& fault) const {
    HttpAnswer answer;
    answer.operation = call.operation;
    answer.className = call.className();
    answer.fields = {{"Content-Type", "application/xml; charset=\"utf-8\""},
                     {"CIMOperation", "MethodResponse"}};
    if (fault && fault->kind == Fault::Kind::CimError) {
        answer.body = errorMessage(call, fault->code, fault->text);
    } else if (!fault || needsAnswer(fault->kind)) {
        answer.body = run(call, endpoint_);
    }
    return answer;
}

}  // namespace cimom
