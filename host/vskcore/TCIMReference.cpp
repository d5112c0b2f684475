#include "vskcore/TCIMReference.h"

#include <algorithm>
#include <vector>

#include "vskcore/CimNames.h"
#include "vskcore/HostState.h"
#include "vskcore/KeyText.h"
#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {

namespace {

std::string KeysText(const TContext& keys) {
    if (keys.empty()) {
        return {};
    }
    std::vector<const TContext::value_type*> ordered;
    ordered.reserve(keys.size());
    for (const auto& key : keys) {
        ordered.push_back(&key);
    }
    std::stable_sort(ordered.begin(), ordered.end(), [](const auto* left, const auto* right) {
        return TNameLess()(left->first, right->first);
    });
    std::string text;
    bool first = true;
    for (const auto* key : ordered) {
        AppendKey(text, first, key->first, key->second);
    }
    return text;
}

/// Where the class name stands in a path; an empty range when the path names none.
struct TRange {
    std::size_t begin;
    std::size_t end;
};

TRange FindClassName(const std::string& path) {
    std::size_t begin = 0;
    if (path.compare(0, 2, "//") == 0) {
        // The host may hold full stops and colons (an address, a port), so it is stepped over first.
        const std::size_t slash = path.find('/', 2);
        if (slash == std::string::npos) {
            return {path.size(), path.size()};
        }
        begin = slash + 1;
    }
    // Keys begin with a full stop, an unnamed one with an equals sign; only they may hold quoted text.
    const std::size_t end = std::min(path.find_first_of(".=\"", begin), path.size());
    const std::size_t colon = path.find_last_of(':', end == 0 ? 0 : end - 1);
    if (colon != std::string::npos && colon >= begin && colon < end) {
        begin = colon + 1;
    }
    const bool onlyNamespace = path.find('/', begin) < end;
    return onlyNamespace ? TRange{end, end} : TRange{begin, end};
}

}  // namespace

TCIMReference::TCIMReference(boost::shared_ptr<ICIMNamespace> nameSpace, TContext keys)
    : keys_(KeysText(keys)) {
    SetNamespace(nameSpace);
}

void TCIMReference::SetPath(const std::string& path) {
    path_ = path;
    const TRange name = FindClassName(path);
    className_ = path.substr(name.begin, name.end - name.begin);
    if (!className_.empty() && name.end == path.size()) {
        path_ += keys_;
    }
}

void TCIMReference::SetNamespace(boost::shared_ptr<ICIMNamespace> nameSpace) {
    namespace_ = nameSpace;
    owned_ = HostState().referencesOwnNamespace ? nameSpace : nullptr;
}

}  // namespace NQELVSK20
