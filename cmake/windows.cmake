# What the programs need on Windows alone: no files of the compiler beside them, an icon, a version and a manifest.
enable_language(RC)
target_compile_definitions(build_options INTERFACE UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0A00)
target_link_options(build_options INTERFACE -static)

function(add_resources program description)
  set(resource_program ${program})
  set(resource_description ${description})
  set(file ${CMAKE_BINARY_DIR}/${program}.rc)
  configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/program.rc.in ${file} @ONLY)
  set_source_files_properties(${file} PROPERTIES OBJECT_DEPENDS
    "${CMAKE_SOURCE_DIR}/packaging/windows/ferncastle.ico;${CMAKE_SOURCE_DIR}/packaging/windows/ferncastle.manifest")
  target_sources(${program} PRIVATE ${file})
endfunction()
