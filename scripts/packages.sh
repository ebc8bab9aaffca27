# What each script needs from Debian 12. Sourced, not run.
editor_packages=(
  g++ cmake ninja-build
  qt6-base-dev qt6-base-dev-tools libqt6opengl6-dev qt6-svg-dev
  libgl-dev libglu1-mesa-dev libglew-dev
  libglm-dev libmeshoptimizer-dev
)
build_packages=("${editor_packages[@]}" libbenchmark-dev libassimp-dev)
run_packages=(libgl1-mesa-dri qt6-qpa-plugins qt6-image-formats-plugins fonts-dejavu-core)
test_packages=(xvfb xauth)
lint_packages=(clang-format clang-tidy)
fuzz_packages=(clang libclang-rt-dev)
package_packages=(dpkg-dev file gzip lintian appstream desktop-file-utils libxml2-utils python3)
