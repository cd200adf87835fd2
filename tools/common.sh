# Sourced by ./demo, ./check and ./bench: packages, configuring, building, and telling of it.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
preset=mingw

fail() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; exit 1; }

# stage "What is done" COMMAND...: tells of it with its time; its output goes to build/log/ and is
# shown only when the command fails.
stage() {
  local title=$1 log status start=$SECONDS
  shift
  mkdir -p build/log
  log=build/log/$(printf '%s' "$title" | tr 'A-Z ' 'a-z-' | tr -cd 'a-z0-9-').log
  printf '%-34s' "$title"
  status=0
  "$@" >"$log" 2>&1 </dev/null || status=$?
  if [ "$status" -ne 0 ]; then
    printf 'failed after %d s\n' $((SECONDS - start))
    tail -n 60 "$log" >&2
    fail "'$title' failed; the whole output is in $log"
  fi
  printf '%4d s\n' $((SECONDS - start))
}

# What a build and its tests need of Debian, by package.
packages="cmake ninja-build ccache g++-mingw-w64-x86-64-posix wine64 fonts-wine fonts-liberation googletest python3"

install_packages() {
  local missing="" name sudo=""
  command -v dpkg-query >/dev/null 2>&1 || return 0
  for name in $packages "$@"; do
    dpkg-query -W -f='${Status}' "$name" 2>/dev/null | grep -q 'ok installed' || missing="$missing $name"
  done
  [ -n "$missing" ] || return 0
  command -v apt-get >/dev/null 2>&1 || fail "these packages are missing and there is no apt-get:$missing"
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null 2>&1 || fail "run as root, or with sudo installed: apt-get install$missing"
    sudo="sudo"
    printf 'Packages to install:%s\n' "$missing"
    sudo -n true 2>/dev/null || sudo -v || fail "no right to install:$missing"
  fi
  stage "Reading the package lists" $sudo apt-get update -qq
  stage "Installing packages" $sudo env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y --no-install-recommends $missing
}

configure() { stage "Configuring" cmake --preset "$preset"; }

# build [TARGET...]
build() {
  local target arguments=()
  for target in "$@"; do arguments+=(--target "$target"); done
  stage "Building" cmake --build --preset "$preset" "${arguments[@]}"
}
