#pragma once

#include <gtest/gtest.h>

#include <boost/pointer_cast.hpp>
#include <boost/shared_ptr.hpp>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "cimhttp/TCimHTTPNamespace.h"
#include "model/TCimHTTPClass.h"
#include "tests/support/Declarations.h"
#include "tests/support/PluginTest.h"
#include "tests/support/StatusOf.h"
#include "vskcore/ICIMProperty.h"
#include "vskcore/ICIMQualifier.h"

namespace NQELVSK20 {

/// Tests of classes and instances: nodes that hold what a test declares, and shorthands for what the
/// operations under test return.
class ModelTest : public PluginTest {
protected:
    using Lines = std::vector<RecordingLogger::Line>;
    using Names = std::vector<std::string>;
    using Namespace = boost::shared_ptr<TCimHTTPNamespace>;
    using Class = boost::shared_ptr<TCimHTTPClass>;
    using Instance = boost::shared_ptr<ICIMInstance>;
    using Instances = std::vector<Instance>;

    /// As in any plug-in test, and kept connected until the test ends: classes hold their namespace weakly.
    Namespace Connected(TestMachine& machine, const std::string& name = "root/cimv2",
                        bool replaceDuplicates = false) {
        kept_.push_back(PluginTest::Connected(machine, name, replaceDuplicates));
        return kept_.back();
    }

    /// Nodes without data.
    static TestMachine::Options Nodes(std::size_t count) {
        TestMachine::Options options;
        options.nodes = count;
        options.sampleData = false;
        return options;
    }

    /// Declares objects on one node, or on every node.
    static void DeclareOn(TestMachine& machine, std::size_t node, std::initializer_list<std::string> objects,
                          const std::string& nameSpace = "root/cimv2") {
        machine.Repository(node).addDeclarations(nameSpace, Declarations(objects), "test");
    }
    static void Declare(TestMachine& machine, std::initializer_list<std::string> objects,
                        const std::string& nameSpace = "root/cimv2") {
        for (std::size_t node = 0; node < machine.Hosts().size(); ++node) {
            DeclareOn(machine, node, objects, nameSpace);
        }
    }

    static Class GetClass(const Namespace& nameSpace, const std::string& name) {
        return boost::dynamic_pointer_cast<TCimHTTPClass>(nameSpace->GetClass(name, TContext()));
    }

    /// A class that is initialised but not entered into the namespace.
    static Class Allocate(const Namespace& nameSpace, const std::string& name) {
        return boost::dynamic_pointer_cast<TCimHTTPClass>(
            nameSpace->AllocateClass(name, boost::shared_ptr<ICIMClass>(), TContext()));
    }

    static Names PropertiesOf(const Class& cimClass) {
        Names names;
        cimClass->EnumeratePropertyDecls(
            [&](const boost::shared_ptr<ICIMPropertyDecl>& declaration) {
                names.push_back(declaration->GetName(TContext()));
                return true;
            },
            TContext());
        return names;
    }

    static Names MethodsOf(const Class& cimClass) {
        Names names;
        cimClass->EnumerateMethodDecls(
            [&](const boost::shared_ptr<ICIMMethodDecl>& declaration) {
                names.push_back(declaration->GetName(TContext()));
                return true;
            },
            TContext());
        return names;
    }

    static Names QualifiersOf(const ICIMNamedElement& element) {
        Names names;
        element.EnumerateQualifiers(
            [&](const boost::shared_ptr<ICIMQualifier>& qualifier) {
                names.push_back(qualifier->GetName(TContext()));
                return true;
            },
            TContext());
        return names;
    }

    static Names SubclassesOf(const ICIMClass& cimClass, bool deep = false) {
        Names names;
        cimClass.EnumerateSubclasses(
            [&](const boost::shared_ptr<ICIMClass>& subclass) {
                names.push_back(subclass->GetName(TContext()));
                return true;
            },
            deep, TContext());
        return names;
    }

    static Instances InstancesOf(const Class& cimClass, bool deep = false) {
        Instances instances;
        cimClass->EnumerateInstances(
            [&](const Instance& instance) {
                instances.push_back(instance);
                return true;
            },
            deep, TContext());
        return instances;
    }

    static Names PathsOf(const Instances& instances) {
        Names paths;
        for (const Instance& instance : instances) {
            paths.push_back(instance->GetReference(TContext()).GetPath());
        }
        return paths;
    }

    /// A reference in no namespace.
    static TCIMReference Reference(const std::string& path) {
        TCIMReference reference{boost::shared_ptr<ICIMNamespace>(), TContext()};
        reference.SetPath(path);
        return reference;
    }

    static TCIMValue ValueOf(const Instance& instance, const std::string& property) {
        return instance->GetProperty(property, TContext())->GetValue(TContext());
    }
    static std::string TextOf(const Instance& instance, const std::string& property) {
        return ValueOf(instance, property).ToString(10);
    }

    static Names TextsOf(const Instances& instances, const std::string& property) {
        Names texts;
        for (const Instance& instance : instances) {
            texts.push_back(TextOf(instance, property));
        }
        return texts;
    }

private:
    std::vector<Namespace> kept_;
};

/// The value of an argument of an intrinsic request; `defaultValue` (DSP0200) when the client left it out.
inline std::string ArgumentOf(const cimom::SeenRequest& request, const std::string& name,
                              const std::string& defaultValue) {
    const std::size_t at = request.body.find("<IPARAMVALUE NAME=\"" + name + "\">");
    if (at == std::string::npos) {
        return defaultValue;
    }
    const std::string open = "<VALUE>";
    const std::size_t from = request.body.find(open, at) + open.size();
    return request.body.substr(from, request.body.find("</VALUE>", from) - from);
}

// Pieces of CIM-XML that the shared declarations do not have.

/// A QUALIFIER element; `attributes` are further attributes, such as ` OVERRIDABLE="false"`.
inline std::string QualifierXml(const std::string& name, const std::string& type, const std::string& value,
                                const std::string& attributes = "") {
    return "<QUALIFIER NAME=\"" + name + "\" TYPE=\"" + type + "\"" + attributes + "><VALUE>" + value +
           "</VALUE></QUALIFIER>";
}

/// A PROPERTY element with qualifiers and no value.
inline std::string QualifiedPropertyXml(const std::string& name, const std::string& type,
                                        const std::string& qualifiers) {
    return "<PROPERTY NAME=\"" + name + "\" TYPE=\"" + type + "\">" + qualifiers + "</PROPERTY>";
}

inline std::string ArrayPropertyXml(const std::string& name, const std::string& type) {
    return "<PROPERTY.ARRAY NAME=\"" + name + "\" TYPE=\"" + type + "\"></PROPERTY.ARRAY>";
}

/// A key that refers to an object of a class.
inline std::string ReferenceKeyXml(const std::string& name, const std::string& className) {
    return "<PROPERTY.REFERENCE NAME=\"" + name + "\" REFERENCECLASS=\"" + className + "\">" +
           QualifierXml("Key") + "</PROPERTY.REFERENCE>";
}

/// The value of a reference: an instance with one string key, as a path within `nameSpace`.
inline std::string ReferenceXml(const std::string& name, const std::string& className, const std::string& key,
                                const std::string& value) {
    return "<PROPERTY.REFERENCE NAME=\"" + name +
           "\"><VALUE.REFERENCE><LOCALINSTANCEPATH><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/>"
           "<NAMESPACE NAME=\"cimv2\"/></LOCALNAMESPACEPATH><INSTANCENAME CLASSNAME=\"" +
           className + "\"><KEYBINDING NAME=\"" + key + "\"><KEYVALUE VALUETYPE=\"string\">" + value +
           "</KEYVALUE></KEYBINDING></INSTANCENAME></LOCALINSTANCEPATH></VALUE.REFERENCE>"
           "</PROPERTY.REFERENCE>";
}

/// A METHOD element; `parameters` are PARAMETER elements.
inline std::string MethodXml(const std::string& name, const std::string& type,
                             const std::string& parameters = "") {
    return "<METHOD NAME=\"" + name + "\" TYPE=\"" + type + "\">" + parameters + "</METHOD>";
}

}  // namespace NQELVSK20
