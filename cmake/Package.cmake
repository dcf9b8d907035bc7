# The Debian package: cmake --build … --target package. It depends on what its programs are linked with, and on what
# they load while they run.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME taq-video-capture-pro)
set(CPACK_PACKAGE_CONTACT "Marlowfern Software <maintainers@marlowfern.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "takes the best frames out of videos")
set(CPACK_PACKAGE_DESCRIPTION "Opens videos, plays them or steps through them frame by frame,
and saves what is seen as BMP, JPEG, TGA, GIF, TIFF, PNG or PSD: by hand, at an
interval of time or every so many frames. Captures can be edited, given a text
and made wallpaper.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
set(CPACK_STRIP_FILES ON)
# Only what stands among the system's programs.
set(CPACK_COMPONENTS_ALL ${CMAKE_INSTALL_DEFAULT_COMPONENT_NAME})
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION video)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core, xdg-desktop-portal")
include(CPack)
