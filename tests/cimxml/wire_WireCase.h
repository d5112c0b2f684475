#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace cimxml_test {

/// One wire case, read from a file of cases/. See cases/README.md for the format.
struct WireCase {
    enum class Framing { Length, Chunked };

    /// One request with its answer.
    struct Round {
        std::vector<std::string> requestFields;    ///< Lines that the request's header must have.
        std::vector<std::string> requestContains;  ///< Texts that the request must contain.
        std::vector<std::string> requestLacks;     ///< Texts that it must not contain.
        std::string head;                          ///< Status line and fields of the answer, LF-separated.
        std::string body;
        std::string trailer;  ///< Trailer fields; an answer that has some is sent chunked only.
        std::string raw;      ///< The whole answer as it stands, in place of head, body and trailer.
        bool isRaw = false;
        std::string end;  ///< "", "close", "cut N", "silence", "close-when-idle" or "stray TEXT".

        /// The bytes of the answer to the request with that message ID.
        std::string format(Framing framing, const std::string& messageId) const;
    };

    std::vector<std::string> call;  ///< The operation, one line, and its arguments.
    std::vector<Round> rounds;
    std::string outcome;  ///< What `Outcome` is expected to say.

    /// Whether the answers look different in the two framings.
    bool hasFraming() const;

    /// Throws std::runtime_error that names the line.
    static WireCase load(const std::string& path);
};

/// Names of all case files, without folder and extension, sorted.
std::vector<std::string> caseNames();
std::string casePath(const std::string& name);

}  // namespace cimxml_test
