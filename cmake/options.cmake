# What every target of the project is compiled with. The value types of the interfaces share the layout of the plain types
# that they own and are reached through both, so accesses must not be told apart by type.
add_library(mox_options INTERFACE)
target_compile_options(mox_options INTERFACE -Wall -Wextra -Wshadow -Woverloaded-virtual -Werror -fno-gnu-unique -fno-strict-aliasing)
if(MOX_SANITIZE)
    target_compile_options(mox_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(mox_options INTERFACE -fsanitize=address,undefined)
endif()
