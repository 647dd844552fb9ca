set(HOST_PROCESSES_TESTS
    commandline_test.cpp
    libraries_test.cpp
    system_version_test.cpp
)
