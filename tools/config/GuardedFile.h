#pragma once

#include <string>

namespace tool {

/// What others must not be able to do with a file: who writes it says whom passwords are sent to and which
/// program is run, who reads it may know a password.
enum class Guard { kAgainstWriting, kAgainstReading };

/// The content of a file, when neither its group nor anybody else can write it or, if they must not, read
/// it, and it is the person's own or the system's. Windows, where files of a person's folders are hers alone
/// unless she says otherwise, does not look. Throws UsageError that names the file; none of it is in the
/// text.
std::string readGuarded(const std::string& path, Guard guard);

}  // namespace tool
