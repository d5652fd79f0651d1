# Pictures of the sky. What reads them is optional: without CFITSIO there are no FITS files, without WCSLIB no solutions,
# without Exiv2 no times of JPEG files; the program says so where one is missing.
vorlix_floor(imaging vorlix_observing)
target_link_libraries(vorlix_imaging PRIVATE $<BUILD_INTERFACE:Eigen3::Eigen>)

function(vorlix_picture_library name header folder library)
  find_path(VORLIX_${name}_INCLUDE ${header} PATH_SUFFIXES ${folder})
  find_library(VORLIX_${name}_LIBRARY ${library})
  mark_as_advanced(VORLIX_${name}_INCLUDE VORLIX_${name}_LIBRARY)
  if(VORLIX_${name}_INCLUDE AND VORLIX_${name}_LIBRARY)
    target_compile_definitions(vorlix_imaging PRIVATE VORLIX_${name})
    target_include_directories(vorlix_imaging SYSTEM PRIVATE ${VORLIX_${name}_INCLUDE})
    target_link_libraries(vorlix_imaging PRIVATE ${VORLIX_${name}_LIBRARY})
  else()
    message(STATUS "${name} was not found: ${ARGN}")
  endif()
endfunction()

vorlix_picture_library(CFITSIO fitsio.h cfitsio cfitsio "FITS files will not be read")
vorlix_picture_library(WCSLIB wcslib/wcs.h "" wcs "solutions of pictures will not be read")
vorlix_picture_library(EXIV2 exiv2/exiv2.hpp "" exiv2 "times of JPEG files will not be read")
