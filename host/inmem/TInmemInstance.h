#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "vskcore/ICIMInstance.h"

namespace NQELVSK20 {

class TInmemProperties;

/// An instance that keeps its property values in memory.
///
/// Its path is its class's name and the values of the key properties that the class or its superclasses
/// declare: `Class.Key1="v1",Key2=2`, keys ordered without regard to case, null ones left out. The class
/// chain is read once per class, not once per instance, and only when needed (see TClassLayout).
///
/// Holds its class, and a class holds the instances that were added to it: who owns the class has to see to
/// it that the instances are taken out in the end. Must be owned by a boost::shared_ptr, and is not to be
/// used from two threads at a time.
class TInmemInstance : public ICIMInstance, public boost::enable_shared_from_this<TInmemInstance> {
public:
    /// An empty instance of `cimClass`, which it shares; the second argument is the contract's and unused.
    TInmemInstance(boost::shared_ptr<ICIMClass> cimClass, int);
    ~TInmemInstance() override;

    TInmemInstance(const TInmemInstance&) = delete;

    /// Does nothing: everything that a property has to fulfil is checked when it is set.
    void Validate(TContext context) override;
    void Commit(TContext context) override;
    void ModifyInstance(boost::shared_ptr<ICIMInstance> other, TContext context) override;
    void Delete(TContext context) override;
    TCIMReference GetReference(TContext context) override;
    TCIMReference GetInstanceReference(TContext context) override;
    boost::shared_ptr<ICIMClass> GetClass(TContext context) const override;
    std::string GetPegasusNSPStr(TContext context) const override;

    /// Calls back with nothing: an instance in memory knows of no associations.
    void EnumerateAssociatedInstances(const InstanceCallback& callback, TContext context) override;
    void EnumerateAssociationInstances(const InstanceCallback& callback, TContext context) override;

    /// What it gives for a property without a value is no part of the instance: a value set later does not
    /// show there.
    boost::shared_ptr<ICIMProperty> GetProperty(const std::string& name, TContext context) const override;
    void SetPropertyValue(const std::string& name, const TCIMValue& value, TContext context) override;
    void EnumerateProperties(const PropertyCallback& callback, TContext context) const override;
    void InvokeMethod(TCIMValue& result, const std::string& method, const TContext& inputs, TContext& outputs,
                      TContext context) override;

    /// Instances compare as their paths do, byte for byte.
    bool operator==(const ICIMInstance& other) const override;
    bool operator<(const ICIMInstance& other) const override;

    /// Does nothing: instances are not copied by assignment.
    ICIMInstance& operator=(const ICIMInstance& other) override;
    TInmemInstance& operator=(const TInmemInstance& other);

private:
    const boost::shared_ptr<TInmemProperties>& Properties() const;
    std::string Path() const;

    boost::shared_ptr<ICIMClass> class_;
    // Null until first needed. A property that is handed out has a share in all of them, and none in the
    // instance or its class.
    mutable boost::shared_ptr<TInmemProperties> properties_;
};

}  // namespace NQELVSK20
