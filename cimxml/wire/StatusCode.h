#pragma once

#include <Pegasus/Common/CIMStatusCode.h>
#include <Pegasus/Common/Config.h>

namespace cimxml {

/// A status code as it came over the wire. The API's type has room for the numbers to 31 only; a greater one
/// (DSP0200 defines none) becomes CIM_ERR_FAILED.
constexpr Pegasus::CIMStatusCode toStatusCode(Pegasus::Uint32 number) {
    return number > 31 ? Pegasus::CIM_ERR_FAILED : static_cast<Pegasus::CIMStatusCode>(number);
}

}  // namespace cimxml
