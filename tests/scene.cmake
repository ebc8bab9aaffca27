# Tests of scene/, one line each: druvelk_test(scene/NameOfTest)
druvelk_test(scene/LevelFileTest)
druvelk_test(scene/HostileLevelTest)
druvelk_test(scene/SaveTest scene/FaultyCalls.cpp)
