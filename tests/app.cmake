# Tests of app/, one line each: druvelk_test(app/NameOfTest)
druvelk_test(app/GeographyPageTest)
druvelk_test(app/DressAndRulesTest)
druvelk_test(app/PlayersPageTest)
druvelk_test(app/FileCommandsTest)
druvelk_test(app/RandomUserTest app/RandomUser.cpp app/RandomUser.h app/EditorFaults.cpp app/EditorFaults.h)
druvelk_test(app/HandTest)
druvelk_test(app/StartUpTest)
druvelk_test(app/UndoTest)
target_compile_definitions(StartUpTest PRIVATE DRUVELK_EDITOR="$<TARGET_FILE:druvelk-editor>")
add_dependencies(StartUpTest druvelk-editor)

# Lists and menus close when a window of another process takes the focus.
set_tests_properties(GeographyPageTest DressAndRulesTest PlayersPageTest FileCommandsTest HandTest StartUpTest UndoTest
  PROPERTIES RUN_SERIAL ON)
