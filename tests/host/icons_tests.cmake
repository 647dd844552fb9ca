set(HOST_ICONS_TESTS icons_objects_test.cpp)
