# The installed package works for a host outside the tree: install into a scratch prefix, build
# a small host with find_package(Quillbox) and another with pkg-config, the README's host and
# the host guide's examples, and run the programs offscreen.
# (Skipped in sanitizer builds, whose library needs the sanitizer runtime in every host.)
if(NOT QUILLBOX_SANITIZE)
  add_test(NAME PackageInstall.HostBuildsAgainstInstalledPackage
    COMMAND ${CMAKE_COMMAND}
      -DBUILD_DIR=${PROJECT_BINARY_DIR}
      -DSOURCE_DIR=${PROJECT_SOURCE_DIR}
      -DHOST_DIR=${CMAKE_CURRENT_SOURCE_DIR}/package/host
      -DWORK_DIR=${CMAKE_CURRENT_BINARY_DIR}/package-work
      -P ${CMAKE_CURRENT_SOURCE_DIR}/package/RunPackageTest.cmake)
  set_tests_properties(PackageInstall.HostBuildsAgainstInstalledPackage PROPERTIES
    ENVIRONMENT "${QUILLBOX_TEST_ENV}" TIMEOUT 300)
endif()
