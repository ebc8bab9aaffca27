# Tests of models/, one line each: druvelk_test(models/NameOfTest)
druvelk_test(models/Md2LoadTest)
druvelk_test(models/Md2DrawTest)
target_link_libraries(Md2DrawTest PRIVATE OpenGL::GL)
druvelk_test(models/PlayerDialogTest)
druvelk_test(models/PlayerPreviewTest)
target_link_libraries(PlayerPreviewTest PRIVATE OpenGL::GL)

# Once more where a pixel of the toolkit is not one of the screen.
file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/scratch/PlayerPreviewTest-scaled)
add_test(NAME PlayerPreviewTest-scaled COMMAND PlayerPreviewTest
  WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/scratch/PlayerPreviewTest-scaled)
set_tests_properties(PlayerPreviewTest-scaled PROPERTIES TIMEOUT 300 ENVIRONMENT QT_SCALE_FACTOR=1.5)
