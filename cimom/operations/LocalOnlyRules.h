#pragma once

namespace cimom {

/// What the argument LocalOnly does to a server's answers. Families of servers differ in it; at first it
/// means to classes what DSP0200 says, and to instances what the instance itself holds.
struct LocalOnlyRules {
    /// GetClass ignores it, and inherited members and qualifiers come as the class's own: without
    /// CLASSORIGIN, whatever the client asks for, and without PROPAGATED.
    bool flatClasses = false;

    /// When it is true, GetInstance and EnumerateInstances send only the properties that the instance's own
    /// class declares: of an inherited key, only the path tells the value.
    bool declaredPropertiesOnly = false;
};

}  // namespace cimom
