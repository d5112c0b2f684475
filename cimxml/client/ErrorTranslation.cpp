#include "cimxml/client/ErrorTranslation.h"

#include <Pegasus/Client/CIMClientException.h>
#include <Pegasus/Common/Exception.h>

#include <exception>

#include "cimxml/client/ApiText.h"

namespace Pegasus {

void throwForUser(const cimxml::WireError& error, const String& locator) {
    using Kind = cimxml::WireError::Kind;
    const String text = toApiText(error.what());
    switch (error.kind()) {
        case Kind::UnknownHost:
            std::throw_with_nested(InvalidLocatorException(locator));
        case Kind::NoSocket:
            std::throw_with_nested(CannotCreateSocketException());
        case Kind::CannotConnect:
            std::throw_with_nested(CannotConnectException(String("Cannot connect to ") + locator +
                                                          String(". Connection failed.")));
        case Kind::Silent:
            std::throw_with_nested(
                CannotConnectException(String("Cannot connect to ") + locator + String(". ") + text));
        case Kind::TlsSetup:
            std::throw_with_nested(SSLException(text));
        case Kind::TimedOut:
            std::throw_with_nested(ConnectionTimeoutException());
        case Kind::Closed:
        case Kind::BadHttp:
            std::throw_with_nested(CIMClientMalformedHTTPException(text));
        case Kind::BadXml:
            std::throw_with_nested(CIMClientXmlException(text));
        case Kind::BadResponse:
            break;
    }
    std::throw_with_nested(CIMClientResponseException(text));
}

}  // namespace Pegasus
