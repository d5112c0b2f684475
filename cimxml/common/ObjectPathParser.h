#pragma once

#include <Pegasus/Common/CIMObjectPath.h>

#include <string>

#include "cimxml/common/CIMObjectPathRep.h"

namespace Pegasus {

/// Reads the text form of an object path (DSP0004, object names). Texts do not
/// tell strings from references: a quoted value that is itself a path with
/// keys counts as a reference.
class ObjectPathParser {
public:
    explicit ObjectPathParser(const String& objectName);

    /// Throws MalformedObjectNameException. The keys come in the text's order.
    CIMObjectPathRep parse();

private:
    bool takeHost();
    bool takeNameSpace();
    void takeClassName();
    CIMKeyBinding takeKeyBinding();
    CIMName takeKeyName();
    CIMKeyBinding takeQuotedValue(const CIMName& name);
    CIMKeyBinding takeBooleanValue(const CIMName& name);
    CIMKeyBinding takeNumericValue(const CIMName& name);

    bool atEnd() const { return _position == _text.size(); }
    /// The character at the position; NUL at the end.
    char peek() const { return _text.c_str()[_position]; }
    /// Takes what stands before the next `stop`, or everything.
    std::string takeUntil(char stop);
    [[noreturn]] void fail(const std::string& reason) const;

    const String& _objectName;
    const std::string _text;  // in UTF-8
    std::size_t _position = 0;
    CIMObjectPathRep _result;
};

}  // namespace Pegasus
