#pragma once

#include "tools/report/HtmlWriter.h"

/// What makes a page pleasant: how it looks, and a field that finds classes and instances.
namespace tool::page {

void addStyle(HtmlWriter& html);
void addScript(HtmlWriter& html);

}  // namespace tool::page
