# Tests of scene/, one line each: druvelk_test(scene/NameOfTest)
