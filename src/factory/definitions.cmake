# The built-in definition database.
#
# data/definitions/*.txt are turned into C++ sources of constant tables at build time by the
# host tool gx_gendefs, which compiles the library's own definition-file tokenizer.  The
# library gets them through GX_GENERATED_SOURCES; nothing is read at run time.

set(GX_DEFINITIONS_DIR ${PROJECT_SOURCE_DIR}/data/definitions)
set(GX_GENERATED_DIR ${PROJECT_BINARY_DIR}/generated)

set(GX_DEFINITION_TYPES unit spheroid primem datum vdatum geogcs projcs vertcs geogtran verttran)

set(GX_DEFINITION_INPUTS
  ${GX_DEFINITIONS_DIR}/macros.txt
  ${GX_DEFINITIONS_DIR}/changes.txt
  ${GX_DEFINITIONS_DIR}/accuracy.txt)
set(GX_GENERATED_SOURCES
  ${GX_GENERATED_DIR}/gx_defdata_macros.cpp
  ${GX_GENERATED_DIR}/gx_defdata_changes.cpp
  ${GX_GENERATED_DIR}/gx_defdata_accuracy.cpp)
foreach(type IN LISTS GX_DEFINITION_TYPES)
  list(APPEND GX_DEFINITION_INPUTS ${GX_DEFINITIONS_DIR}/${type}.txt)
  list(APPEND GX_GENERATED_SOURCES ${GX_GENERATED_DIR}/gx_defdata_${type}.cpp)
endforeach()

add_executable(gx_gendefs
  ${PROJECT_SOURCE_DIR}/tools/gx_gendefs.cpp
  ${PROJECT_SOURCE_DIR}/src/factory/gx_deftokens.cpp
  ${PROJECT_SOURCE_DIR}/src/factory/gx_defstring_compare.cpp)
target_include_directories(gx_gendefs PRIVATE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(gx_gendefs PRIVATE ${GX_WARNINGS})

file(MAKE_DIRECTORY ${GX_GENERATED_DIR})
add_custom_command(
  OUTPUT ${GX_GENERATED_SOURCES}
  COMMAND gx_gendefs ${GX_DEFINITIONS_DIR} ${GX_GENERATED_DIR}
  DEPENDS gx_gendefs ${GX_DEFINITION_INPUTS}
  COMMENT "Generating the built-in definition tables"
  VERBATIM)

# The factory tests run the generator themselves (its output must be deterministic) and
# compare the tables with the data files.  Their target is made later, in tests/.
function(gx_definitions_wire_tests)
  if(TARGET gridex_factory_tests)
    target_compile_definitions(gridex_factory_tests PRIVATE
      GX_GENDEFS_PATH="$<TARGET_FILE:gx_gendefs>"
      GX_DEFINITIONS_DIR="${GX_DEFINITIONS_DIR}")
    add_dependencies(gridex_factory_tests gx_gendefs)
  endif()
endfunction()
cmake_language(DEFER DIRECTORY ${PROJECT_SOURCE_DIR} CALL gx_definitions_wire_tests)
