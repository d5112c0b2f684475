#include <Pegasus/Common/CIMQualifierDecl.h>

#include "cimxml/common/HandleAccess.h"
#include "cimxml/common/NamedRep.h"

namespace Pegasus {

/// What the handles of a qualifier declaration share.
class CIMQualifierDeclRep : public NamedRep {
public:
    CIMQualifierDeclRep(const CIMName& qualifierName, const CIMValue& itsValue, const CIMScope& itsScope,
                        const CIMFlavor& itsFlavor, Uint32 itsArraySize)
        : NamedRep(qualifierName),
          value(itsValue),
          scope(itsScope),
          flavor(itsFlavor),
          arraySize(itsArraySize) {
        imply(CIMFlavor::RESTRICTED, CIMFlavor::TOSUBCLASS);
        imply(CIMFlavor::DISABLEOVERRIDE, CIMFlavor::ENABLEOVERRIDE);
    }

    bool identical(const CIMQualifierDeclRep& other) const {
        return this == &other ||
               (name().equal(other.name()) && value.equal(other.value) && scope.equal(other.scope) &&
                flavor.equal(other.flavor) && arraySize == other.arraySize);
    }

    CIMValue value;
    CIMScope scope;
    CIMFlavor flavor;
    Uint32 arraySize;

private:
    /// Of two opposites exactly one is set; the first one has precedence.
    void imply(const CIMFlavor& negative, const CIMFlavor& positive) {
        if (flavor.hasFlavor(negative)) {
            flavor.removeFlavor(positive);
        } else {
            flavor.addFlavor(positive);
        }
    }
};

CIMConstQualifierDecl::CIMConstQualifierDecl(const CIMName& name, const CIMValue& value,
                                             const CIMScope& scope, const CIMFlavor& flavor, Uint32 arraySize)
    : _rep(std::make_shared<CIMQualifierDeclRep>(name, value, scope, flavor, arraySize)) {}

CIMQualifierDeclRep& CIMConstQualifierDecl::rep() const {
    return HandleAccess::deref(_rep);
}

const CIMName& CIMConstQualifierDecl::getName() const {
    return rep().name();
}

CIMType CIMConstQualifierDecl::getType() const {
    return rep().value.getType();
}

Boolean CIMConstQualifierDecl::isArray() const {
    return rep().value.isArray();
}

const CIMValue& CIMConstQualifierDecl::getValue() const {
    return rep().value;
}

const CIMScope& CIMConstQualifierDecl::getScope() const {
    return rep().scope;
}

const CIMFlavor& CIMConstQualifierDecl::getFlavor() const {
    return rep().flavor;
}

Uint32 CIMConstQualifierDecl::getArraySize() const {
    return rep().arraySize;
}

Boolean CIMConstQualifierDecl::identical(const CIMConstQualifierDecl& x) const {
    return rep().identical(x.rep());
}

CIMQualifierDecl CIMConstQualifierDecl::clone() const {
    return HandleAccess::make<CIMQualifierDecl>(std::make_shared<CIMQualifierDeclRep>(rep()));
}

void CIMQualifierDecl::setName(const CIMName& name) {
    rep().rename(name, "qualifier declaration");
}

void CIMQualifierDecl::setValue(const CIMValue& value) {
    rep().value = value;
}

}  // namespace Pegasus
