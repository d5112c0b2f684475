#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "cimom/data/Instance.h"
#include "cimom/schema/ClassWriter.h"

namespace cimom {

/// What of an instance a client wants to see (DSP0200, GetInstance and EnumerateInstances).
struct InstanceOptions {
    bool localOnly = true;      ///< Only properties that the instance itself holds, no class defaults.
    bool declaredOnly = false;  ///< Of these, only those that its own class declares, not a superclass alone.
    bool includeQualifiers = false;
    bool includeClassOrigin = false;
    PropertySelection properties;
    /// Only properties that this class has; null: all. Borrowed for the time of the request.
    const ClassView* limitedTo = nullptr;
};

/// Writes the instances of one answer. Works out once per class what to write of it.
class InstanceWriter {
public:
    explicit InstanceWriter(InstanceOptions options) : options_(std::move(options)) {}

    /// Bytes that instances with their names take when all that they hold is written; a guess.
    static std::size_t roomFor(const std::vector<const Instance*>& instances);

    /// Appends the INSTANCE element.
    void append(std::string& out, const Instance& instance);

private:
    /// For each property of a class, whether it is wanted, and its text in instances that do not hold it.
    struct Selection {
        std::vector<bool> wanted;
        std::vector<std::string> defaults;
        bool all = true;
    };

    const Selection& selectionFor(const ClassView& type);
    void appendProperties(std::string& out, const Instance& instance, const Selection& selection) const;
    void appendHeld(std::string& out, const Instance& instance, std::size_t n) const;
    std::string defaultText(const MemberView& member) const;
    void appendQualifiers(std::string& out, const std::vector<QualifierView>& qualifiers) const;

    InstanceOptions options_;
    std::unordered_map<const ClassView*, Selection> selections_;
};

}  // namespace cimom
