// get PATH: one instance.

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tools/commands/Commands.h"
#include "tools/machine/InstanceMarks.h"
#include "tools/print/BlockPrinter.h"
#include "tools/print/JsonPrinter.h"
#include "tools/values/JsonValue.h"
#include "tools/values/ObjectPath.h"

namespace tool {

namespace {

using NQELVSK20::ICIMClass;
using NQELVSK20::ICIMInstance;
using NQELVSK20::TContext;
using InstancePointer = boost::shared_ptr<ICIMInstance>;

// Spellings of the path, the likeliest first: as it stands, and as each node's mark makes it.
std::vector<std::string> spellingsOf(const ObjectPath& wanted, const ClassSchema& schema,
                                     const Session& session) {
    std::vector<std::string> spellings{instancePath(wanted, schema)};
    const InstanceMarks marks(session.nameSpaceName(), session.machine().asked());
    for (const ObjectPath& marked : marks.marked(wanted, schema)) {
        spellings.push_back(instancePath(marked, schema));
    }
    return spellings;
}

// The instance of the first spelling that there is one of.
InstancePointer findAny(const std::vector<std::string>& spellings, ICIMClass& cimClass, Session& session) {
    auto best = spellings.end();
    InstancePointer found;
    session.enumerateInstances(cimClass, false, [&](const InstancePointer& instance) {
        const std::string path = instance->GetReference(TContext()).GetPath();
        const auto at = std::find(spellings.begin(), best, path);
        if (at != best) {
            best = at;
            found = instance;
        }
        return best != spellings.begin();
    });
    return found;
}

// The instance that is printed by just that path, although the path lacks keys: servers leave some out.
InstancePointer findAsPrinted(const ObjectPath& wanted, ICIMClass& cimClass, Session& session) {
    InstancePointer found;
    session.enumerateInstances(cimClass, false, [&](const InstancePointer& instance) {
        if (ObjectPath::parse(instance->GetReference(TContext()).GetPath()).isSame(wanted)) {
            found = instance;
        }
        return !found;
    });
    return found;
}

// With `anew` as it is now: what the plug-in found once it tells from memory the next time, unless all of the
// class are enumerated.
InstancePointer findInstance(const ObjectPath& wanted, const ClassSchema& schema, Session& session,
                             bool anew) {
    if (lacksKey(wanted, schema)) {
        if (const auto found = findAsPrinted(wanted, *schema.chain().front(), session)) {
            return found;
        }
    }
    const std::vector<std::string> spellings = spellingsOf(wanted, schema, session);
    if (spellings.size() > 1 || anew) {
        if (const auto found = findAny(spellings, *schema.chain().front(), session)) {
            return found;
        }
    }
    return session.getInstance(spellings.front());
}

}  // namespace

bool runGet(const CommandContext& context) {
    const ObjectPath wanted = ObjectPath::parse(context.options.path);
    SchemaCache& schemas = *context.schemas;
    const ClassSchema& schema = schemas.of(wanted.className);
    const auto instance = findInstance(wanted, schema, context.session, context.rows != nullptr);
    if (!instance) {
        return nothingFound(context, "there is no instance " + instancePath(wanted, schema));
    }
    const NullCells nullCells(context.session, schemas);
    const InstanceView view(*instance, &nullCells);
    if (context.rows != nullptr) {
        context.rows->print(view);
    } else if (context.isJson()) {
        context.output.line(jsonText(jsonInstance(view, {}), 2, context.output.isTerminal()));
    } else {
        BlockPrinter(context.output, schemas).print(view);
    }
    return true;
}

}  // namespace tool
