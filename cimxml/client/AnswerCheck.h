#pragma once

#include "cimxml/wire/HttpMessage.h"

namespace Pegasus {

/// Looks at an answer's status, header and trailer as DSP0200 defines them. Throws what says that there is no
/// result in its body: CIMClientHTTPErrorException, CIMClientMalformedHTTPException, or CIMException for a
/// status that came in the trailer.
void checkAnswer(const cimxml::HttpResponse& answer);

}  // namespace Pegasus
