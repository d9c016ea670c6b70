cmake_minimum_required(VERSION 3.25)
# Installs the build into WORK_DIR/prefix, then builds and runs hosts against it as a host
# developer would: the host project in HOST_DIR with find_package and with pkg-config, the
# README's host example exactly as written, and every example of the host guide.
file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "failed (${rc}): ${ARGN}\n${out}\n${err}")
  endif()
  set(last_output "${out}" PARENT_SCOPE)
endfunction()

# The code blocks of one kind (cmake, cpp) in a Markdown file, each written to a file of its
# own, from the line `from` to the next heading of the same level, or in the whole file when
# `from` is empty.
function(code_blocks markdown kind from result)
  get_filename_component(source ${markdown} NAME_WE)
  file(MAKE_DIRECTORY ${WORK_DIR}/blocks)
  execute_process(COMMAND awk -v kind=${kind} "-v" "from=${from}" -v prefix=${WORK_DIR}/blocks/${source}-${kind}- [=[
      BEGIN { on = from == "" }
      from != "" && $0 == from { on = 1; next }
      on && from != "" && /^## / { exit }
      on && $0 == "```" kind { out = prefix n++; print out; inside = 1; next }
      inside && /^```/ { inside = 0; close(out); next }
      inside { print > out }]=] ${markdown} OUTPUT_VARIABLE blocks OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(from AND NOT blocks)
    message(FATAL_ERROR "${markdown} has no ${kind} block under \"${from}\"")
  endif()
  string(REPLACE "\n" ";" blocks "${blocks}")
  set(${result} ${blocks} PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
foreach(file include/quillbox/Quillbox.h include/quillbox/CKTSQLEditWnd.h include/quillbox/CString.h
             share/quillbox/properties/SciTEGlobal.properties share/quillbox/translations/ko-KR/Quillbox.qm)
  if(NOT EXISTS ${prefix}/${file})
    message(FATAL_ERROR "not installed: ${file}")
  endif()
endforeach()
set(ENV{LD_LIBRARY_PATH} ${prefix}/lib)

# A host that finds the CMake package: built, run, installed and run again where installed.
run(${CMAKE_COMMAND} -S ${HOST_DIR} -B ${WORK_DIR}/host-cmake -G Ninja -DCMAKE_PREFIX_PATH=${prefix})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/host-cmake)
run(${WORK_DIR}/host-cmake/quillbox_host)
if(NOT last_output MATCHES "host: 3 lines")
  message(FATAL_ERROR "unexpected host output: ${last_output}")
endif()
run(${CMAKE_COMMAND} --install ${WORK_DIR}/host-cmake --prefix ${WORK_DIR}/host-installed)
run(${WORK_DIR}/host-installed/bin/quillbox_host)
foreach(dir host-cmake host-installed/bin)
  if(NOT EXISTS ${WORK_DIR}/${dir}/ko-KR/Quillbox.qm)
    message(FATAL_ERROR "the library's translations are not beside the host in ${dir}")
  endif()
endforeach()

# A host that uses pkg-config: the flags alone bring C++20, the variable names the property file.
set(ENV{PKG_CONFIG_PATH} ${prefix}/lib/pkgconfig)
execute_process(COMMAND pkg-config --cflags --libs quillbox OUTPUT_VARIABLE flags RESULT_VARIABLE rc
                OUTPUT_STRIP_TRAILING_WHITESPACE)
execute_process(COMMAND pkg-config --variable=propertiesfile quillbox OUTPUT_VARIABLE properties
                OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT rc EQUAL 0 OR NOT EXISTS "${properties}")
  message(FATAL_ERROR "pkg-config does not know quillbox or its property file (${properties})")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
file(MAKE_DIRECTORY ${WORK_DIR}/host-pc)
run(c++ -fPIC ${HOST_DIR}/main.cpp -I${HOST_DIR}/own -o ${WORK_DIR}/host-pc/quillbox_host ${flags})
file(COPY ${properties} DESTINATION ${WORK_DIR}/host-pc/properties)
run(${WORK_DIR}/host-pc/quillbox_host)

# The README's host, built exactly as the README says; a hook added at build time saves a
# picture of its window and tells whether the SQL in it is coloured.
code_blocks(${SOURCE_DIR}/README.md cmake "## Using the library from a Qt host" cmake_blocks)
code_blocks(${SOURCE_DIR}/README.md cpp "## Using the library from a Qt host" cpp_blocks)
list(GET cmake_blocks 0 readme_cmake)
list(GET cpp_blocks 0 readme_cpp)
set(readme ${WORK_DIR}/readme-host)
configure_file(${readme_cmake} ${readme}/CMakeLists.txt COPYONLY)
configure_file(${readme_cpp} ${readme}/main.cpp COPYONLY)
run(${CMAKE_COMMAND} -S ${readme} -B ${readme}/build -G Ninja -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_PROJECT_INCLUDE=${HOST_DIR}/../readme/AddShotHook.cmake)
run(${CMAKE_COMMAND} --build ${readme}/build)
set(ENV{QUILLBOX_SHOT} ${WORK_DIR}/readme-host.png)
run(${readme}/build/myhost)
# Without the property file the SQL is black and the trace names where the file was looked for.
file(RENAME ${readme}/build/properties ${readme}/build/properties-away)
set(ENV{QUILLBOX_SHOT} ${WORK_DIR}/readme-host-without-properties.png)
set(ENV{QUILLBOX_LOG_FILE} ${WORK_DIR}/readme-host.log)
execute_process(COMMAND ${readme}/build/myhost RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
file(STRINGS ${WORK_DIR}/readme-host.log missing REGEX "property file not found")
list(LENGTH missing lines)
if(NOT rc EQUAL 3 OR NOT lines EQUAL 1 OR NOT missing MATCHES "${readme}/build/properties/SciTEGlobal.properties")
  message(FATAL_ERROR "without its property file the README host exited ${rc} (${out}); trace: ${missing}")
endif()

# Every example of the host guide compiles and links against the installed package alone.
code_blocks(${SOURCE_DIR}/docs/host-guide.md cpp "" guide_blocks)
set(guide ${WORK_DIR}/guide)
set(sources "")
foreach(block IN LISTS guide_blocks)
  get_filename_component(name ${block} NAME)
  configure_file(${block} ${guide}/${name}.cpp COPYONLY)
  string(APPEND sources " ${name}.cpp")
endforeach()
file(WRITE ${guide}/CMakeLists.txt "cmake_minimum_required(VERSION 3.25)
project(GuideExamples LANGUAGES CXX)
find_package(Quillbox REQUIRED)
add_library(guide_examples SHARED ${sources})
target_link_libraries(guide_examples PRIVATE Quillbox::quillbox)
target_compile_options(guide_examples PRIVATE -Wall -Wextra -Werror)
target_link_options(guide_examples PRIVATE -Wl,--no-undefined)
")
run(${CMAKE_COMMAND} -S ${guide} -B ${guide}/build -G Ninja -DCMAKE_PREFIX_PATH=${prefix})
run(${CMAKE_COMMAND} --build ${guide}/build)
