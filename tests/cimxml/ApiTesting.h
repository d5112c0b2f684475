#pragma once

#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <typeinfo>

/// The text in UTF-8.
inline std::string utf8(const Pegasus::String& text) {
    return static_cast<const char*>(text.getCString());
}

/// Runs `action`, which has to throw exactly an Expected (or anything derived
/// from it, when that is Exception itself), and returns the exception's message.
template <class Expected = Pegasus::Exception, class Action>
std::string messageThrownBy(Action action) {
    try {
        action();
    } catch (const Pegasus::Exception& e) {
        if (!std::is_same_v<Expected, Pegasus::Exception>) {
            EXPECT_STREQ(typeid(e).name(), typeid(Expected).name()) << utf8(e.getMessage());
        }
        return utf8(e.getMessage());
    }
    ADD_FAILURE() << "threw nothing";
    return "no exception";
}

template <class Action>
void expectUninitialized(Action action) {
    EXPECT_EQ(messageThrownBy<Pegasus::UninitializedObjectException>(action), "uninitialized object");
}

template <class Action>
void expectTypeMismatch(Action action) {
    EXPECT_EQ(messageThrownBy<Pegasus::TypeMismatchException>(action), "type mismatch");
}

template <class Action>
void expectOutOfBounds(Action action) {
    EXPECT_EQ(messageThrownBy<Pegasus::IndexOutOfBoundsException>(action), "index out of bounds");
}
