#pragma once

namespace bench {

void AddRequests();  ///< Into text.
void AddAnswers();   ///< Out of it.

}  // namespace bench
