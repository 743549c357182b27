# `cmake --install` puts a program folder together: the executables, and beside them Data, Help, Media and the default
# glossary. The programs find their program folder from the executable.
include(GNUInstallDirs)
set(TESSARA_PROGRAM_FOLDER "." CACHE STRING "Program folder below the install prefix")

install(TARGETS tessara-cli RUNTIME DESTINATION "${TESSARA_PROGRAM_FOLDER}")
if(TARGET tessara)
  foreach(document UserManual Handbook Workbook)
    install(FILES "${TESSARA_BUILT_PROGRAM_FOLDER}/${document}.pdf" DESTINATION "${TESSARA_PROGRAM_FOLDER}")
  endforeach()
  install(TARGETS tessara tessara-print tessara-charts
          RUNTIME DESTINATION "${TESSARA_PROGRAM_FOLDER}"
          LIBRARY DESTINATION "${TESSARA_PROGRAM_FOLDER}")
endif()
install(DIRECTORY "${CMAKE_SOURCE_DIR}/installed/" DESTINATION "${TESSARA_PROGRAM_FOLDER}")
