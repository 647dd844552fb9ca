mox_test(system_test system SOURCES registry_test.cpp serverregistration_test.cpp settings_test.cpp system_test.cpp
         LIBRARIES mox_server test_servers)
