# Debian's core and imgproc packages carry headers and libraries but neither a CMake configuration nor a .pc file.
# Makes the imported targets OpenCV::core and OpenCV::imgproc.
find_path(OpenCVCore_INCLUDE_DIR opencv2/core.hpp PATH_SUFFIXES opencv4)
find_library(OpenCVCore_core opencv_core)
find_library(OpenCVCore_imgproc opencv_imgproc)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(OpenCVCore DEFAULT_MSG OpenCVCore_core OpenCVCore_imgproc OpenCVCore_INCLUDE_DIR)
foreach(part core imgproc)
    if(OpenCVCore_FOUND AND NOT TARGET OpenCV::${part})
        add_library(OpenCV::${part} UNKNOWN IMPORTED)
        set_target_properties(OpenCV::${part} PROPERTIES
            IMPORTED_LOCATION "${OpenCVCore_${part}}"
            INTERFACE_INCLUDE_DIRECTORIES "${OpenCVCore_INCLUDE_DIR}")
    endif()
endforeach()
