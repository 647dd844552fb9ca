// The value helpers as clients reach them, and one check for both ways to call.
#pragma once

#include "support/invoke.h"
#include "support/testmachine.h"

#include "core/classes.h"

#include <mox/mox.h>

#include <gtest/gtest.h>

namespace mox::test {

/// Fails unless the member gives `expected` both through its slot and through `Invoke`.
template <auto member, class Client, class Result, class... Arguments>
void expectBoth(const Client& object, const char16_t* name, const Result& expected, const Arguments&... arguments) {
    SCOPED_TRACE(String(name).utf8() + [&] {
        std::string list;
        static_cast<void>(((list += " " + Variant(arguments).template as<String>().utf8()), ...));
        return list;
    }());
    EXPECT_EQ((object.*member)(arguments...), expected);
    EXPECT_EQ(invoke(object.get(), name, arguments...).template as<Result>(), expected);
}

/// A machine and the facade of the value helpers on it.
class Values : public testing::Test {
protected:
    TestMachine machine;
    moxVars vars{server::create<TRL_OBKR_MOX::_moxVars>()};
};

} // namespace mox::test
