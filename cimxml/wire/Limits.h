#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace cimxml {

/// Bounds on what is accepted from a server. They are far above anything that an honest server sends, and
/// keep a broken or hostile one from exhausting memory or stack. None can be switched off.
struct Limits {
    std::size_t headerBytes = 64U * 1024U;                        ///< HTTP header, and each trailer section.
    std::uint64_t bodyBytes = std::uint64_t{1024} * 1024 * 1024;  ///< HTTP body, transfer coding removed.
    std::size_t xmlNodes = std::size_t{64} * 1024 * 1024;   ///< Elements and attributes, embedded ones too.
    std::size_t treeNodes = std::size_t{16} * 1024 * 1024;  ///< Those in one tree; long lists are in many.
    unsigned xmlDepth = 128;                                ///< Nested elements of one XML document.
    unsigned embeddedLevels = 8;                            ///< Embedded objects inside embedded objects.

    /// How long a peer may say nothing while a connection is being made, in each step of it: accepting, and
    /// each answer of the TLS handshake. Then the phase is named and the connection given up, also where the
    /// caller's time-out would leave more time.
    std::chrono::milliseconds connectSilence = std::chrono::seconds(60);

    /// No bound: of how many bytes a list of instances is parsed at a time, when it is four times as long or
    /// longer. That many, with their tree, a processor has at hand.
    std::size_t pieceBytes = 16U * 1024U;
};

}  // namespace cimxml
