#include "vskcore/TCIMDateTime.h"

namespace NQELVSK20 {

TCIMDateTime::TCIMDateTime() : text_("00000000000000.000000:000") {}

TCIMDateTime::TCIMDateTime(const std::string& text) : text_(text) {}

}  // namespace NQELVSK20
