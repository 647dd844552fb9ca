mox_test(drawing_test drawing SOURCES buffer_test.cpp colors_test.cpp filters_test.cpp fonts_test.cpp golden_test.cpp pictures_test.cpp pixelroutines_colors_test.cpp pixelroutines_hsl_test.cpp pixelroutines_places_test.cpp primitives_test.cpp screenshot_test.cpp text_test.cpp
         LIBRARIES mox_server)
target_compile_definitions(drawing_test PRIVATE MOX_TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}/data")
