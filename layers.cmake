# One direction of knowing, held by the build: the library's files stand in layers, and the compiler finds
# for each layer only the headers of its own and of those it knows, all under build/…/layers.
#
# druvelk_layer(LAYER [KNOWS layer …] [LINKS library …]) opens a layer; KNOWS passes on what the known ones know.
function(druvelk_layer layer)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "KNOWS;LINKS")
  set(target druvelk_${layer})
  add_library(${target} OBJECT)
  set_target_properties(${target} PROPERTIES AUTOMOC ON POSITION_INDEPENDENT_CODE ON)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_include_directories(${target} PUBLIC ${PROJECT_BINARY_DIR}/layers/${layer})
  foreach(known ${arg_KNOWS})
    target_link_libraries(${target} PUBLIC druvelk_${known})
  endforeach()
  target_link_libraries(${target} PUBLIC ${arg_LINKS} PRIVATE druvelk_flags)
  target_sources(druvelk PRIVATE $<TARGET_OBJECTS:${target}>)
endfunction()

# druvelk_sources(LAYER file …) adds files of the current folder to a layer.
function(druvelk_sources layer)
  target_sources(druvelk_${layer} PRIVATE ${ARGN})
  file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  foreach(file ${ARGN})
    # The compiler looks into a file's own folder first, whatever it is told.
    file(STRINGS ${file} past_layers REGEX "^#include \"([^/\"]*\"|\\.)")
    if(past_layers)
      message(FATAL_ERROR "${folder}/${file} includes a header without its folder: ${past_layers}")
    endif()
    if(file MATCHES "\\.h$")
      set(link ${PROJECT_BINARY_DIR}/layers/${layer}/${folder}/${file})
      get_filename_component(directory ${link} DIRECTORY)
      file(MAKE_DIRECTORY ${directory})
      file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${file} ${link} SYMBOLIC)
    endif()
  endforeach()
endfunction()

# What a moved header left behind would still be found.
file(REMOVE_RECURSE ${PROJECT_BINARY_DIR}/layers)

druvelk_layer(math LINKS OpenGL::GL)
druvelk_layer(graph LINKS Qt6::Core Qt6::Xml)
druvelk_layer(opengl KNOWS math LINKS Qt6::Gui Qt6::Widgets Qt6::OpenGL OpenGL::GL OpenGL::GLU)
druvelk_layer(nodes KNOWS graph opengl)
druvelk_layer(document KNOWS nodes)
druvelk_layer(views KNOWS document LINKS Qt6::OpenGLWidgets)
druvelk_layer(window KNOWS views)
target_link_libraries(druvelk_opengl PRIVATE GLEW::GLEW)
target_compile_definitions(druvelk_window PRIVATE DRUVELK_VERSION="${PROJECT_VERSION}")
