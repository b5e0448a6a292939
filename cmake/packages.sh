# Sourced by ./demo and ./check: brings the Debian packages that a build needs.
#
#   velmora_packages PACKAGE…   installs those that are missing: as root, or with sudo. On a machine without
#                               apt-get it names them and stops.

BUILD_PACKAGES="g++ cmake ninja-build pkg-config ccache
 libegl-dev libgles-dev libegl-mesa0 libgl1-mesa-dri libsdl2-dev
 libpango1.0-dev libcairo2-dev libicu-dev libcsv-dev libcli11-dev fonts-dejavu-core"
TEST_PACKAGES="libgtest-dev xvfb libxtst-dev"
BENCH_PACKAGES="libbenchmark-dev"

velmora_packages() {
  if ! command -v apt-get >/dev/null 2>&1 || ! command -v dpkg-query >/dev/null 2>&1; then
    [ -n "${VELMORA_SKIP_PACKAGES:-}" ] && return 0
    echo "This script installs packages on Debian only. Install these (or what your system calls them)," >&2
    echo "then run it again with VELMORA_SKIP_PACKAGES=1:" "$@" >&2
    exit 2
  fi
  missing=""
  for package in "$@"; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) || status=""
    [ "$status" = installed ] || missing="$missing $package"
  done
  [ -z "$missing" ] && return 0
  run=""
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null 2>&1; then
      echo "These packages are missing; install them as root, then run this again:$missing" >&2
      exit 2
    fi
    run=sudo
  fi
  echo "Installing:$missing"
  # shellcheck disable=SC2086  # lists of words on purpose
  { $run apt-get update -qq && $run env DEBIAN_FRONTEND=noninteractive \
      apt-get install -y -qq --no-install-recommends $missing; } >&2 || {
    echo "apt-get could not install:$missing" >&2
    exit 2
  }
}
