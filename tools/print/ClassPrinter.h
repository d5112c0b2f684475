#pragma once

#include <string>

#include "tools/console/Output.h"
#include "tools/machine/RemoteDefinitions.h"
#include "tools/values/ClassSchema.h"
#include "tools/values/Qualifiers.h"

namespace tool {

/// Writes a class as MOF (DSP0004) does, for people: the superclass chain first, the meaning of values beside
/// the properties, long texts wrapped.
class ClassPrinter {
public:
    /// Both must outlive the printer. With `all` the inherited members follow the class's own, each marked
    /// with the class that declares it.
    ClassPrinter(Output& output, const RemoteDefinitions& definitions, bool all)
        : output_(output), definitions_(definitions), all_(all) {}

    void print(const ClassSchema& schema);

private:
    void printChain(const ClassSchema& schema);
    void printQualifiers(const QualifierValues& qualifiers, bool withoutValueMap, const std::string& indent);
    void printProperty(const ClassSchema::Property& property, const std::string& className);
    void printMethod(const ClassSchema::Method& method, const std::string& className);

    Output& output_;
    const RemoteDefinitions& definitions_;
    bool all_;
};

}  // namespace tool
