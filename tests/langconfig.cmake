# The property file is read from the folder of the running program, so this test program
# lives in a folder of its own where it writes the files it reads; its tests take turns.
quillbox_unit_test(test_langconfig LOCK langconfig_properties
  LIBS quillbox
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/langconfig/LanguageConfigTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/editor/EditorFixture.cpp)
target_include_directories(test_langconfig PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/editor)
set_target_properties(test_langconfig PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/langconfig)
