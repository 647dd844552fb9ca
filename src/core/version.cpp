#include "core/version.h"

#include <cstdio>

namespace mox::server {

String versionString() {
    char text[32];
    std::snprintf(text, sizeof text, "%d.%02d.%04d", versionMajor, versionMinor, versionRevision);
    return String::fromUtf8(text);
}

} // namespace mox::server
