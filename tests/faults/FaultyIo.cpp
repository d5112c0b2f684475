#include "tests/faults/FaultyIo.h"

namespace faults {

namespace {

thread_local FaultyIo* current = nullptr;

}  // namespace

FaultyIo::FaultyIo(IoFault fault, std::size_t at) : fault_(fault), at_(at) {
    current = this;
}

FaultyIo::~FaultyIo() {
    current = nullptr;
}

FaultyIo* FaultyIo::ofThisThread() {
    return current;
}

IoFault FaultyIo::next() {
    ++count_;
    const bool lasts = fault_ == IoFault::Trickle || fault_ == IoFault::Dead;
    const bool isDue = at_ != 0 && (lasts ? count_ >= at_ : count_ == at_);
    return isDue ? fault_ : IoFault::None;
}

void FaultyIo::begin(int socket) {
    silent_.erase(socket);
    ended_.erase(socket);
}

}  // namespace faults
