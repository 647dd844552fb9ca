set(HOST_PIXELS_TESTS pixels_bitmaps_test.cpp)
