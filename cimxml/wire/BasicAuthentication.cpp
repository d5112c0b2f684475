#include "cimxml/wire/BasicAuthentication.h"

#include <openssl/evp.h>

#include <algorithm>
#include <string_view>

#include "cimxml/wire/Ascii.h"

namespace cimxml {

namespace {

/// Whether "Basic" stands in `challenges` as a scheme: at its start or after a comma, and not quoted.
bool namesBasic(std::string_view challenges) {
    bool quoted = false;
    bool atStart = true;
    for (std::size_t i = 0; i < challenges.size(); ++i) {
        const char c = challenges[i];
        if (quoted) {
            i += c == '\\' ? 1 : 0;
            quoted = c != '"';
        } else if (c == '"') {
            quoted = true;
            atStart = false;
        } else if (c == ',') {
            atStart = true;
        } else if (!isBlank(c)) {
            const std::string_view rest = challenges.substr(i);
            const bool ends = rest.size() == 5 || (rest.size() > 5 && (isBlank(rest[5]) || rest[5] == ','));
            if (atStart && ends && startsWithNoCase(rest, "Basic")) {
                return true;
            }
            atStart = false;
        }
    }
    return false;
}

bool offersBasic(const HttpResponse& response) {
    bool anyScheme = false;
    for (const auto& [name, value] : response.fields) {
        if (!equalNoCase(name, "WWW-Authenticate")) {
            continue;
        }
        anyScheme = true;
        if (namesBasic(value)) {
            return true;
        }
    }
    return !anyScheme;
}

Secret base64(std::string_view text) {
    std::string encoded(4 * ((text.size() + 2) / 3) + 1, '\0');
    const int length =
        EVP_EncodeBlock(reinterpret_cast<unsigned char*>(encoded.data()),
                        reinterpret_cast<const unsigned char*>(text.data()), static_cast<int>(text.size()));
    encoded.resize(static_cast<std::size_t>(length));
    return Secret(std::move(encoded));
}

}  // namespace

BasicAuthentication::BasicAuthentication(std::string user, std::string password)
    : user_(std::move(user)), password_(std::move(password)) {}

bool BasicAuthentication::accepts(const HttpResponse& response) {
    const bool somethingToShow = !user_.empty() || !password_.empty();
    if (response.status != 401 || challenged_ || !somethingToShow || !offersBasic(response)) {
        return false;
    }
    challenged_ = true;
    return true;
}

Secret BasicAuthentication::field() const {
    Secret field;
    if (challenged_) {
        Secret plain;
        plain.append(user_.view()).append(":").append(password_.view());
        field.append("Authorization: Basic ").append(base64(plain.view()).view()).append("\r\n");
    }
    return field;
}

}  // namespace cimxml
