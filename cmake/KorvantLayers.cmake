# A layer is a target. Its public headers lie in <layer>/api and are all that the
# layers above and the module can include; its own headers lie beside the sources
# and are seen by those who link the <layer>_internal target. Linking a layer is
# the only way to its headers, so an upward include does not compile.

add_library(korvant_warnings INTERFACE)
target_compile_options(korvant_warnings INTERFACE -Wall -Wextra -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 warns of overlapping copies inside its own std::string when it optimizes (GCC bug 105651).
  target_compile_options(korvant_warnings INTERFACE -Wno-restrict)
endif()

if(KORVANT_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(KORVANT_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
endif()

# What only tests are compiled with: their own code need not be fast, what they call is.
if(CMAKE_BUILD_TYPE STREQUAL "Release")
  set(KORVANT_TEST_FLAGS -O0)
endif()

# korvant_reuse_headers(TARGET SET): TARGET is compiled with a set of precompiled headers (cmake/headers).
function(korvant_reuse_headers target set)
  if(KORVANT_PRECOMPILE)
    target_precompile_headers(${target} REUSE_FROM headers_${set})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
      target_compile_options(${target} PRIVATE -fpch-preprocess) # so that a compile cache sees the headers
      if(CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        # The same fault of GCC 12 as above: with precompiled headers it finds impossible lengths inside its
        # own std::string. The sanitizers, and a build without precompiled headers, keep watch.
        target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
      endif()
    endif()
  endif()
endfunction()

# korvant_host_layer(NAME [USES layer...] [INTERNALS layer...] [LIBS lib...])
function(korvant_host_layer name)
  cmake_parse_arguments(ARG "" "" "USES;INTERNALS;LIBS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*/*.cpp)
  if(NOT sources)
    message(FATAL_ERROR "The layer ${name} has no sources")
  endif()
  add_library(host_${name} SHARED ${sources})
  target_include_directories(host_${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/api PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  foreach(used ${ARG_USES})
    target_link_libraries(host_${name} PUBLIC host_${used})
  endforeach()
  foreach(used ${ARG_INTERNALS})
    target_link_libraries(host_${name} PRIVATE host_${used}_internal)
  endforeach()
  target_link_libraries(host_${name} PRIVATE korvant_warnings ${ARG_LIBS})
  if("${ARG_LIBS}" MATCHES Qt6::Widgets)
    korvant_reuse_headers(host_${name} qt)
  else()
    korvant_reuse_headers(host_${name} std)
  endif()
  add_library(host_${name}_internal INTERFACE)
  target_include_directories(host_${name}_internal INTERFACE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(host_${name}_internal INTERFACE host_${name})
endfunction()

# korvant_module_part(NAME [USES part...] [HOST layer...]): one folder of the module.
function(korvant_module_part name)
  cmake_parse_arguments(ARG "" "" "USES;HOST" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  add_library(module_${name} STATIC ${sources})
  target_include_directories(module_${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(module_${name} PUBLIC module_resource)
  foreach(used ${ARG_USES})
    target_link_libraries(module_${name} PUBLIC module_${used})
  endforeach()
  foreach(used ${ARG_HOST})
    target_link_libraries(module_${name} PUBLIC host_${used})
  endforeach()
  target_link_libraries(module_${name} PRIVATE korvant_warnings)
  korvant_reuse_headers(module_${name} std)
endfunction()

# korvant_test(NAME LIBS lib...): one GoogleTest program of the sources beside the call.
function(korvant_test name)
  cmake_parse_arguments(ARG "" "" "LIBS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE korvant_warnings ${ARG_LIBS} test_support GTest::gtest)
  target_compile_options(${name} PRIVATE ${KORVANT_TEST_FLAGS})
  if("${ARG_LIBS}" MATCHES Qt6)
    # Qt asks for code that fits into a library; the test programs' headers are made for programs.
  elseif("${ARG_LIBS}" MATCHES rapidcheck)
    korvant_reuse_headers(${name} property)
  else()
    korvant_reuse_headers(${name} test)
  endif()
  # The bound is there for a test that hangs, not for a busy machine.
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST WORKING_DIRECTORY ${CMAKE_BINARY_DIR} PROPERTIES TIMEOUT 600)
endfunction()

# korvant_embed_text(TARGET FILE SYMBOL): the file's bytes become `const char* const SYMBOL`
# and `const std::size_t SYMBOL_size` of the target; declare both extern where they are used.
function(korvant_embed_text target file symbol)
  cmake_path(ABSOLUTE_PATH file NORMALIZE)
  set(output ${CMAKE_CURRENT_BINARY_DIR}/${symbol}_text.cpp)
  add_custom_command(OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -DIN=${file} -DOUT=${output} -DSYMBOL=${symbol} -P ${CMAKE_SOURCE_DIR}/cmake/EmbedText.cmake
    DEPENDS ${file} ${CMAKE_SOURCE_DIR}/cmake/EmbedText.cmake VERBATIM)
  target_sources(${target} PRIVATE ${output})
endfunction()
