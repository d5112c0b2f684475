#pragma once

#include <set>
#include <string>

namespace NQELVSK20 {

/// Marks a class as being fetched for as long as the mark lives.
///
/// A class is fetched after its superclass, so the classes being fetched at one moment are a class and its
/// descendants. A server whose classes derive from themselves, or from ever new ones, must not send the
/// lookup round for ever.
class PendingClass {
public:
    /// Most levels that a class hierarchy may have; DMTF's deepest has about a dozen.
    static constexpr std::size_t kMaxLevels = 200;

    PendingClass(std::set<std::string>& pending, const std::string& key);
    ~PendingClass();
    PendingClass(const PendingClass&) = delete;
    PendingClass& operator=(const PendingClass&) = delete;

    /// False when the class is its own ancestor or stands too deep.
    bool IsAllowed() const { return isAllowed_; }

private:
    std::set<std::string>& pending_;
    std::string key_;
    bool isAllowed_;
};

}  // namespace NQELVSK20
