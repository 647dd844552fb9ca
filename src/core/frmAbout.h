// The about box.
#pragma once

namespace mox::server {

/// Shows the library's version and returns when the user has closed the box; at once where nobody is there to see it.
void showAbout();

} // namespace mox::server
