#pragma once

#include <string>

#include "tools/health/Element.h"
#include "tools/health/Reading.h"
#include "tools/health/Severity.h"
#include "tools/report/HtmlWriter.h"

namespace tool {

/// How bad it is what a sensor says: by its state, or by the threshold that is crossed where that is worse.
Severity severityOfSensor(const Element& element);

/// The thresholds that are set, `lower 2.97, upper 85 / 95`; empty when there are none.
std::string limitsText(const Reading& reading);

/// A bar for a sensor's reading, between its thresholds; an empty one where there are none.
void writeSensorBar(HtmlWriter& html, const Reading& reading);

}  // namespace tool
