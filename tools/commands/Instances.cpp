// instances CLASS: every node's instances.

#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "tools/commands/Commands.h"
#include "tools/commands/RowCount.h"
#include "tools/common/Failure.h"
#include "tools/common/Names.h"
#include "tools/common/UsageError.h"
#include "tools/console/Terminal.h"
#include "tools/print/InstancePrinter.h"
#include "tools/print/ReadingColumn.h"
#include "tools/query/Condition.h"
#include "tools/query/SortOrder.h"

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

/// Those instances that were asked for, in the order that was asked for, on their way to a printer.
class Selection {
public:
    Selection(const Options& options, const ClassSchema& schema, InstancePrinter& printer)
        : limit_(options.limit), isCount_(options.count), printer_(printer) {
        if (!options.where.empty()) {
            condition_.emplace(options.where, schema);
        }
        const SortOrder order(options.sort, schema);
        if (!options.sort.empty() && !isCount_) {
            order_ = order;
        }
    }

    void take(const InstanceView& instance) {
        const NQELVSK20::TCIMValue node(instance.node);
        const PropertySource properties = [&](const std::string& name) {
            return sameName(name, "NodeID") ? &node : instance.value(name);
        };
        if (condition_ && !condition_->holds(properties)) {
            return;
        }
        ++count_;
        if (order_) {
            waiting_.push_back({order_->keyOf(properties), instance});
        } else if (!isCount_) {
            printer_.print(instance);
        }
    }

    /// Whether more instances would change nothing.
    bool isComplete() const { return limit_ && count_ >= *limit_ && !order_; }

    void end() {
        std::stable_sort(waiting_.begin(), waiting_.end(), [this](const Waiting& one, const Waiting& other) {
            return order_->isBefore(one.key, other.key);
        });
        count_ = limit_ ? std::min(count_, *limit_) : count_;
        for (std::size_t i = 0; i < std::min(count_, waiting_.size()); ++i) {
            printer_.print(waiting_[i].instance);
        }
        if (!isCount_) {
            printer_.end();
        }
    }

    std::size_t count() const { return count_; }

private:
    struct Waiting {
        SortOrder::Key key;
        InstanceView instance;
    };

    std::optional<std::size_t> limit_;
    bool isCount_;
    InstancePrinter& printer_;
    std::optional<Condition> condition_;
    std::optional<SortOrder> order_;
    std::vector<Waiting> waiting_;
    std::size_t count_ = 0;
};

void ask(const CommandContext& context, NQELVSK20::ICIMClass& cimClass, SchemaCache& schemas,
         Selection& selection) {
    const NullCells nullCells(context.session, schemas);
    RowCount rows;
    context.session.enumerateInstances(
        cimClass, context.options.deep, [&](const boost::shared_ptr<ICIMInstance>& instance) {
            if (selection.isComplete()) {
                return false;  // a subclass's turn, which an earlier false did not stop
            }
            const InstanceView view(*instance, &nullCells);
            rows.add(view.className);
            selection.take(view);
            context.progress.note(fmt::format("node {}: {} instances so far", view.node, selection.count()));
            return !selection.isComplete();
        });
    selection.end();
    if (!selection.isComplete()) {
        rows.tell(context, schemas, context.options.deep);
    }
}

void writeCount(const CommandContext& context, std::size_t count) {
    context.output.line(context.isJson() ? fmt::format("{{\"count\": {}}}", count) : std::to_string(count));
}

}  // namespace

bool runInstances(const CommandContext& context) {
    const std::string& className = context.options.className;
    const auto cimClass = context.session.getClass(className);
    SchemaCache& schemas = *context.schemas;
    const ClassSchema& schema = schemas.of(cimClass);
    const std::vector<std::string> columns = declaredColumns(context.options.columns, schema);
    if (context.options.deep) {
        std::set<std::string, NameLess> seen;
        fetchSubclasses(context, className, seen);
    }
    const auto printer = makeInstancePrinter(context.options.format,
                                             {context.output, schemas, schema, columns, terminal::width()});
    InstancePrinter* rows = context.rows;
    Selection selection(context.options, schema, rows != nullptr ? *rows : *printer);
    ask(context, *cimClass, schemas, selection);
    if (context.options.count) {
        writeCount(context, selection.count());
        return selection.count() != 0;
    }
    return selection.count() != 0 ||
           nothingFound(context, context.options.where.empty() ? "there are no instances of " + className
                                                               : "no instance of " + className + " fits");
}

}  // namespace tool
