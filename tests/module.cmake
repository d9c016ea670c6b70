# The language step of the library's start. Its tests put translation files beside the test
# program, so they take a lock that keeps them from running at the same time.
quillbox_unit_test(test_module LOCK module_satellites
  LIBS quillbox_platform quillbox_basekit quillbox_module ICU::uc ICU::i18n
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/module/ModuleLanguageTest.cpp)
target_compile_definitions(test_module PRIVATE
  QUILLBOX_KOREAN_QM="${PROJECT_BINARY_DIR}/app/ko-KR/Quillbox.qm")
add_dependencies(test_module quillbox_translations)

# Every user-visible string of the library and the program has a finished translation.
find_program(QUILLBOX_LUPDATE lupdate PATHS /usr/lib/qt6/bin NO_DEFAULT_PATH)
add_test(NAME Translations.EveryStringIsTranslated
  COMMAND ${CMAKE_COMMAND} -DLUPDATE=${QUILLBOX_LUPDATE} -DSOURCE_DIR=${PROJECT_SOURCE_DIR}
    -DWORK_DIR=${CMAKE_CURRENT_BINARY_DIR}/translation-check
    -P ${CMAKE_CURRENT_SOURCE_DIR}/module/CheckTranslations.cmake)
