# Installs the built tree into a fresh prefix and builds programs outside it, as a user would:
# the examples through find_package(Gridex) (shared and static), and one example through
# pkg-config (shared, and a fully static program with --static).  Each program must run.
#   cmake -DBUILD=<build dir> -DSOURCE=<source dir> -DWORK=<scratch dir> -P check_install.cmake
file(REMOVE_RECURSE ${WORK})
set(prefix ${WORK}/prefix)

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "failed (${rc}): ${ARGN}\n${out}\n${err}")
  endif()
  set(last_output "${out}" PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})
foreach(f include/gridex.h lib/libgridex.a lib/pkgconfig/gridex.pc lib/cmake/Gridex/GridexConfig.cmake)
  if(NOT EXISTS ${prefix}/${f})
    message(FATAL_ERROR "not installed: ${f}")
  endif()
endforeach()

# CMake package.
run(${CMAKE_COMMAND} -S ${SOURCE}/examples -B ${WORK}/examples -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_BUILD_TYPE=Release)
run(${CMAKE_COMMAND} --build ${WORK}/examples)
foreach(program utm_from_code utm_from_code_static)
  run(${WORK}/examples/${program} 13.405 52.52)
  if(NOT last_output MATCHES "UTM_Zone_33N 391779\\.26 5820072\\.16")
    message(FATAL_ERROR "${program} printed:\n${last_output}")
  endif()
endforeach()
run(${WORK}/examples/wkt_datum_shift ${SOURCE}/examples/ed50_to_wgs84.wkt 2.35 48.85)

# pkg-config.
find_program(PKG_CONFIG pkg-config)
find_program(CC NAMES cc gcc)
if(PKG_CONFIG AND CC)
  set(ENV{PKG_CONFIG_PATH} ${prefix}/lib/pkgconfig)
  run(${PKG_CONFIG} --cflags --libs gridex)
  separate_arguments(shared_flags UNIX_COMMAND "${last_output}")
  run(${CC} -std=c11 ${SOURCE}/examples/utm_from_code.c ${shared_flags} -Wl,-rpath,${prefix}/lib
      -o ${WORK}/pc_shared)
  run(${WORK}/pc_shared)
  run(${PKG_CONFIG} --static --cflags --libs gridex)
  separate_arguments(static_flags UNIX_COMMAND "${last_output}")
  run(${CC} -std=c11 -static ${SOURCE}/examples/utm_from_code.c ${static_flags} -o ${WORK}/pc_static)
  run(${WORK}/pc_static)
else()
  message(STATUS "pkg-config or a C compiler is missing: the pkg-config builds are skipped")
endif()
file(REMOVE_RECURSE ${WORK})
