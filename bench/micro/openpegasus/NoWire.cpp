#include "bench/micro/Steps.h"

namespace bench {

void AddWire() {}

}  // namespace bench
