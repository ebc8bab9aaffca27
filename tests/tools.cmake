# Tests of tools/. What the generator has made is looked at as a user finds it, so they link none of it.
function(druvelk_tree_test path)
  get_filename_component(name ${path} NAME)
  add_executable(${name} ${path}.cpp)
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PRIVATE druvelk_flags Qt6::Gui Qt6::Test)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_compile_definitions(${name} PRIVATE
    DRUVELK_DATA_TREE="${PROJECT_SOURCE_DIR}/workspace/data"
    DRUVELK_ASSETS="$<TARGET_FILE:druvelk-assets>")
  add_dependencies(${name} data-tree)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 600)
endfunction()

druvelk_tree_test(tools/PicturesTest)
druvelk_tree_test(tools/AssetTreeTest)

# The characters are read by the editor's own loader and by a foreign one.
find_package(assimp REQUIRED)
druvelk_tree_test(tools/CharactersTest)
target_sources(CharactersTest PRIVATE ${PROJECT_SOURCE_DIR}/tools/sheet/FigurePainter.cpp)
target_include_directories(CharactersTest PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(CharactersTest PRIVATE druvelk assimp::assimp)
