// invoke PATH METHOD [NAME=VALUE...]: runs a method on an instance or class.

#include <algorithm>
#include <optional>

#include "tools/commands/Commands.h"
#include "tools/common/Failure.h"
#include "tools/common/Integer.h"
#include "tools/common/Nearest.h"
#include "tools/common/UsageError.h"
#include "tools/machine/InstanceMarks.h"
#include "tools/machine/MethodQualifiers.h"
#include "tools/machine/SchemaCache.h"
#include "tools/print/InstanceView.h"
#include "tools/print/MethodPrinter.h"
#include "tools/values/ArgumentParser.h"
#include "tools/values/ObjectPath.h"

namespace tool {

namespace {

using NQELVSK20::TContext;

std::vector<std::string> methodNames(const ClassSchema& schema) {
    std::vector<std::string> names;
    for (const ClassSchema::Method& method : schema.methods()) {
        names.push_back(method.name);
    }
    return names;
}

const ClassSchema::Method& methodOf(const ClassSchema& schema, const std::string& name) {
    const ClassSchema::Method* method = schema.findMethod(name);
    if (method == nullptr) {
        throw UsageError("the class has no method '" + name + "'" + suggestion(name, methodNames(schema)));
    }
    return *method;
}

/// What the numbers of a method's parameters mean: a parameter without names for them means what the class's
/// property of its name does.
class Meanings {
public:
    Meanings(const ClassSchema::Method& method, const ClassSchema& schema,
             const RemoteDefinitions& definitions)
        : method_(method), schema_(schema), definitions_(definitions) {}

    /// Null: nothing is known. Holds until the next question.
    const ValueMap* of(const std::string& parameter) {
        own_ = valueMapIn(parameterQualifiers(method_, parameter, definitions_));
        return own_ ? &*own_ : schema_.valueMapOf(parameter);
    }

private:
    const ClassSchema::Method& method_;
    const ClassSchema& schema_;
    const RemoteDefinitions& definitions_;
    std::optional<ValueMap> own_;
};

// Whether a name that a server gave is the path; one that makes no sense is not.
bool isPath(const std::string& name, const std::string& path, const std::string& className,
            const ClassSchema& schema) {
    try {
        const ObjectPath own = ObjectPath::parse(name);
        return sameName(own.className, className) && instancePath(own, schema) == path;
    } catch (const UsageError&) {
        return false;
    }
}

// Whether the first node's server has an instance of just that path.
bool isServersOwn(const std::string& path, const std::string& className, const ClassSchema& schema,
                  Session& session) {
    const std::size_t failuresBefore = session.failures();
    const std::vector<std::string> names = session.instanceNames(className);
    if (session.failures() != failuresBefore) {
        throw Failure();  // said; a method is not run on a guess
    }
    return std::any_of(names.begin(), names.end(),
                       [&](const std::string& name) { return isPath(name, path, className, schema); });
}

[[noreturn]] void refuseNode(std::size_t node, const Session& session) {
    throw UsageError("methods go to the first node only: this is an instance of " +
                     session.machine().where(node));
}

// Refuses a path that only other nodes have an instance of. One that nobody has is the server's affair: it
// may know instances that it does not list.
void requireFirstNodes(const std::string& path, NQELVSK20::ICIMClass& cimClass, Session& session) {
    const std::size_t first = session.machine().first();
    std::optional<std::size_t> owner;
    session.enumerateInstances(
        cimClass, false, [&](const boost::shared_ptr<NQELVSK20::ICIMInstance>& instance) {
            const InstanceView view(*instance);
            const auto number = view.path == path ? parseInteger(view.node) : std::nullopt;
            if (number && number->size > 0) {
                owner = static_cast<std::size_t>(number->size - 1);
            }
            return !owner;
        });
    if (owner && *owner != first && *owner < session.machine().nodes().size()) {
        refuseNode(*owner, session);
    }
}

// The path that the first node's server knows the instance by.
std::string serversPath(const ObjectPath& wanted, const ClassSchema& schema, Session& session) {
    const std::string path = instancePath(wanted, schema);
    const InstanceMarks marks(session.nameSpaceName(), session.machine().asked());
    const auto unmarked = marks.unmarked(wanted, schema);
    if (!unmarked && session.machine().asked().size() > 1) {
        requireFirstNodes(path, *schema.chain().front(), session);
    }
    if (!unmarked || isServersOwn(path, wanted.className, schema, session)) {
        return path;
    }
    if (unmarked->node != session.machine().first()) {
        refuseNode(unmarked->node, session);
    }
    return instancePath(unmarked->path, schema);
}

}  // namespace

bool runInvoke(const CommandContext& context) {
    const Options& options = context.options;
    const ObjectPath wanted = ObjectPath::parse(options.path);
    const auto cimClass = context.session.getClass(wanted.className);
    SchemaCache schemas(context.session);
    const ClassSchema& schema = schemas.of(cimClass);
    const ClassSchema::Method& method = methodOf(schema, options.method);
    Meanings meanings(method, schema, context.session.definitions());
    const ArgumentParser parser(
        *method.declaration, [&](const std::string& path) { return context.session.reference(path); },
        [&](const std::string& name) { return meanings.of(name); });
    const TContext inputs = parser.parse(options.arguments);
    const std::string path =
        wanted.keys.empty() ? cimClass->GetName(TContext()) : serversPath(wanted, schema, context.session);
    const Session::MethodResult result = context.session.invoke(*cimClass, path, method.name, inputs);
    MethodPrinter printer(context.output, methodQualifiers(method, context.session.definitions()));
    if (context.isJson()) {
        printer.printJson(result.value, result.outputs);
    } else {
        printer.printText(result.value, result.outputs);
    }
    return true;
}

}  // namespace tool
