# Compiles a type library: its headers and tables go below the build folder.
set(MOX_GENERATED ${CMAKE_BINARY_DIR}/generated)

# mox_compile_idl(NAME <library> FILE <idl> [DEPENDS <idl>...] CLASSES <namespace> CLIENT <header>)
# Sets <library>_SOURCES to the table files, and makes the target <library>_idl.
function(mox_compile_idl)
    cmake_parse_arguments(IDL "" "NAME;FILE;CLASSES;CLIENT" "DEPENDS" ${ARGN})
    set(folder ${MOX_GENERATED}/${IDL_NAME})
    set(sources)
    foreach(number RANGE 3)
        list(APPEND sources ${folder}/descriptions_${number}.cpp)
    endforeach()
    set(stamp ${MOX_GENERATED}/${IDL_NAME}.stamp)
    add_custom_command(
        OUTPUT ${stamp}
        BYPRODUCTS ${sources} ${folder}/descriptions.h ${MOX_GENERATED}/include/mox/${IDL_NAME}.h
                   ${MOX_GENERATED}/include/${IDL_CLIENT}
        COMMAND idlc --output ${MOX_GENERATED} --classes ${IDL_CLASSES} --client ${IDL_CLIENT} ${IDL_FILE}
        COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
        DEPENDS idlc ${IDL_FILE} ${IDL_DEPENDS}
        COMMENT "Compiling ${IDL_NAME}"
        VERBATIM)
    add_custom_target(${IDL_NAME}_idl DEPENDS ${stamp})
    set(${IDL_NAME}_SOURCES ${sources} PARENT_SCOPE)
endfunction()
