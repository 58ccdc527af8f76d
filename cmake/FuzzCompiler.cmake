# libFuzzer comes with clang. The version that the fuzz targets are known to build with comes first: Debian's
# package of it (script/bootstrap) leaves only the name with the number. A compiler that was given is taken.
if(NOT DEFINED CMAKE_CXX_COMPILER)
  find_program(KORVANT_CLANG NAMES clang++-14 clang++ clang++-19 clang++-18 clang++-17 clang++-16 clang++-15)
  if(NOT KORVANT_CLANG)
    message(FATAL_ERROR "The fuzz targets need clang, and there is none: install clang-14 and libclang-rt-14-dev (script/bootstrap does)")
  endif()
  set(CMAKE_CXX_COMPILER ${KORVANT_CLANG})
endif()
