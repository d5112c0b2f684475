#pragma once

namespace NQELVSK20 {

/// The ports of CIM servers, as IANA assigned them (wbem-http, wbem-https).
constexpr int kHttpPort = 5988;
constexpr int kHttpsPort = 5989;

}  // namespace NQELVSK20
