# qc_library(NAME [QT] SOURCES_GLOB dir... DEPS targets...)
# A static library from every .cpp/.h in the given folders (relative to the current source dir).
# A library whose folders hold no sources yet is skipped, together with what links it.
function(qc_library name)
  cmake_parse_arguments(A "QT" "" "DIRS;DEPS" ${ARGN})
  set(srcs)
  foreach(d IN LISTS A_DIRS)
    file(GLOB found CONFIGURE_DEPENDS ${d}/*.cpp ${d}/*.h)
    list(APPEND srcs ${found})
  endforeach()
  list(FILTER srcs EXCLUDE REGEX "/main\\.cpp$")
  list(FILTER srcs EXCLUDE REGEX "_main\\.cpp$")
  if(NOT srcs)
    return()
  endif()
  add_library(${name} STATIC ${srcs})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  # Link once every folder is read, so that the order of add_subdirectory does not matter and
  # libraries without sources yet are left out.
  _qc_defer_link(${name} PUBLIC ${A_DEPS})
endfunction()

# Deferred arguments are read when the call runs, so spell the values out now.
function(_qc_defer_link name scope)
  string(REPLACE ";" " " deps "${ARGN}")
  cmake_language(EVAL CODE
    "cmake_language(DEFER DIRECTORY \"${PROJECT_SOURCE_DIR}\" CALL _qc_link_existing ${name} ${scope} ${deps})")
endfunction()

function(_qc_link_existing name scope)
  foreach(dep IN LISTS ARGN)
    if(TARGET ${dep})
      target_link_libraries(${name} ${scope} ${dep})
    endif()
  endforeach()
endfunction()

# qc_test_suite(NAME DEPS targets...)
# One GoogleTest executable from every .cpp in the current folder, each test its own CTest case.
function(qc_test_suite name)
  cmake_parse_arguments(A "" "" "DEPS;LABELS" ${ARGN})
  file(GLOB srcs CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  if(NOT srcs)
    return()
  endif()
  add_executable(${name} ${srcs})
  target_link_libraries(${name} PRIVATE qc_testsupport GTest::gtest GTest::gmock)
  _qc_defer_link(${name} PRIVATE ${A_DEPS})
  target_compile_definitions(${name} PRIVATE QC_TEST_DATA_DIR="${CMAKE_CURRENT_SOURCE_DIR}/data")
  gtest_discover_tests(${name}
    DISCOVERY_TIMEOUT 60
    PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 120 LABELS "${A_LABELS}")
endfunction()
