#pragma once

#include <chrono>
#include <string>

#include "cimxml/wire/Deadline.h"
#include "cimxml/wire/WireError.h"

namespace cimxml {

/// Does a step that waits for the peer once: `step` gets the deadline to keep. A peer that is silent for
/// longer than `most`, where the deadline still leaves time, is an error of its own: WireError Silent, which
/// says in which `phase` that was.
template <typename Step>
void endureSilence(const std::string& phase, std::chrono::milliseconds most, Deadline deadline, Step step) {
    try {
        step(deadline.within(most));
    } catch (const WireError& error) {
        if (error.kind() != WireError::Kind::TimedOut ||
            deadline.remaining() == Deadline::Clock::duration::zero()) {
            throw;
        }
        throw WireError(WireError::Kind::Silent,
                        phase + ": no word from the server in " + std::to_string(most.count()) + " ms");
    }
}

}  // namespace cimxml
