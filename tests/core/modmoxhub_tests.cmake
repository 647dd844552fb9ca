set(CORE_MODMOXHUB_TESTS
    modmoxhub_faults_test.cpp
    modmoxhub_test.cpp
)
