# One place that sets the language level and warnings for every target.
function(tessaly_set_options target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  # GCC 12 at -O2 and above warns -Wrestrict inside std::string's own
  # operator+ (a false positive in the library's inlined code, GCC bug
  # 105651), so that one warning stays off for GCC.
  target_compile_options(${target} PRIVATE -Wall -Wextra -Werror
    $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local -Wno-restrict>)
  # At -O3 it also warns of overflows inside std::vector's own inlined copy
  # when a small array is appended (GCC bug 107852): false for the same reason.
  target_compile_options(${target} PRIVATE
    $<$<CXX_COMPILER_ID:GNU>:-Wno-stringop-overflow -Wno-stringop-overread>)
endfunction()

# A layer: every .cpp in the folder, one static library, linking only what the
# layer table allows.
function(tessaly_layer name)
  cmake_parse_arguments(L "" "" "LINKS" ${ARGN})
  file(GLOB _srcs CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(NOT _srcs)
    # A layer with headers only so far.
    add_library(tessaly_${name} INTERFACE)
    target_include_directories(tessaly_${name} INTERFACE ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(tessaly_${name} INTERFACE ${L_LINKS})
    return()
  endif()
  add_library(tessaly_${name} STATIC ${_srcs})
  target_include_directories(tessaly_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(tessaly_${name} PUBLIC ${L_LINKS})
  tessaly_set_options(tessaly_${name})
endfunction()

# A unit-test binary for one layer: every .cpp in the folder.
function(tessaly_test name)
  cmake_parse_arguments(T "" "" "LINKS" ${ARGN})
  file(GLOB _srcs CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(NOT _srcs)
    return()
  endif()
  add_executable(test_${name} ${_srcs})
  target_link_libraries(test_${name} PRIVATE ${T_LINKS} GTest::gtest GTest::gtest_main GTest::gmock)
  target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  tessaly_set_options(test_${name})
  gtest_discover_tests(test_${name} DISCOVERY_TIMEOUT 60
    PROPERTIES ENVIRONMENT "TESSALY_SOURCE_DIR=${PROJECT_SOURCE_DIR}")
endfunction()
