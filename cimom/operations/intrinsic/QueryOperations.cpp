#include "cimom/operations/intrinsic/QueryOperations.h"

#include "cimom/common/Text.h"
#include "cimom/operations/IntrinsicArguments.h"
#include "cimom/operations/PathWriter.h"
#include "cimom/query/Query.h"

namespace cimom {

QueryResult runQuery(const IntrinsicCall& call, const std::string& language, const std::string& query) {
    if (!sameName(language, "WQL")) {
        throw CimError(CimStatus::QueryLanguageNotSupported, "queries are in WQL, not in '" + language + "'");
    }
    const Query read = Query::read(query, call.nameSpace.classes);
    QueryResult result;
    result.options.localOnly = false;
    result.options.properties = read.properties();
    for (const Instance* instance : call.nameSpace.instances.ofClassAndBelow(read.from())) {
        if (read.selects(*instance)) {
            result.instances.push_back(instance);
        }
    }
    return result;
}

void execQuery(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(call.request, {"QueryLanguage", "Query"});
    QueryResult result =
        runQuery(call, arguments.requiredText("QueryLanguage"), arguments.requiredText("Query"));
    InstanceWriter writer(std::move(result.options));
    for (const Instance* instance : result.instances) {
        out += "<VALUE.OBJECTWITHPATH>";
        appendInstancePath(out, call.request, instance->nameXml());
        writer.append(out, *instance);
        out += "</VALUE.OBJECTWITHPATH>";
    }
}

}  // namespace cimom
