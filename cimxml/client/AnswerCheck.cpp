#include "cimxml/client/AnswerCheck.h"

#include <Pegasus/Client/CIMClientException.h>
#include <Pegasus/Common/Exception.h>

#include <string_view>

#include "cimxml/client/ApiText.h"
#include "cimxml/wire/Ascii.h"
#include "cimxml/wire/Percent.h"
#include "cimxml/wire/Scalars.h"
#include "cimxml/wire/StatusCode.h"

namespace Pegasus {

using cimxml::HttpResponse;

namespace {

String decodedField(const HttpResponse& answer, std::string_view name) {
    const std::string* value = answer.find(name);
    return value == nullptr ? String() : toApiText(cimxml::percentDecode(*value));
}

void checkStatus(const HttpResponse& answer) {
    if (answer.status != 200) {
        throw CIMClientHTTPErrorException(answer.status, toApiText(answer.reason),
                                          decodedField(answer, "CIMError"),
                                          decodedField(answer, "PGErrorDetail"));
    }
}

void checkContentType(const HttpResponse& answer) {
    const std::string* type = answer.find("Content-Type");
    if (type == nullptr) {
        return;
    }
    const std::string_view media = cimxml::trim(std::string_view(*type).substr(0, type->find(';')));
    if (!cimxml::equalNoCase(media, "application/xml") && !cimxml::equalNoCase(media, "text/xml")) {
        throw CIMClientMalformedHTTPException(String("Bad Content-Type HTTP header; ") + toApiText(*type));
    }
}

/// A server that sends its answer while it is still working on it tells an error in the trailer; what is in
/// the body is then incomplete.
void checkTrailer(const HttpResponse& answer) {
    const std::string* code = answer.find("CIMStatusCode");
    if (code == nullptr) {
        return;
    }
    const auto number = cimxml::parseInteger<Uint32>(*code);
    if (!number) {
        throw CIMClientMalformedHTTPException(String("Bad CIMStatusCode HTTP header; ") + toApiText(*code));
    }
    if (*number != 0) {
        const CIMStatusCode status = cimxml::toStatusCode(*number);
        const String description = decodedField(answer, "CIMStatusCodeDescription");
        // Many servers send the code alone; its name is then all there is to tell.
        throw CIMException(status,
                           description.size() != 0 ? description : String(cimStatusCodeToString(status)));
    }
}

}  // namespace

void checkAnswer(const HttpResponse& answer) {
    checkStatus(answer);
    const std::string* operation = answer.find("CIMOperation");
    if (operation == nullptr) {
        throw CIMClientMalformedHTTPException(String("Missing CIMOperation HTTP header"));
    }
    checkContentType(answer);
    checkTrailer(answer);
    if (!cimxml::equalNoCase(*operation, "MethodResponse")) {
        throw CIMClientMalformedHTTPException(String("Received CIMOperation HTTP header value \"") +
                                              toApiText(*operation) +
                                              String("\", expected \"MethodResponse\""));
    }
}

}  // namespace Pegasus
