#pragma once

/// The basic types of the CIM client API and the macros its users spell
/// namespaces with.

#include <cstdint>
#include <cstdlib>

#define PEGASUS_NAMESPACE_BEGIN namespace Pegasus {
#define PEGASUS_NAMESPACE_END }
#define PEGASUS_NAMESPACE(X) Pegasus::X
#define PEGASUS_STD(X) std::X
#define PEGASUS_USING_STD using namespace std
#define PEGASUS_USING_PEGASUS using namespace Pegasus

#define PEGASUS_UINT64 unsigned long long
#define PEGASUS_SINT64 long long
#define PEGASUS_UINT64_LITERAL(X) (Uint64(X##ULL))
#define PEGASUS_SINT64_LITERAL(X) (Sint64(X##LL))

#if defined(__GNUC__)
/// Lets the compiler check printf-like arguments: A1 is the position of the
/// format, A2 that of its first argument.
#define PEGASUS_FORMAT(A1, A2) __attribute__((format(printf, A1, A2)))
#else
#define PEGASUS_FORMAT(A1, A2)
#endif

namespace Pegasus {

using Boolean = bool;
using Uint8 = unsigned char;
using Sint8 = signed char;
using Uint16 = unsigned short;
using Sint16 = signed short;
using Uint32 = unsigned int;
using Sint32 = signed int;
using Uint64 = PEGASUS_UINT64;
using Sint64 = PEGASUS_SINT64;
using Real32 = float;
using Real64 = double;

/// What the find operations return when there is no match.
#define PEG_NOT_FOUND Uint32(-1)

}  // namespace Pegasus
