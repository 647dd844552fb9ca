// The value helpers as clients reach them.
#pragma once

#include "support/bothways.h"
#include "support/testmachine.h"

#include "core/classes.h"

#include <mox/mox.h>

#include <gtest/gtest.h>

namespace mox::test {

/// A machine and the facade of the value helpers on it.
class Values : public testing::Test {
protected:
    TestMachine machine;
    moxVars vars{server::create<TRL_OBKR_MOX::_moxVars>()};
};

} // namespace mox::test
