set(HOST_GRAPHICS_TESTS
    graphics_areas_test.cpp
    graphics_bitmap_test.cpp
    graphics_figures_test.cpp
    graphics_lines_test.cpp
    graphics_objects_test.cpp
)
