# cpack in the build folder makes druvelk-editor_VERSION_ARCHITECTURE.deb.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME druvelk-editor)
set(CPACK_PACKAGE_VENDOR "The developers of the Druvelk Editor")
set(CPACK_PACKAGE_CONTACT "The developers of the Druvelk Editor <support@druvelk.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "level editor for a three-dimensional team battle game")
set(CPACK_PACKAGE_DESCRIPTION "Shapes islands and lakes with the mouse wheel, dresses them with pictures,
sky, light and fog, peoples them with up to sixteen players in four teams,
and shows them in a lit preview. Levels are XML files. Pictures, figures and
sample levels are part of the package.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
# Only the program: the library is for those who build it.
set(CPACK_INSTALL_CMAKE_PROJECTS "${PROJECT_BINARY_DIR};${PROJECT_NAME};editor;/")
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What is loaded at run time is in no binary: readers of pictures (those of JPEG and PNG come with libqt6gui6),
# the displays' plugins, and the driver behind libGL.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-image-formats-plugins, qt6-qpa-plugins, libgl1-mesa-dri")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core")
include(CPack)
