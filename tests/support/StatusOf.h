#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "tests/support/RecordingLogger.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

/// The status that an operation throws; success when it throws none.
inline EVSKStatusCode StatusOf(const std::function<void()>& operation) {
    try {
        operation();
    } catch (const TVSKException& refusal) {
        return refusal.GetStatusCode();
    }
    return eVSKSuccess;
}

/// Expects an operation to find a pointer empty that it relies on: logged at level 0 with the place, then the
/// end of the process where assertions are on, and status 15 where they are off.
inline void ExpectMissingPointer(RecordingLogger& log, const std::string& where,
                                 const std::function<void()>& operation) {
#ifdef NDEBUG
    log.Clear();
    EXPECT_EQ(StatusOf(operation), eVSKNotFound);
    const std::vector<RecordingLogger::Line> expected{{0, where + ": assertion failed: px != 0"}};
    EXPECT_EQ(log.Lines(), expected);
#else
    static_cast<void>(log);
    static_cast<void>(where);
    EXPECT_DEATH(operation(), "px != 0");
#endif
}

}  // namespace NQELVSK20
