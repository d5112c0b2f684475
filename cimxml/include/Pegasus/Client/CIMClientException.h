#pragma once

#include <Pegasus/Client/Linkage.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// What the client makes of an answer that it cannot take for one.
class PEGASUS_CLIENT_LINKAGE CIMClientException : public Exception {
public:
    CIMClientException(const String& message);
};

/// The answer is not HTTP as CIM-XML uses it, or the connection ended before there was one.
class PEGASUS_CLIENT_LINKAGE CIMClientMalformedHTTPException : public CIMClientException {
public:
    CIMClientMalformedHTTPException(const String& message);
};

/// The server answered with an HTTP status other than 200.
class PEGASUS_CLIENT_LINKAGE CIMClientHTTPErrorException : public CIMClientException {
public:
    /// `cimError` and `cimErrorDetail` are the answer's CIMError and PGErrorDetail fields, or empty.
    CIMClientHTTPErrorException(Uint32 httpStatusCode, const String& reasonPhrase, const String& cimError,
                                const String& cimErrorDetail);
    CIMClientHTTPErrorException(Uint32 httpStatusCode, const String& cimError, const String& cimErrorDetail);

    Uint32 getCode() const { return _httpStatusCode; }
    String getCIMError() const { return _cimError; }
    String getCIMErrorDetail() const { return _cimErrorDetail; }

private:
    Uint32 _httpStatusCode;
    String _cimError;
    String _cimErrorDetail;
};

/// The answer is not well-formed XML, or not CIM-XML.
class PEGASUS_CLIENT_LINKAGE CIMClientXmlException : public CIMClientException {
public:
    CIMClientXmlException(const String& message);
};

/// The answer is CIM-XML, but does not answer the request.
class PEGASUS_CLIENT_LINKAGE CIMClientResponseException : public CIMClientException {
public:
    CIMClientResponseException(const String& message);
};

}  // namespace Pegasus
