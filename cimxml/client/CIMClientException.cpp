#include <Pegasus/Client/CIMClientException.h>

#include <string>

namespace Pegasus {

namespace {

String describe(Uint32 code, const String& reason, const String& cimError, const String& detail) {
    String text("HTTP Error (");
    text.append(String(std::to_string(code).c_str()));
    if (reason.size() > 0) {
        text.append(String(" ")).append(reason);
    }
    text.append(String(")"));
    if (cimError.size() > 0 || detail.size() > 0) {
        text.append(String(":"));
    }
    if (cimError.size() > 0) {
        text.append(String(" CIMError = \"")).append(cimError).append(String("\""));
    }
    if (detail.size() > 0) {
        text.append(String(" Detail = \"")).append(detail).append(String("\""));
    }
    return text.append(String("."));
}

}  // namespace

CIMClientException::CIMClientException(const String& message) : Exception(message) {}

CIMClientMalformedHTTPException::CIMClientMalformedHTTPException(const String& message)
    : CIMClientException(message) {}

CIMClientHTTPErrorException::CIMClientHTTPErrorException(Uint32 httpStatusCode, const String& reasonPhrase,
                                                         const String& cimError, const String& cimErrorDetail)
    : CIMClientException(describe(httpStatusCode, reasonPhrase, cimError, cimErrorDetail)),
      _httpStatusCode(httpStatusCode),
      _cimError(cimError),
      _cimErrorDetail(cimErrorDetail) {}

CIMClientHTTPErrorException::CIMClientHTTPErrorException(Uint32 httpStatusCode, const String& cimError,
                                                         const String& cimErrorDetail)
    : CIMClientHTTPErrorException(httpStatusCode, String::EMPTY, cimError, cimErrorDetail) {}

CIMClientXmlException::CIMClientXmlException(const String& message) : CIMClientException(message) {}

CIMClientResponseException::CIMClientResponseException(const String& message) : CIMClientException(message) {}

}  // namespace Pegasus
