// instances CLASS: every node's instances.

#include <fmt/format.h>

#include "tools/commands/Commands.h"
#include "tools/commands/RowCount.h"
#include "tools/common/Failure.h"
#include "tools/common/UsageError.h"
#include "tools/console/Terminal.h"
#include "tools/print/InstancePrinter.h"
#include "tools/print/ReadingColumn.h"

namespace tool {

namespace {

using NQELVSK20::ICIMInstance;

// The columns as the class declares them.
std::vector<std::string> declaredColumns(const std::vector<std::string>& columns, const ClassSchema& schema) {
    std::vector<std::string> declared;
    for (const std::string& column : columns) {
        if (isReadingColumn(column, schema)) {
            declared.emplace_back(kReadingColumn);
            continue;
        }
        const ClassSchema::Property* property = schema.findProperty(column);
        if (property == nullptr) {
            throw UsageError(schema.cimClass().GetName(NQELVSK20::TContext()) + " has no property '" +
                             column + "'");
        }
        declared.push_back(property->name);
    }
    return declared;
}

// The plug-in goes down to the subclasses that it knows, and it knows those that were fetched.
void fetchSubclasses(const CommandContext& context, const std::string& className,
                     std::set<std::string, NameLess>& seen) {
    for (const std::string& name : context.session.classNames(className)) {
        if (!seen.insert(name).second) {
            continue;
        }
        context.progress.note("fetching class " + name);
        try {
            context.session.getClass(name);
        } catch (const Failure& failure) {
            context.session.sayFailure(failure);
        }
        fetchSubclasses(context, name, seen);
    }
}

std::size_t print(const CommandContext& context, NQELVSK20::ICIMClass& cimClass, SchemaCache& schemas,
                  InstancePrinter& printer) {
    const NullCells nullCells(context.session, schemas);
    RowCount rows;
    std::size_t count = 0;
    const auto isEnough = [&] { return context.options.limit && count >= *context.options.limit; };
    context.session.enumerateInstances(
        cimClass, context.options.deep, [&](const boost::shared_ptr<ICIMInstance>& instance) {
            if (isEnough()) {
                return false;  // a subclass's turn, which an earlier false did not stop
            }
            const InstanceView view(*instance, &nullCells);
            rows.add(view.className);
            printer.print(view);
            context.progress.note(fmt::format("node {}: {} instances so far", view.node, ++count));
            return !isEnough();
        });
    printer.end();
    if (!isEnough()) {
        rows.tell(context, schemas, context.options.deep);
    }
    return count;
}

}  // namespace

bool runInstances(const CommandContext& context) {
    const std::string& className = context.options.className;
    const auto cimClass = context.session.getClass(className);
    SchemaCache schemas(context.session);
    const ClassSchema& schema = schemas.of(cimClass);
    const std::vector<std::string> columns = declaredColumns(context.options.columns, schema);
    if (context.options.deep) {
        std::set<std::string, NameLess> seen;
        fetchSubclasses(context, className, seen);
    }
    const auto printer = makeInstancePrinter(context.options.format,
                                             {context.output, schemas, schema, columns, terminal::width()});
    const std::size_t count = print(context, *cimClass, schemas, *printer);
    return count != 0 || nothingFound(context, "there are no instances of " + className);
}

}  // namespace tool
