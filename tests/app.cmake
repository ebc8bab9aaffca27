# Tests of app/, one line each: druvelk_test(app/NameOfTest)
