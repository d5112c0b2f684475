#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

namespace cimom {

/// A misbehaviour of the server, for tests. It applies to requests that match every non-empty criterion.
struct Fault {
    enum class Kind {
        Delay,              ///< Wait `delay`, then answer normally.
        CloseAtByte,        ///< Close after `bytes` bytes of the answer (head and body counted together).
        CloseBeforeAnswer,  ///< Read the request, then close without a byte.
        WrongLength,        ///< Announce a Content-Length that is `bytes` too large, then close.
        HttpStatus,         ///< Answer with HTTP `code` and reason `text`, without a CIM body.
        RawText,            ///< Answer with the bytes `instead` in every place where the body has `text`.
        MalformedXml,       ///< Answer 200 with a body that stops being XML half-way.
        CimError,           ///< Answer with a CIM ERROR of `code` and description `text` (DSP0200).
        TrailerError,       ///< Chunked answer whose trailers carry CIMStatusCode `code` and `text`.
        NoAnswer,           ///< Keep the connection open and never answer.
        RawAnswer           ///< Send `text` as it stands instead of an answer, then keep the connection.
    };

    Kind kind = Kind::Delay;
    std::string address;    ///< Endpoint address; empty: any.
    std::string operation;  ///< CIM method, e.g. "EnumerateInstances"; empty: any.
    std::string className;  ///< Class named by the request; empty: any. Compared without regard to case.
    int times = -1;         ///< How many requests it applies to; -1: every one.

    std::chrono::milliseconds delay{0};
    std::size_t bytes = 0;
    int code = 0;
    std::string text;
    std::string instead;
};

}  // namespace cimom
