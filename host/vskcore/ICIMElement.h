#pragma once

#include "vskcore/TContext.h"

namespace NQELVSK20 {

/// What classes, qualifiers and qualifier declarations have in common. Operations stand in slot order.
class ICIMElement {
public:
    virtual ~ICIMElement() = default;

    /// Throws TVSKException when the element is not fit to be committed.
    virtual void Validate(TContext context) = 0;

    /// Enters the element into the object that owns it.
    virtual void Commit(TContext context) = 0;

    /// Reserved by the contract; no plug-in is known to give it a meaning.
    virtual void Reserved4(TContext context) = 0;
};

}  // namespace NQELVSK20
