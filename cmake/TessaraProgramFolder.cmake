# The program folder of a build tree: what `installed` holds, and the documents that the build makes. Pages and sounds are
# those of the source tree; files that the program writes are copies, so that trying it out leaves the source tree as it is.
set(TESSARA_BUILT_PROGRAM_FOLDER "${CMAKE_BINARY_DIR}/program")
set(source "${CMAKE_SOURCE_DIR}/installed")
file(MAKE_DIRECTORY "${TESSARA_BUILT_PROGRAM_FOLDER}/Data")
foreach(folder Help Media)
  file(CREATE_LINK "${source}/${folder}" "${TESSARA_BUILT_PROGRAM_FOLDER}/${folder}" COPY_ON_ERROR SYMBOLIC)
endforeach()

file(GLOB written CONFIGURE_DEPENDS RELATIVE "${source}" "${source}/Data/*" "${source}/*.lx1")
foreach(file ${written})
  set(copy "${TESSARA_BUILT_PROGRAM_FOLDER}/${file}")
  add_custom_command(
    OUTPUT "${copy}"
    COMMAND "${CMAKE_COMMAND}" -E copy "${source}/${file}" "${copy}"
    DEPENDS "${source}/${file}"
    VERBATIM)
  list(APPEND copies "${copy}")
endforeach()
add_custom_target(program_folder ALL DEPENDS ${copies})

# The executables of the build tree stand alone: a note tells them where the folder is.
file(WRITE "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/program-folder.txt" "${TESSARA_BUILT_PROGRAM_FOLDER}\n")
