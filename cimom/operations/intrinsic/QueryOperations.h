#pragma once

#include <string>
#include <vector>

#include "cimom/data/InstanceWriter.h"
#include "cimom/operations/IntrinsicCall.h"

namespace cimom {

/// What a query selects, and what of it is to be sent.
struct QueryResult {
    std::vector<const Instance*> instances;
    InstanceOptions options;
};

/// Throws CimError: query language not supported for any but WQL, invalid query.
QueryResult runQuery(const IntrinsicCall& call, const std::string& language, const std::string& query);

/// As RunIntrinsic.
void execQuery(const IntrinsicCall& call, std::string& out);

}  // namespace cimom
