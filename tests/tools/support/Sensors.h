#pragma once

#include <boost/shared_ptr.hpp>

#include "tests/host/Schema.h"
#include "tools/values/ClassSchema.h"

namespace tool {

/// A schema in memory: TST_Element (key ID, property State with texts, reference Owner) and below it
/// TST_Sensor (key Number, Reading, Samples, NodeID, method Calibrate).
class Sensors {
public:
    Sensors();

    ClassSchema schema() const { return ClassSchema({sensor_, element_}); }
    const boost::shared_ptr<NQELVSK20::ICIMClass>& sensor() const { return sensor_; }

    /// An instance of TST_Sensor.
    boost::shared_ptr<NQELVSK20::ICIMInstance> make(const std::string& id, unsigned char number,
                                                    const std::string& node) const;

private:
    boost::shared_ptr<NQELVSK20::TInmemUnion> union_;
    boost::shared_ptr<NQELVSK20::ICIMClass> element_;
    boost::shared_ptr<NQELVSK20::ICIMClass> sensor_;
};

}  // namespace tool
