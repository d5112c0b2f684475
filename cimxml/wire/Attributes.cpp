#include "cimxml/wire/Attributes.h"

#include <cstring>
#include <string>

#include "cimxml/wire/XmlNode.h"

namespace cimxml {

namespace {

bool isEqual(const char* a, const char* b) {
    return *a == *b && std::strcmp(a, b) == 0;
}

}  // namespace

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): only what is filled is read
Attributes::Attributes(pugi::xml_node element) : element_(element), further_(element.first_attribute()) {
    for (; size_ < attributes_.size(); further_ = further_.next_attribute()) {
        const char* name = further_.name();
        if (*name == '\0') {
            return;  // no further one
        }
        requireNew(name);
        attributes_[size_++] = {name, further_.value()};
    }
    for (pugi::xml_attribute attribute = further_; attribute; attribute = attribute.next_attribute()) {
        requireNew(attribute.name());
    }
}

void Attributes::requireNew(const char* name) const {
    for (std::size_t i = 0; i < size_; ++i) {
        if (isEqual(attributes_[i].name, name)) {
            failAt(element_, std::string("each attribute once, found ") + name + " twice");
        }
    }
}

const char* Attributes::find(const char* name) const {
    for (std::size_t i = 0; i < size_; ++i) {
        if (isEqual(attributes_[i].name, name)) {
            return attributes_[i].value;
        }
    }
    return size_ < attributes_.size() ? nullptr : findFurther(name);
}

const char* Attributes::findFurther(const char* name) const {
    for (pugi::xml_attribute attribute = further_; attribute; attribute = attribute.next_attribute()) {
        if (isEqual(attribute.name(), name)) {
            return attribute.value();
        }
    }
    return nullptr;
}

}  // namespace cimxml
