#pragma once

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

namespace NQELVSK20 {

class ILogger;
class INamespaceProviderManager;

/// What the program that hosts plug-ins, or a test in its place, sets before they run. Plug-ins never call
/// it. Process-wide; not to be called while a plug-in operation runs on another thread.
class THostSetup {
public:
    /// Sets the logger that TRootObject hands out; not owned, must outlive its use. Null: discard.
    static void SetCoreLogger(ILogger* logger);

    /// Sets the number of controller nodes that VQMInfo reports.
    static void SetNodeCount(unsigned long long count);

    /// Sets how node indexes map to controller numbers (see SPLibrary); empty: each to itself.
    static void SetBMCMapping(boost::function<int(int)> mapping);

    /// Sets the manager that TRootObject hands out in place of the host's own; empty: there is none.
    static void SetNamespaceProviderManager(boost::shared_ptr<INamespaceProviderManager> manager);

    /// Puts the host's own manager back, with the providers that were registered with it.
    static void RestoreNamespaceProviderManager();

    /// Whether references that are bound from now on keep their namespace alive, as those of some hosts do;
    /// at first they do not (see TCIMReference).
    static void SetReferencesOwnNamespace(bool own);

    /// Sets how TCIMValue::ToString prints a string or datetime, given its text and the base asked for, as a
    /// host that quotes or escapes would; empty: the text itself. The conversion to std::string never prints.
    static void SetPrintedForm(boost::function<std::string(const std::string&, unsigned char)> form);

    /// Whether instances of one class share what they found out about its superclasses, as they do at first;
    /// in a host that remembers nothing each walks the class chain for itself (see TClassLayout).
    static void SetRemembersLayouts(bool remembers);
};

}  // namespace NQELVSK20
