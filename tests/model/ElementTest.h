#pragma once

#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "cimhttp/TCimHTTPNamespace.h"
#include "model/TCimHTTPClass.h"
#include "model/TCimHTTPMethodDecl.h"
#include "model/TCimHTTPParameterDecl.h"
#include "model/TCimHTTPPropertyDecl.h"
#include "tests/support/RecordingLogger.h"
#include "tests/support/StatusOf.h"
#include "vskcore/ICIMQualifier.h"
#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {

/// A namespace and a class of it, not connected to anything, with elements for a test to make.
class ElementTest : public ::testing::Test {
protected:
    ElementTest() { nameSpace_->Initialize({{"pluginNameQualDeclValue", TCIMValue("cimhttp.nsp")}}); }

    /// A declaration that the namespace knows.
    boost::shared_ptr<ICIMQualifierDecl> Declare(const std::string& name, const TCIMValue& defaultValue,
                                                 unsigned int flavor = ICIMQualifierDecl::eFlavorNone) {
        const auto declaration =
            nameSpace_->AllocateQualifierDecl(name, defaultValue, ICIMQualifierDecl::eScopeAny,
                                              static_cast<ICIMQualifierDecl::EFlavor>(flavor), TContext());
        declaration->Commit(TContext());
        return declaration;
    }

    /// A declaration of its own, which may stand beside one of the same name.
    boost::shared_ptr<ICIMQualifierDecl> LooseDeclaration(const std::string& name,
                                                          unsigned int flavor = 0) const {
        return nameSpace_->AllocateQualifierDecl(name, TCIMValue(), ICIMQualifierDecl::eScopeAny,
                                                 static_cast<ICIMQualifierDecl::EFlavor>(flavor), TContext());
    }

    boost::shared_ptr<TCimHTTPPropertyDecl> MakeProperty(const std::string& name,
                                                         const TCIMValue& value = TCIMValue("")) const {
        return boost::shared_ptr<TCimHTTPPropertyDecl>(new TCimHTTPPropertyDecl(class_, name, value));
    }

    boost::shared_ptr<TCimHTTPMethodDecl> MakeMethod(const std::string& name) const {
        return boost::shared_ptr<TCimHTTPMethodDecl>(
            new TCimHTTPMethodDecl(class_, name, TCIMValue::TCIMType::eUint32));
    }

    boost::shared_ptr<TCimHTTPParameterDecl> MakeParameter(
        const std::string& name, TCIMValue::TCIMType::ECIMType type = TCIMValue::TCIMType::eString) const {
        return boost::shared_ptr<TCimHTTPParameterDecl>(new TCimHTTPParameterDecl(method_, name, type));
    }

    /// Whether the values are equal, types included.
    static bool Same(const TCIMValue& left, const TCIMValue& right) { return !(left != right); }

    RecordingLogger log_;
    boost::shared_ptr<TCimHTTPNamespace> nameSpace_{new TCimHTTPNamespace(false, "root/cimv2")};
    boost::shared_ptr<TCimHTTPClass> class_{new TCimHTTPClass(nameSpace_, 60000, "CIM_Fan", {})};
    boost::shared_ptr<TCimHTTPMethodDecl> method_ = MakeMethod("Reset");
};

}  // namespace NQELVSK20
