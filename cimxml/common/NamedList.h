#pragma once

#include <Pegasus/Common/CIMName.h>

#include <algorithm>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "cimxml/common/HandleAccess.h"
#include "cimxml/common/NamedRep.h"

namespace Pegasus {

/// A list of handles with different names, in the order of their arrival.
template <class Handle>
class NamedList {
public:
    NamedList() = default;
    /// Clones the elements.
    NamedList(const NamedList& other) {
        _handles.reserve(other._handles.size());
        for (const Handle& handle : other._handles) {
            append(handle.clone());
        }
    }
    NamedList& operator=(const NamedList&) = delete;
    ~NamedList() {
        for (const Handle& handle : _handles) {
            HandleAccess::rep(handle).leaveList();
        }
    }

    /// A null handle throws UninitializedObjectException; a name that is
    /// already there throws AlreadyExistsException, which names the `kind`.
    void add(Handle handle, const char* kind) {
        const CIMName& name = HandleAccess::rep(handle).name();
        if (find(name) != PEG_NOT_FOUND) {
            throw AlreadyExistsException(String(kind) + " \"" + name.getString() + "\"");
        }
        append(std::move(handle));
        indexNew();
    }

    /// The element's index, or PEG_NOT_FOUND.
    Uint32 find(const CIMName& name) const {
        if (_index) {
            const auto entry = _index->find(name.getString());
            return entry == _index->end() ? PEG_NOT_FOUND : entry->second;
        }
        const auto hasName = [&name, tag = NamedRep::tagOf(name)](const Handle& handle) {
            const auto& rep = HandleAccess::share(handle);
            return rep->tag() == tag && rep->name().equal(name);
        };
        const auto found = std::find_if(_handles.begin(), _handles.end(), hasName);
        return found == _handles.end() ? PEG_NOT_FOUND : static_cast<Uint32>(found - _handles.begin());
    }

    /// An index beyond the end throws IndexOutOfBoundsException.
    const Handle& at(Uint32 index) const {
        if (index >= _handles.size()) {
            detail::throwIndexOutOfBounds();
        }
        return _handles[index];
    }

    void remove(Uint32 index) {
        HandleAccess::rep(at(index)).leaveList();
        _handles.erase(_handles.begin() + static_cast<std::ptrdiff_t>(index));
        _index.reset();
    }

    void clear() {
        while (!_handles.empty()) {
            remove(size() - 1);
        }
    }

    Uint32 size() const noexcept { return static_cast<Uint32>(_handles.size()); }
    void reserve(Uint32 count) { _handles.reserve(count); }

    bool identical(const NamedList& other) const {
        return std::equal(_handles.begin(), _handles.end(), other._handles.begin(), other._handles.end(),
                          [](const Handle& x, const Handle& y) { return x.identical(y); });
    }

    auto begin() const noexcept { return _handles.begin(); }
    auto end() const noexcept { return _handles.end(); }

private:
    struct LessNoCase {
        bool operator()(const String& x, const String& y) const { return String::compareNoCase(x, y) < 0; }
    };

    using Index = std::map<String, Uint32, LessNoCase>;

    /// A list as servers have them is searched from its beginning; in one that is made to be long, each
    /// addition would take as long as all before it.
    void indexNew() {
        constexpr std::size_t searchedAtMost = 256;
        if (_handles.size() <= searchedAtMost) {
            return;
        }
        if (!_index) {
            _index = std::make_unique<Index>();
        }
        for (std::size_t i = _index->size(); i < _handles.size(); ++i) {
            _index->emplace(HandleAccess::share(_handles[i])->name().getString(), static_cast<Uint32>(i));
        }
    }

    void append(Handle handle) { HandleAccess::rep(_handles.emplace_back(std::move(handle))).enterList(); }

    std::vector<Handle> _handles;
    std::unique_ptr<Index> _index;  // of a long list; empty: there is none
};

}  // namespace Pegasus
