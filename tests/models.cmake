# Tests of models/, one line each: druvelk_test(models/NameOfTest)
druvelk_test(models/Md2LoadTest)
druvelk_test(models/Md2DrawTest)
target_link_libraries(Md2DrawTest PRIVATE OpenGL::GL)
druvelk_test(models/PlayerDialogTest)
target_link_libraries(PlayerDialogTest PRIVATE OpenGL::GL)
# Once more where a pixel of the toolkit is not one of the screen.
druvelk_test_again(PlayerDialogTest At1.5 QT_SCALE_FACTOR=1.5)
