add_test(NAME App.BatchCommandsUseTheSqlWindow
  COMMAND bash ${CMAKE_CURRENT_SOURCE_DIR}/app/app-commands.sh $<TARGET_FILE:quillbox_app> ${PROJECT_SOURCE_DIR}
    ${CMAKE_CURRENT_BINARY_DIR}/app-work)
set_tests_properties(App.BatchCommandsUseTheSqlWindow PROPERTIES ENVIRONMENT "${QUILLBOX_TEST_ENV}")

quillbox_unit_test(test_app_host
  LIBS quillbox_app_host quillbox
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/app/EditorHostTest.cpp)
target_include_directories(test_app_host PRIVATE ${PROJECT_SOURCE_DIR}/app)
