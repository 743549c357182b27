# Installs what the named groups of the project need, where it is missing. Sourced by run.sh and test.sh.
#
#   need_packages build          compiler, CMake, libraries of the core and the batch program
#   need_packages window         Qt 6, icons, fonts
#   need_packages test           GoogleTest, format check, fuzzing

packages_of() {
  case "$1" in
    build) echo "g++ cmake ninja-build ccache libzip-dev libxlsxwriter-dev" ;;
    window) echo "qt6-base-dev qt6-svg-dev qt6-charts-dev libqt6opengl6-dev qt6-multimedia-dev qt6-pdf-dev libgl1-mesa-dev breeze-icon-theme fonts-liberation" ;;
    test) echo "libgtest-dev clang clang-format libclang-rt-14-dev python3-docx python3-openpyxl" ;;
  esac
}

is_installed() {
  dpkg-query -W -f '${Status}' "$1" 2>/dev/null | grep -q 'ok installed'
}

need_packages() {
  command -v dpkg-query >/dev/null 2>&1 || return 0  # another system: its own package manager is its user's
  missing=
  wanted=
  for group in "$@"; do
    for package in $(packages_of "$group"); do
      is_installed "$package" || missing="$missing $package"
    done
  done
  [ -n "$missing" ] || return 0
  echo "Installing:$missing"
  as_root=
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null 2>&1 || { echo "Please install:$missing" >&2; return 1; }
    as_root=sudo
  fi
  $as_root apt-get update -qq >/dev/null
  for package in $missing; do
    # Names that carry a version differ between releases; what a release does not know, its own version stands in for.
    if ! apt-cache show "$package" >/dev/null 2>&1; then
      case "$package" in
        libclang-rt-14-dev) package=$(apt-cache pkgnames libclang-rt- | grep -E '^libclang-rt-[0-9]+-dev$' | sort -V | tail -n 1) ;;
        qt6-svg-dev) package=libqt6svg6-dev ;;
        qt6-charts-dev) package=libqt6charts6-dev ;;
        libqt6opengl6-dev) package=qt6-base-dev ;;
      esac
    fi
    wanted="$wanted $package"
  done
  # shellcheck disable=SC2086
  $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $wanted >/dev/null
}
