# Tests of models/, one line each: druvelk_test(models/NameOfTest)
