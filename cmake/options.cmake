# What every target of the project is compiled with. The value types of the interfaces share the layout of the plain types
# that they own and are reached through both, so accesses must not be told apart by type.
add_library(mox_options INTERFACE)
target_compile_options(mox_options INTERFACE -Wall -Wextra -Wshadow -Woverloaded-virtual -Werror -fno-strict-aliasing)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Unique symbols would keep an unused server file loaded for good.
    target_compile_options(mox_options INTERFACE -fno-gnu-unique)
    # GCC 12 sees inlined concatenations of strings write beyond their ends (its bug 105651).
    target_compile_options(mox_options INTERFACE -Wno-array-bounds -Wno-restrict -Wno-stringop-overflow -Wno-stringop-overread)
endif()
# The check of dynamic types (vptr) reads run-time type information, which objects of other languages do not have.
if(MOX_SANITIZE)
    target_compile_options(mox_options INTERFACE -fsanitize=address,undefined -fno-sanitize=vptr -fno-sanitize-recover=all
                           -fno-omit-frame-pointer)
    target_link_options(mox_options INTERFACE -fsanitize=address,undefined)
    # Programs without the sanitizers that load our libraries have to load theirs first; what such programs never free is not ours to report.
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libasan.so OUTPUT_VARIABLE asan OUTPUT_STRIP_TRAILING_WHITESPACE)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libubsan.so OUTPUT_VARIABLE ubsan OUTPUT_STRIP_TRAILING_WHITESPACE)
    set(MOX_FOREIGN_ENVIRONMENT "LD_PRELOAD=${asan}:${ubsan}" ASAN_OPTIONS=detect_leaks=0)
endif()
if(MOX_FUZZ)
    target_compile_options(mox_options INTERFACE -fsanitize=address,undefined,fuzzer-no-link -fno-sanitize=vptr,function
                           -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(mox_options INTERFACE -fsanitize=address,undefined)
endif()

# Headers that nearly every source reads, compiled once a target.
function(mox_precompile target)
    target_precompile_headers(${target} PRIVATE <algorithm> <filesystem> <functional> <map> <memory> <mutex> <optional> <span> <string>
                              <string_view> <vector> ${ARGN})
endfunction()
