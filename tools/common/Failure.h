#pragma once

#include <stdexcept>
#include <string>

namespace tool {

/// The question was in order and could not be answered: exit status 1. The text is one line for standard
/// error; it is empty when the reason has been printed already.
class Failure : public std::runtime_error {
public:
    explicit Failure(const std::string& text = {}) : std::runtime_error(text) {}
};

}  // namespace tool
