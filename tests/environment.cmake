# Tests of environment/, one line each: druvelk_test(environment/NameOfTest)
