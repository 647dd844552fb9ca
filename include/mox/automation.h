// The Automation binary interface: everything that a client or a server of components needs.
#pragma once

#include <mox/abi/basetypes.h>
#include <mox/abi/functions.h>
#include <mox/abi/interfaces.h>
#include <mox/abi/typeinfo.h>
#include <mox/abi/variant.h>
