#pragma once

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "vskcore/TCIMReference.h"
#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {

class ICIMClass;
class ICIMProperty;

/// An instance of a class. Operations stand in slot order.
class ICIMInstance {
public:
    using InstanceCallback = boost::function<bool(boost::shared_ptr<ICIMInstance>)>;
    using PropertyCallback = boost::function<bool(boost::shared_ptr<ICIMProperty>)>;

    virtual ~ICIMInstance() = default;

    /// Throws TVSKException when the instance is not fit to be committed.
    virtual void Validate(TContext context) = 0;

    /// Enters the instance into its class.
    virtual void Commit(TContext context) = 0;

    /// Takes over the property values of another instance of the same class.
    virtual void ModifyInstance(boost::shared_ptr<ICIMInstance> other, TContext context) = 0;

    /// Takes the instance out of its class.
    virtual void Delete(TContext context) = 0;

    /// The instance's path: class name and keys.
    virtual TCIMReference GetReference(TContext context) = 0;
    virtual TCIMReference GetInstanceReference(TContext context) = 0;
    virtual boost::shared_ptr<ICIMClass> GetClass(TContext context) const = 0;

    /// Name of the remote namespace for instances that know one; empty otherwise.
    virtual std::string GetPegasusNSPStr(TContext context) const = 0;
    virtual void EnumerateAssociatedInstances(const InstanceCallback& callback, TContext context) = 0;
    virtual void EnumerateAssociationInstances(const InstanceCallback& callback, TContext context) = 0;

    /// A property by name, without regard to case; throws status 15 when the class chain declares no such
    /// property. A declared one without a value is null.
    virtual boost::shared_ptr<ICIMProperty> GetProperty(const std::string& name, TContext context) const = 0;

    /// Sets a property that the class or one of its superclasses declares; throws status 15 for any other.
    virtual void SetPropertyValue(const std::string& name, const TCIMValue& value, TContext context) = 0;

    /// Calls back with every property that has been set, in the order of their normalised names, until the
    /// callback returns false.
    virtual void EnumerateProperties(const PropertyCallback& callback, TContext context) const = 0;

    /// Runs a method on this instance through its class.
    virtual void InvokeMethod(TCIMValue& result, const std::string& method, const TContext& inputs,
                              TContext& outputs, TContext context) = 0;
    virtual bool operator==(const ICIMInstance& other) const = 0;
    virtual bool operator<(const ICIMInstance& other) const = 0;
    virtual ICIMInstance& operator=(const ICIMInstance& other) = 0;
};

}  // namespace NQELVSK20
