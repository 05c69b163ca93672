# Installing: one folder that its user owns, with the programs and the data together, since the program keeps its
# projects beside itself. "cmake --install BUILD [--prefix FOLDER]" fills it, "cpack" makes an archive of it.

if(WIN32)
  set(user_home $ENV{USERPROFILE})
else()
  set(user_home $ENV{HOME})
endif()
if(CMAKE_INSTALL_PREFIX_INITIALIZED_TO_DEFAULT AND user_home)
  file(TO_CMAKE_PATH "${user_home}/Ferncastle" own_folder)
  set(CMAKE_INSTALL_PREFIX ${own_folder} CACHE PATH "The folder that Ferncastle is installed in" FORCE)
endif()

# A folder that is full of other things was most likely named without its last part.
install(CODE [[
  get_filename_component(folder "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}" ABSOLUTE)
  file(GLOB there "${folder}/*")
  file(GLOB player "${folder}/ferncastle-play*")
  if(there AND NOT EXISTS "${folder}/variables.sav" AND NOT player)
    message(FATAL_ERROR "${folder} contains other files. Ferncastle needs a folder of its own: "
      "add --prefix and its name, for example --prefix \"$ENV{HOME}/Ferncastle\"")
  endif()
]])

set(programs ferncastle-play)
if(TARGET ferncastle)
  list(APPEND programs ferncastle)
endif()
# Where Qt stands apart from the system's libraries, the installed program must still find it.
set_target_properties(${programs} PROPERTIES INSTALL_RPATH_USE_LINK_PATH ON)
install(TARGETS ${programs} RUNTIME DESTINATION .)
set(program_files ${programs})
list(TRANSFORM program_files APPEND "${CMAKE_EXECUTABLE_SUFFIX}")
set(folder_scripts)
set(left_out)
if(WIN32)
  # What only other systems use.
  set(left_out "^share/(man|bash-completion|zsh)/")
endif()
if(UNIX AND NOT APPLE)
  set(folder_scripts add-to-menu open-report uninstall)
  list(TRANSFORM folder_scripts PREPEND ${CMAKE_SOURCE_DIR}/packaging/)
endif()
install(CODE "
  set(version \"${FERNCASTLE_VERSION}\")
  set(programs \"${program_files}\")
  set(scripts \"${folder_scripts}\")
  set(readme \"${CMAKE_SOURCE_DIR}/README.md\")
  set(data \"${CMAKE_SOURCE_DIR}/data\")
  set(left_out \"${left_out}\")
  include(\"${CMAKE_SOURCE_DIR}/cmake/fill_folder.cmake\")
")

if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_STRIP_FILES ON)
else()
  set(CPACK_GENERATOR TGZ)
endif()
set(CPACK_PACKAGE_NAME ferncastle)
set(CPACK_PACKAGE_VERSION ${FERNCASTLE_VERSION})
# The archive's one folder bears the version, so that unpacking a new version never touches existing projects.
set(CPACK_PACKAGE_FILE_NAME ferncastle-${FERNCASTLE_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR})
if(WIN32)
  string(REPLACE Windows windows CPACK_PACKAGE_FILE_NAME ${CPACK_PACKAGE_FILE_NAME})
endif()
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
