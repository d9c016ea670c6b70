# The registry store and the settings classes and toolkit over it. test_registry_writer is a second
# process that the multi-process tests run on the same store file.
add_executable(test_registry_writer ${CMAKE_CURRENT_LIST_DIR}/registry/RegistryWriter.cpp)
target_link_libraries(test_registry_writer PRIVATE quillbox_platform)
quillbox_warnings(test_registry_writer)

quillbox_unit_test(test_registry
  LIBS quillbox_platform quillbox_basekit quillbox_module SQLite::SQLite3 ICU::uc ICU::i18n SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/registry/RegistryTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/registry/RegistryProcessTest.cpp)
target_compile_definitions(test_registry PRIVATE
  QUILLBOX_REGISTRY_WRITER="$<TARGET_FILE:test_registry_writer>")
add_dependencies(test_registry test_registry_writer)
