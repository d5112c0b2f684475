#include "cimxml/wire/Secret.h"

#include <openssl/crypto.h>

namespace cimxml {

void wipe(void* memory, std::size_t size) {
    OPENSSL_cleanse(memory, size);
}

Secret::Secret(std::string&& text) {
    append(text);
    wipe(text.data(), text.size());
    text.clear();
}

}  // namespace cimxml
