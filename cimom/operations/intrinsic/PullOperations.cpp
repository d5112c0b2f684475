#include "cimom/operations/intrinsic/PullOperations.h"

#include <chrono>
#include <vector>

#include "cimom/common/Xml.h"
#include "cimom/data/InstanceWriter.h"
#include "cimom/operations/PathWriter.h"
#include "cimom/operations/intrinsic/AssociationOperations.h"
#include "cimom/operations/intrinsic/QueryOperations.h"

namespace cimom {
namespace {

using PullKind = EnumerationTable::Kind;
using FoundInstances = std::vector<const Instance*>;

void appendOutput(std::string& out, const char* name, const char* type, const std::string& value) {
    out += "<PARAMVALUE";
    appendAttribute(out, "NAME", name);
    appendAttribute(out, "PARAMTYPE", type);
    out += "><VALUE>";
    appendEscaped(out, value);
    out += "</VALUE></PARAMVALUE>";
}

void answerBatch(const IntrinsicCall& call, std::string& out, const EnumerationTable::Batch& batch) {
    out += batch.objects;
    appendOutput(call.extras.parameters, "EndOfSequence", "boolean",
                 batch.context.empty() ? "TRUE" : "FALSE");
    appendOutput(call.extras.parameters, "EnumerationContext", "string", batch.context);
}

std::chrono::seconds readTimeout(const IntrinsicArguments& arguments) {
    constexpr std::uint32_t kUsual = 60;
    constexpr std::uint32_t kLongest = 3600;
    const std::uint32_t seconds = arguments.number("OperationTimeout").value_or(kUsual);
    // Zero would mean to keep the enumeration for ever.
    if (seconds == 0 || seconds > kLongest) {
        throw CimError(CimStatus::InvalidOperationTimeout,
                       "OperationTimeout has to be 1 to " + std::to_string(kLongest) + " seconds");
    }
    return std::chrono::seconds(seconds);
}

void refuseWhatIsNotOffered(const IntrinsicArguments& arguments) {
    if (arguments.boolean("ContinueOnError", false)) {
        throw CimError(CimStatus::ContinuationOnErrorNotSupported,
                       "an enumeration ends with its first error");
    }
}

void refuseFilter(const IntrinsicArguments& arguments) {
    if (arguments.text("FilterQuery") || arguments.text("FilterQueryLanguage")) {
        throw CimError(CimStatus::FilteredEnumerationNotSupported, "only OpenQueryInstances takes a query");
    }
}

void openEnumeration(const IntrinsicCall& call, const IntrinsicArguments& arguments, PullKind kind,
                     std::vector<std::string> objects, std::string& out) {
    refuseWhatIsNotOffered(arguments);
    const auto timeout = readTimeout(arguments);
    const std::size_t count = arguments.number("MaxObjectCount").value_or(0);
    answerBatch(call, out,
                call.nameSpace.enumerations.open(kind, std::move(objects), count, timeout,
                                                 EnumerationTable::Clock::now()));
}

InstanceOptions readPullOptions(const IntrinsicArguments& arguments) {
    InstanceOptions options;
    options.localOnly = false;
    options.includeQualifiers = arguments.boolean("IncludeQualifiers", false);
    options.includeClassOrigin = arguments.boolean("IncludeClassOrigin", false);
    options.properties = arguments.propertyList();
    return options;
}

void openWithPaths(const IntrinsicCall& call, const IntrinsicArguments& arguments,
                   const FoundInstances& instances, InstanceOptions options, std::string& out) {
    refuseFilter(arguments);
    InstanceWriter writer(std::move(options));
    std::vector<std::string> objects;
    for (const Instance* instance : instances) {
        std::string& object = objects.emplace_back("<VALUE.INSTANCEWITHPATH>");
        appendInstancePath(object, call.request, instance->nameXml());
        writer.append(object, *instance);
        object += "</VALUE.INSTANCEWITHPATH>";
    }
    openEnumeration(call, arguments, PullKind::InstancesWithPath, std::move(objects), out);
}

void openPaths(const IntrinsicCall& call, const IntrinsicArguments& arguments,
               const FoundInstances& instances, std::string& out) {
    refuseFilter(arguments);
    std::vector<std::string> objects;
    for (const Instance* instance : instances) {
        appendInstancePath(objects.emplace_back(), call.request, instance->nameXml());
    }
    openEnumeration(call, arguments, PullKind::InstancePaths, std::move(objects), out);
}

const Instance& requireSource(const IntrinsicCall& call, const IntrinsicArguments& arguments) {
    return call.requireInstance(arguments.requiredInstanceName("InstanceName"));
}

const ClassView& requireEnumerated(const IntrinsicCall& call, const IntrinsicArguments& arguments) {
    return call.requireClass(arguments.requiredClassName("ClassName"), CimStatus::InvalidClass);
}

std::string requiredContext(const IntrinsicArguments& arguments) {
    return arguments.requiredText("EnumerationContext");
}

void pullFrom(const IntrinsicCall& call, PullKind kind, std::string& out) {
    const IntrinsicArguments arguments(call.request, {"EnumerationContext", "MaxObjectCount"});
    const std::string context = requiredContext(arguments);
    const auto count = arguments.number("MaxObjectCount");
    if (!count) {
        throw CimError(CimStatus::InvalidParameter, "the parameter MaxObjectCount is missing");
    }
    answerBatch(call, out,
                call.nameSpace.enumerations.pull(context, kind, *count, EnumerationTable::Clock::now()));
}

}  // namespace

void openEnumerateInstances(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(
        call.request,
        {"ClassName", "DeepInheritance", "IncludeQualifiers", "IncludeClassOrigin", "PropertyList",
         "FilterQueryLanguage", "FilterQuery", "OperationTimeout", "ContinueOnError", "MaxObjectCount"});
    const ClassView& type = requireEnumerated(call, arguments);
    InstanceOptions options = readPullOptions(arguments);
    options.limitedTo = arguments.boolean("DeepInheritance", true) ? nullptr : &type;
    openWithPaths(call, arguments, call.nameSpace.instances.ofClassAndBelow(type), std::move(options), out);
}

void openEnumerateInstancePaths(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(call.request,
                                       {"ClassName", "FilterQueryLanguage", "FilterQuery", "OperationTimeout",
                                        "ContinueOnError", "MaxObjectCount"});
    openPaths(call, arguments, call.nameSpace.instances.ofClassAndBelow(requireEnumerated(call, arguments)),
              out);
}

void openReferenceInstances(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(
        call.request,
        {"InstanceName", "ResultClass", "Role", "IncludeQualifiers", "IncludeClassOrigin", "PropertyList",
         "FilterQueryLanguage", "FilterQuery", "OperationTimeout", "ContinueOnError", "MaxObjectCount"});
    const FoundInstances found =
        referencesTo(requireSource(call, arguments), call.nameSpace, readReferenceFilter(call, arguments));
    openWithPaths(call, arguments, found, readPullOptions(arguments), out);
}

void openReferenceInstancePaths(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(
        call.request, {"InstanceName", "ResultClass", "Role", "FilterQueryLanguage", "FilterQuery",
                       "OperationTimeout", "ContinueOnError", "MaxObjectCount"});
    const FoundInstances found =
        referencesTo(requireSource(call, arguments), call.nameSpace, readReferenceFilter(call, arguments));
    openPaths(call, arguments, found, out);
}

void openAssociatorInstances(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(
        call.request, {"InstanceName", "AssocClass", "ResultClass", "Role", "ResultRole", "IncludeQualifiers",
                       "IncludeClassOrigin", "PropertyList", "FilterQueryLanguage", "FilterQuery",
                       "OperationTimeout", "ContinueOnError", "MaxObjectCount"});
    const FoundInstances found =
        associatedWith(requireSource(call, arguments), call.nameSpace, readAssociatorFilter(call, arguments));
    openWithPaths(call, arguments, found, readPullOptions(arguments), out);
}

void openAssociatorInstancePaths(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(
        call.request,
        {"InstanceName", "AssocClass", "ResultClass", "Role", "ResultRole", "FilterQueryLanguage",
         "FilterQuery", "OperationTimeout", "ContinueOnError", "MaxObjectCount"});
    const FoundInstances found =
        associatedWith(requireSource(call, arguments), call.nameSpace, readAssociatorFilter(call, arguments));
    openPaths(call, arguments, found, out);
}

void openQueryInstances(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(
        call.request, {"FilterQueryLanguage", "FilterQuery", "ReturnQueryResultClass", "OperationTimeout",
                       "ContinueOnError", "MaxObjectCount"});
    if (arguments.boolean("ReturnQueryResultClass", false)) {
        throw CimError(CimStatus::NotSupported, "the class of a query's results cannot be told");
    }
    QueryResult result =
        runQuery(call, arguments.requiredText("FilterQueryLanguage"), arguments.requiredText("FilterQuery"));
    InstanceWriter writer(std::move(result.options));
    std::vector<std::string> objects;
    for (const Instance* instance : result.instances) {
        writer.append(objects.emplace_back(), *instance);
    }
    openEnumeration(call, arguments, PullKind::Instances, std::move(objects), out);
}

void pullInstancesWithPath(const IntrinsicCall& call, std::string& out) {
    pullFrom(call, PullKind::InstancesWithPath, out);
}

void pullInstancePaths(const IntrinsicCall& call, std::string& out) {
    pullFrom(call, PullKind::InstancePaths, out);
}

void pullInstances(const IntrinsicCall& call, std::string& out) {
    pullFrom(call, PullKind::Instances, out);
}

void closeEnumeration(const IntrinsicCall& call, std::string& /*out*/) {
    const IntrinsicArguments arguments(call.request, {"EnumerationContext"});
    call.nameSpace.enumerations.close(requiredContext(arguments), EnumerationTable::Clock::now());
    call.extras.returnsValue = false;
}

}  // namespace cimom
