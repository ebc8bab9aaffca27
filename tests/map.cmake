# Tests of map/, one line each: druvelk_test(map/NameOfTest)
druvelk_test(map/OverviewTest)
druvelk_test_scaled(OverviewTest 1.5)
