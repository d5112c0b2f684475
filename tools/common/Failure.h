#pragma once

#include <stdexcept>
#include <string>

namespace tool {

/// The question was in order and could not be answered. The text is one line for standard error; it is empty
/// when the reason has been printed already.
class Failure : public std::runtime_error {
public:
    enum class Kind {
        kNoAnswer,      ///< Servers failed; what was said of them tells how.
        kNothingThere,  ///< What was asked for does not exist.
        kLocal          ///< This side failed, not a server.
    };

    explicit Failure(const std::string& text = {}, Kind kind = Kind::kNoAnswer)
        : std::runtime_error(text), kind_(kind) {}

    Kind kind() const { return kind_; }

private:
    Kind kind_;
};

}  // namespace tool
