#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <map>
#include <memory>
#include <string>

#include "vskcore/ICIMInstance.h"

namespace NQELVSK20 {

class TClassLayout;
class TInmemProperty;

/// An instance that keeps its property values in memory.
///
/// Its path is its class's name and the values of the key properties that the class or its superclasses
/// declare: `Class.Key1="v1",Key2=2`, keys ordered without regard to case. The class chain is read once per
/// class, not once per instance (see TClassLayout).
class TInmemInstance : public ICIMInstance, public boost::enable_shared_from_this<TInmemInstance> {
public:
    /// An empty instance of `cimClass`, which it shares; the second argument is the contract's and unused.
    TInmemInstance(boost::shared_ptr<ICIMClass> cimClass, int);
    ~TInmemInstance() override;

    void Validate(TContext context) override;
    void Commit(TContext context) override;
    void ModifyInstance(boost::shared_ptr<ICIMInstance> other, TContext context) override;
    void Delete(TContext context) override;
    TCIMReference GetReference(TContext context) override;
    TCIMReference GetInstanceReference(TContext context) override;
    boost::shared_ptr<ICIMClass> GetClass(TContext context) const override;
    std::string GetPegasusNSPStr(TContext context) const override;
    void EnumerateAssociatedInstances(const InstanceCallback& callback, TContext context) override;
    void EnumerateAssociationInstances(const InstanceCallback& callback, TContext context) override;
    boost::shared_ptr<ICIMProperty> GetProperty(const std::string& name, TContext context) const override;
    void SetPropertyValue(const std::string& name, const TCIMValue& value, TContext context) override;
    void EnumerateProperties(const PropertyCallback& callback, TContext context) const override;
    void InvokeMethod(TCIMValue& result, const std::string& method, const TContext& inputs, TContext& outputs,
                      TContext context) override;
    bool operator==(const ICIMInstance& other) const override;
    bool operator<(const ICIMInstance& other) const override;

    /// Does nothing: instances are not copied by assignment.
    ICIMInstance& operator=(const ICIMInstance& other) override;

private:
    const TClassLayout& Layout() const;

    boost::shared_ptr<ICIMClass> class_;
    mutable std::shared_ptr<const TClassLayout> layout_;                   // read from the class on first use
    std::map<std::string, boost::shared_ptr<TInmemProperty>> properties_;  // by normalised name
};

}  // namespace NQELVSK20
