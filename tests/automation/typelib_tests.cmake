# The tests of type information and dispatch.
set(AUTOMATION_TYPELIB_TESTS
    sample_library.cpp
    dispatch_reference_test.cpp
    dispatch_test.cpp
    recordinfo_test.cpp
    trace_test.cpp
    typeinfo_test.cpp
    typelib_test.cpp)
