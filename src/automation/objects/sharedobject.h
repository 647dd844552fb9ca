#pragma once

#include <mox/sharedobject.h>
