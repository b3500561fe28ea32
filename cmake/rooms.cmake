# The shapes that every folder's CMakeLists.txt is made of: a room (a library), its tests, a bundled tool, and files that
# are read from the installation.

add_library(tessel_options INTERFACE)
target_compile_options(tessel_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
# The house is built with g++; what another compiler warns of stops nothing.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 reports std::string and std::variant internals here, never our own code.
  target_compile_options(tessel_options INTERFACE -Werror -Wno-restrict -Wno-maybe-uninitialized)
endif()
if(TESSEL_SANITIZE)
  target_compile_options(tessel_options INTERFACE -fsanitize=${TESSEL_SANITIZE} -fno-sanitize-recover=all)
  target_link_options(tessel_options INTERFACE -fsanitize=${TESSEL_SANITIZE})
endif()

# tessel_room(NAME SOURCES ... LINKS ...): the library tessel_NAME. Its headers are included by their path
# below src/.
function(tessel_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS" ${ARGN})
  add_library(tessel_${name} STATIC ${ROOM_SOURCES})
  target_include_directories(tessel_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(tessel_${name} PRIVATE tessel_options PUBLIC tessel_include ${ROOM_LINKS})
endfunction()

# tessel_interface_room(NAME LINKS ...): a room of headers only.
function(tessel_interface_room name)
  cmake_parse_arguments(ROOM "" "" "LINKS" ${ARGN})
  add_library(tessel_${name} INTERFACE)
  target_include_directories(tessel_${name} INTERFACE ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(tessel_${name} INTERFACE tessel_include ${ROOM_LINKS})
endfunction()

# tessel_test(NAME SOURCES ... LINKS ...): the program NAME_test, each of its cases a test of CTest.
function(tessel_test name)
  cmake_parse_arguments(TEST "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name}_test ${TEST_SOURCES})
  target_include_directories(${name}_test PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(
    ${name}_test PRIVATE TESSEL_TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}"
                         TESSEL_SHARE="${CMAKE_BINARY_DIR}/share/tessel")
  target_link_libraries(${name}_test PRIVATE tessel_options ${TEST_LINKS} GTest::gtest_main)
  set_target_properties(${name}_test PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  add_test(NAME ${name} COMMAND ${name}_test)
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()

# tessel_bundled_tool(NAME SOURCES...): the add-on library tessel_NAME of component.cpp, and of these sources
# tessel_NAME_parts, which know the headers only, so that a test can link them with the editor itself.
function(tessel_bundled_tool name)
  add_library(tessel_${name}_parts STATIC ${ARGN})
  target_link_libraries(tessel_${name}_parts PRIVATE tessel_options PUBLIC tessel_addons_shared)
  add_library(tessel_${name} MODULE component.cpp)
  target_link_libraries(tessel_${name} PRIVATE tessel_options tessel_${name}_parts tessel_addon)
  string(REPLACE "_" "-" file tessel-${name})
  set_target_properties(
    tessel_${name}
    PROPERTIES OUTPUT_NAME ${file}
               LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/libexec/tessel/addons
               INSTALL_RPATH "$ORIGIN/../../../${CMAKE_INSTALL_LIBDIR}")
  install(TARGETS tessel_${name} DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/tessel/addons)
endfunction()

# tessel_share(TARGET FOLDER FILES...): copies the files of the current folder, with their paths in it, into
# share/tessel/FOLDER
# beside the built programs, and installs them there.
function(tessel_share target folder)
  set(copies)
  foreach(file ${ARGN})
    cmake_path(SET place NORMALIZE tessel/${folder}/${file})
    cmake_path(GET place PARENT_PATH parent)
    set(copy ${CMAKE_BINARY_DIR}/share/${place})
    add_custom_command(
      OUTPUT ${copy}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/share/${parent}
      COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_CURRENT_SOURCE_DIR}/${file} ${copy}
      DEPENDS ${file})
    list(APPEND copies ${copy})
    install(FILES ${file} DESTINATION ${CMAKE_INSTALL_DATADIR}/${parent})
  endforeach()
  add_custom_target(${target} ALL DEPENDS ${copies})
endfunction()
