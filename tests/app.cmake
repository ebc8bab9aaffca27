# Tests of app/, one line each: druvelk_test(app/NameOfTest [file …])
set(faults app/EditorFaults.cpp app/EditorFaults.h)
druvelk_test(app/PagesTest ${faults})
druvelk_test(app/PlayersPageTest ${faults})
druvelk_test(app/FileCommandsTest ${faults})
druvelk_test(app/RandomUserTest app/RandomUser.cpp app/RandomUser.h ${faults})
druvelk_test(app/HandTest)
druvelk_test(app/StartUpTest ${faults})
druvelk_test(app/UndoTest)
target_compile_definitions(StartUpTest PRIVATE DRUVELK_EDITOR="$<TARGET_FILE:druvelk-editor>")
add_dependencies(StartUpTest druvelk-editor)

# Lists and menus close when a window of another process takes the focus.
set_tests_properties(PagesTest PlayersPageTest FileCommandsTest HandTest StartUpTest UndoTest
  PROPERTIES RUN_SERIAL ON)
