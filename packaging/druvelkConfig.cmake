# What druvelk::druvelk links.
include(CMakeFindDependencyMacro)
find_dependency(Qt6 6.4 COMPONENTS Core Gui Widgets OpenGL OpenGLWidgets Xml)
find_dependency(OpenGL)
find_dependency(GLEW)
include(${CMAKE_CURRENT_LIST_DIR}/druvelkTargets.cmake)
