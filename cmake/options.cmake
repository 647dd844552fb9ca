# What every target of the project is compiled with. The value types of the interfaces share the layout of the plain types
# that they own and are reached through both, so accesses must not be told apart by type.
add_library(mox_options INTERFACE)
target_compile_options(mox_options INTERFACE -Wall -Wextra -Wshadow -Woverloaded-virtual -Werror -fno-strict-aliasing)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Unique symbols would keep an unused server file loaded for good.
    target_compile_options(mox_options INTERFACE -fno-gnu-unique)
endif()
if(MOX_SANITIZE)
    target_compile_options(mox_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(mox_options INTERFACE -fsanitize=address,undefined)
endif()
if(MOX_FUZZ)
    target_compile_options(mox_options INTERFACE -fsanitize=address,undefined,fuzzer-no-link -fno-sanitize=vptr,function
                           -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(mox_options INTERFACE -fsanitize=address,undefined)
endif()
