set(HOST_METAFILES_TESTS
    metafiles_bitmaps_test.cpp
    metafiles_broken_test.cpp
    metafiles_old_test.cpp
    metafiles_play_test.cpp
    metafiles_record_test.cpp)
