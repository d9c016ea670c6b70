quillbox_unit_test(test_namekit
  LIBS quillbox_platform quillbox_namekit SQLite::SQLite3
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/namekit/NameRequestTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/namekit/SqliteNamekitMgrTest.cpp)
target_compile_definitions(test_namekit PRIVATE QUILLBOX_TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}/data")
