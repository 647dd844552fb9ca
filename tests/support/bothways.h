// One check for both ways to call a member.
#pragma once

#include "support/invoke.h"

#include <gtest/gtest.h>

#include <string>

namespace mox::test {

/// Fails unless the member gives `expected` both through its slot and through `Invoke`.
template <auto member, class Client, class Result, class... Arguments>
void expectBoth(const Client& object, const char16_t* name, const Result& expected, const Arguments&... arguments) {
    SCOPED_TRACE(String(name).utf8() + [&] {
        std::string list;
        static_cast<void>(((list += " \"" + Variant(arguments).template as<String>().utf8() + "\""), ...));
        return list;
    }());
    EXPECT_EQ((object.*member)(arguments...), expected);
    EXPECT_EQ(invoke(object.get(), name, arguments...).template as<Result>(), expected);
}

} // namespace mox::test
