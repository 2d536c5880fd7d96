# qc_library(NAME DIRS dir... DEPS targets...)
# A static library from every .cpp/.h in the given folders (relative to the current source dir),
# without the programs' main files. Every name in DEPS must be a target by the end of the
# configuration; a misspelt one fails the build instead of being dropped.
function(qc_library name)
  cmake_parse_arguments(A "" "" "DIRS;DEPS" ${ARGN})
  set(srcs)
  foreach(d IN LISTS A_DIRS)
    file(GLOB found CONFIGURE_DEPENDS ${d}/*.cpp ${d}/*.h)
    list(APPEND srcs ${found})
  endforeach()
  list(FILTER srcs EXCLUDE REGEX "/main\\.cpp$")
  list(FILTER srcs EXCLUDE REGEX "_main\\.cpp$")
  if(NOT srcs)
    message(FATAL_ERROR "qc_library(${name}): no sources in ${A_DIRS}")
  endif()
  add_library(${name} STATIC ${srcs})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  _qc_defer_link(${name} PUBLIC ${A_DEPS})
endfunction()

# Links once every folder is read, so that the order of add_subdirectory does not matter.
# Deferred arguments are read when the call runs, so spell the values out now.
function(_qc_defer_link name scope)
  string(REPLACE ";" " " deps "${ARGN}")
  cmake_language(EVAL CODE
    "cmake_language(DEFER DIRECTORY \"${PROJECT_SOURCE_DIR}\" CALL _qc_link_known ${name} ${scope} ${deps})")
endfunction()

function(_qc_link_known name scope)
  foreach(dep IN LISTS ARGN)
    if(NOT TARGET ${dep})
      message(FATAL_ERROR "${name} links ${dep}, which is no target of this build")
    endif()
    target_link_libraries(${name} ${scope} ${dep})
  endforeach()
endfunction()

# qc_test_suite(NAME [QT_FREE] DEPS targets...)
# One GoogleTest executable from every .cpp in the current folder, run by CTest as one test.
# QT_FREE suites get the support and main without Qt and no application object.
function(qc_test_suite name)
  cmake_parse_arguments(A "QT_FREE" "" "DEPS;LABELS" ${ARGN})
  file(GLOB srcs CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  if(NOT srcs)
    return()
  endif()
  add_executable(${name} ${srcs})
  if(A_QT_FREE)
    set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    target_link_libraries(${name} PRIVATE qc_testsupport_core qc_testmain_core)
  else()
    target_link_libraries(${name} PRIVATE qc_testsupport)
  endif()
  _qc_defer_link(${name} PRIVATE ${A_DEPS})
  target_compile_definitions(${name} PRIVATE QC_TEST_DATA_DIR="${CMAKE_CURRENT_SOURCE_DIR}/data")
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 300
                       LABELS "${A_LABELS}")
endfunction()
