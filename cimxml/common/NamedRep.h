#pragma once

#include <Pegasus/Common/CIMName.h>

namespace Pegasus {

/// What everything with a name that lives in lists has in common.
class NamedRep {
public:
    /// A null name throws UninitializedObjectException.
    explicit NamedRep(const CIMName& name);
    /// The copy is in no list yet.
    NamedRep(const NamedRep& other) : _name(other._name), _tag(other._tag) {}
    NamedRep& operator=(const NamedRep&) = delete;

    const CIMName& name() const noexcept { return _name; }

    /// A number that equal names (without regard to case) have in common and
    /// most different ones have not.
    static Uint32 tagOf(const CIMName& name) noexcept;
    Uint32 tag() const noexcept { return _tag; }

    /// A null name throws UninitializedObjectException; another name than the
    /// present one (without regard to case), while this is in a list, throws
    /// Exception, which says that a `kind` cannot change its name.
    void rename(const CIMName& name, const char* kind);

    void enterList() noexcept { ++_lists; }
    void leaveList() noexcept { --_lists; }

protected:
    ~NamedRep() = default;

private:
    CIMName _name;
    Uint32 _tag;
    Uint32 _lists = 0;  // number of lists this is in
};

}  // namespace Pegasus
