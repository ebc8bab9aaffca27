# Tests of environment/, one line each: druvelk_test(environment/NameOfTest)
druvelk_test(environment/GLErrorsTest)
druvelk_test(environment/SharedTexturesTest)
druvelk_test(environment/SkyTest)
druvelk_test(environment/SurroundingsTest)

# The same again on a driver without cube maps.
add_test(NAME SkyWithoutCubeMapsTest COMMAND SkyTest
  WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/scratch/SkyTest)
set_tests_properties(SkyWithoutCubeMapsTest PROPERTIES
  TIMEOUT 300 ENVIRONMENT "MESA_EXTENSION_OVERRIDE=-GL_ARB_texture_cube_map")
druvelk_test(environment/PathLookupTest)
druvelk_test_again(SharedTexturesTest WithoutCubeMaps MESA_EXTENSION_OVERRIDE=-GL_ARB_texture_cube_map)
