// The value types that clients and classes work with.
#pragma once

#include <mox/values/array.h>
#include <mox/values/basic.h>
#include <mox/values/ref.h>
#include <mox/values/status.h>
#include <mox/values/string.h>
#include <mox/values/traits.h>
#include <mox/values/variant.h>
