quillbox_unit_test(test_namekit
  LIBS quillbox_platform quillbox_namekit SQLite::SQLite3
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/namekit/NameRequestTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/namekit/NamekitLookupTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/namekit/NamekitDeliveryTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/namekit/NamekitTestSupport.cpp)
