#pragma once

#include <optional>

#include "cimom/http/Endpoint.h"
#include "cimom/http/FaultPlan.h"
#include "cimom/http/HttpMessage.h"
#include "cimom/operations/CimRequest.h"

namespace cimom {

/// An HTTP field value with "%xx" turned into the bytes that they stand for.
std::string percentDecoded(const std::string& text);

/// What a request comes to: its answer, and the fault that is to spoil it on its way.
struct Handled {
    HttpAnswer answer;
    std::optional<Fault> fault;
};

/// Answers the HTTP requests of one endpoint: authentication, the rules of DSP0200 for headers, and the CIM
/// operation itself. Holds no connection.
class RequestHandler {
public:
    /// `faults` is borrowed and must outlive this. Faults do not touch requests that authentication
    /// refuses, so that a client's first attempt without a password does not use one up.
    RequestHandler(const Endpoint& endpoint, FaultPlan& faults);

    Handled handle(const HttpRequest& request) const;

private:
    std::optional<HttpAnswer> refuseBeforeReading(const HttpRequest& request) const;
    bool isAuthorized(const HttpRequest& request) const;
    Handled answerOperation(const HttpRequest& request) const;
    HttpAnswer answerCall(const CimRequest& call, const std::optional<Fault>& fault) const;

    Endpoint endpoint_;
    FaultPlan& faults_;
    std::string authorization_;  ///< The one Authorization value that is let in; empty: all are.
};

}  // namespace cimom
