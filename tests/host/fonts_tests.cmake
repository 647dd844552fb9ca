set(HOST_FONTS_TESTS fonts_text_test.cpp fonts_textlines_test.cpp)
