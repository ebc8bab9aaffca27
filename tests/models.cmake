# Tests of models/, one line each: druvelk_test(models/NameOfTest)
druvelk_test(models/Md2LoadTest)
druvelk_test(models/Md2DrawTest)
target_link_libraries(Md2DrawTest PRIVATE OpenGL::GL)
