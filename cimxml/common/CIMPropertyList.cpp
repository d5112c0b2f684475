#include <Pegasus/Common/CIMPropertyList.h>

#include <algorithm>

namespace Pegasus {

namespace {

bool containsName(const Array<CIMName>& names, const CIMName& name) {
    const CIMName* const first = names.getData();
    const CIMName* const last = first + names.size();
    return std::find(first, last, name) != last;
}

}  // namespace

CIMPropertyList::CIMPropertyList(const Array<CIMName>& propertyNames) {
    set(propertyNames);
}

void CIMPropertyList::set(const Array<CIMName>& propertyNames) {
    if (containsName(propertyNames, CIMName())) {
        throw UninitializedObjectException();
    }
    _names = propertyNames;
    _isNull = false;
}

void CIMPropertyList::clear() {
    *this = CIMPropertyList();
}

void CIMPropertyList::append(Array<String>& propertyListArray) {
    Array<CIMName> names;
    for (Uint32 i = 0; i < propertyListArray.size(); ++i) {
        const CIMName name(std::as_const(propertyListArray)[i]);
        if (!containsName(names, name)) {
            names.append(name);
        }
    }
    if (names.size() > 0) {
        _names = names;
    }
    _isNull = false;
}

Boolean CIMPropertyList::contains(const CIMName& name) const {
    return containsName(_names, name);
}

Boolean CIMPropertyList::useThisProperty(const CIMName& name) const {
    return _isNull || contains(name);
}

String CIMPropertyList::toString() const {
    if (_isNull) {
        return String("NULL");
    }
    if (_names.size() == 0) {
        return String("EMPTY");
    }
    String text = _names[0].getString();
    for (Uint32 i = 1; i < _names.size(); ++i) {
        text.append(String(", ")).append(_names[i].getString());
    }
    return text;
}

}  // namespace Pegasus
