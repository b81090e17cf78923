# zk_add_library(name BUILD_DEFINE SOURCES ... [DEF file])
# One of the two DLLs: its import library, its export switch and its headers.
function(zk_add_library name build_define)
  cmake_parse_arguments(ARG "" "DEF" "SOURCES" ${ARGN})
  add_library(${name} SHARED ${ARG_SOURCES})
  # The definition file pins the exit routine to ordinal 1 under its plain
  # name; every other export keeps the name its callers link to. Only the
  # 32-bit build decorates a standard call with its argument bytes.
  if(ARG_DEF)
    if(CMAKE_SIZEOF_VOID_P EQUAL 4)
      set(ZK_WEP_SYMBOL "WEP@4")
    else()
      set(ZK_WEP_SYMBOL "WEP")
    endif()
    get_filename_component(def_name ${ARG_DEF} NAME_WLE)
    configure_file(${ARG_DEF} ${CMAKE_CURRENT_BINARY_DIR}/${def_name} @ONLY)
    target_sources(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${def_name})
  endif()
  target_compile_definitions(${name} PRIVATE ${build_define})
  # A failed allocation yields null rather than throwing, and every new is tested.
  target_compile_options(${name} PRIVATE -fcheck-new)
  target_include_directories(${name} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
    $<INSTALL_INTERFACE:include/zkshell>)
  set_target_properties(${name} PROPERTIES PREFIX "" IMPORT_PREFIX "lib")
endfunction()
