# Tests of map/, one line each: druvelk_test(map/NameOfTest)
