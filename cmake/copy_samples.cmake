# Copies the sample element files to where the program looks for them, unless a file of that name is there already.
file(GLOB samples ${SOURCE}/*.txt)
foreach(sample ${samples})
  get_filename_component(name ${sample} NAME)
  if(NOT EXISTS ${TARGET}/${name})
    file(COPY ${sample} DESTINATION ${TARGET})
  endif()
endforeach()
