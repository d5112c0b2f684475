#include "bench/micro/wire/Wire.h"

#include "bench/micro/Steps.h"

namespace bench {

void AddWire() {
    AddRequests();
    AddAnswers();
}

}  // namespace bench
