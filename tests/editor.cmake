quillbox_unit_test(test_editor
  LIBS quillbox
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/editor/EditorFixture.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/editor/EditorWindowTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/editor/TextOperationsTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/editor/DisplaySettingsTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/editor/DropTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/editor/FileOperationsTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/editor/CompletionListTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/editor/EngineLinkTest.cpp
          ${CMAKE_CURRENT_SOURCE_DIR}/editor/EnginePaintTest.cpp)
