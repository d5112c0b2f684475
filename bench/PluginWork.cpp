#include "bench/PluginWork.h"

#include <boost/pointer_cast.hpp>
#include <stdexcept>

#include "bench/Sample.h"
#include "cimhttp/PegClient.h"
#include "cimhttp/TCimHTTPNamespaceProvider.h"
#include "qelc/TQELCNamespace.h"
#include "union/TUnionNamespace.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/ICIMInstance.h"
#include "vskcore/ICIMProperty.h"
#include "vskcore/THostSetup.h"

namespace bench {

using namespace NQELVSK20;

namespace {

std::size_t CountValues(const ICIMInstance& instance) {
    std::size_t count = 0;
    instance.EnumerateProperties(
        [&](boost::shared_ptr<ICIMProperty> property) {
            count += property->GetValue(TContext()).IsNull() ? 0U : 1U;
            return true;
        },
        TContext());
    return count;
}

void Connect(TCimHTTPNamespace& nameSpace, const std::vector<std::string>& hosts) {
    THostSetup::SetNodeCount(hosts.size());
    if (hosts.size() == 1) {
        nameSpace.ConnectViaHttp(hosts.front(), "", "", kHttpPort);
    } else {
        const std::vector<std::string> none(hosts.size());
        nameSpace.connect(hosts, none, none);  // nothing listens for HTTPS there
    }
}

}  // namespace

boost::shared_ptr<TCimHTTPNamespace> ConnectedNamespace(const std::vector<std::string>& hosts) {
    const auto nameSpace = boost::dynamic_pointer_cast<TCimHTTPNamespace>(
        TCimHTTPNamespaceProvider::GetInstance()->AllocateNamespace(
            {{"pluginNameQualDeclValue", TCIMValue("bench")}}, false, kNamespace));
    const boost::shared_ptr<TQELCNamespace> common(new TQELCNamespace);
    common->SetUpcallNamespace(boost::shared_ptr<ICIMNamespace>(new TUnionNamespace), TContext());
    nameSpace->SetUpcallNamespace(common, TContext());
    nameSpace->Init();
    Connect(*nameSpace, hosts);
    return nameSpace;
}

void CheckDelivery(const std::vector<std::string>& hosts, std::size_t ofEach) {
    const boost::shared_ptr<TCimHTTPNamespace> nameSpace = ConnectedNamespace(hosts);
    const auto cimClass = nameSpace->GetClass(kManyClass, TContext());
    std::vector<std::size_t> counts(hosts.size());
    std::string last;
    bool isRight = cimClass != nullptr;
    const auto check = [&](const boost::shared_ptr<ICIMInstance>& instance) {
        const std::string path = instance->GetReference(TContext()).GetPath();
        const std::string mark =
            instance->GetProperty("NodeID", TContext())->GetValue(TContext()).ToString(10);
        const std::size_t node = std::stoul(mark) - 1;
        isRight = last < path && node < counts.size() &&
                  path.find("\"node-" + std::to_string(node) + ".machine.example\"") != std::string::npos;
        counts[isRight ? node : 0] += 1;
        last = path;
        return isRight;
    };
    if (isRight) {
        cimClass->EnumerateInstances(check, false, TContext());
    }
    if (!isRight || counts != std::vector<std::size_t>(hosts.size(), ofEach)) {
        throw std::runtime_error(
            "an instance is missing, comes twice or in the wrong place, or is marked wrong: " + last);
    }
    nameSpace->disconnect();
}

Contestant::Work PrepareEnumeration(const std::vector<std::string>& hosts) {
    const boost::shared_ptr<TCimHTTPNamespace> nameSpace = ConnectedNamespace(hosts);
    return [nameSpace] {
        std::size_t count = 0;
        std::size_t values = 0;
        const auto cimClass = nameSpace->GetClass(kManyClass, TContext());
        if (!cimClass) {
            throw std::runtime_error("the plug-in offers no class " + std::string(kManyClass));
        }
        cimClass->EnumerateInstances(
            [&](boost::shared_ptr<ICIMInstance> instance) {
                ++count;
                values += CountValues(*instance);
                return true;
            },
            false, TContext());
        return values > count ? count : std::size_t{0};
    };
}

}  // namespace bench
