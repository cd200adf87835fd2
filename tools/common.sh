# Sourced by ./demo, ./check and ./bench: room, packages, configuring, building, and telling of it.
#   VELM_PROGRESS  where there is no terminal: a line tells how far a stage is after so many seconds (default 60)
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
preset=mingw
export NINJA_STATUS='[%f/%t] '

fail() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; exit 1; }

# Megabytes that are free for a folder, and where its file system is mounted.
room_of() { df -m --output=avail,target "$1" 2>/dev/null | tail -n 1; }

# need_room MEGABYTES: ends the script where a build that takes so much, with its Wine prefixes, would not find what it
# lacks of it. What is there already is built anew in part, which takes some room as well.
need_room() {
  local free="" target="" has="" needed
  read -r free target < <(room_of .) || true
  [ -n "$free" ] || return 0
  read -r has _ < <(du -scm "build/$preset" build/wine 2>/dev/null | tail -n 1) || true
  needed=$(($1 - ${has:-0}))
  [ "$needed" -ge 200 ] || needed=200
  [ "$free" -ge "$needed" ] ||
    fail "not enough room: $free MB are free in $root (file system $target), $needed MB are needed"
}

# What programs say where a disk is full: the system's words, and those of apt-get.
no_space="No space left on device|enough free space"

# Ends the script with a line where a disk is full: less than 4 MB are free, or a program has said so in $1, a log.
fail_if_disk_is_full() {
  local folder free target least="" line="" said=""
  for folder in . "${TMPDIR:-/tmp}" /var/cache; do
    read -r free target < <(room_of "$folder") || continue
    [ -z "$least" ] || [ "$free" -lt "$least" ] || continue
    least=$free
    [ "$folder" != . ] || folder=$root
    line="$free MB are free in $folder (file system $target)"
  done
  [ -z "${1:-}" ] || said=$(grep -aE -m 1 "$no_space" "$1" 2>/dev/null) || true
  if [ -n "$least" ] && [ "$least" -lt 4 ]; then
    fail "the disk is full: $line"
  elif [ -n "$said" ]; then
    fail "a disk is or was full: $said; ${line:+now $line}"
  fi
}

# show_count TITLE START: reads a stage's output and tells how far it is, by the lines that count: those of Ninja,
# CTest and apt-get. Its status is 1 when it has ended the title's line.
show_count() {
  local title=$1 start=$2 line count="" failed=0 shown=$2 ended=0
  while IFS= read -r line || [ -n "$line" ]; do
    if [[ $line =~ ^\[([0-9]+)/([0-9]+)\]\  || $line =~ ^\ *([0-9]+)/([0-9]+)\ Test ]]; then
      count="${BASH_REMATCH[1]} of ${BASH_REMATCH[2]}"
      [[ $line != *Test*'***'* ]] || failed=$((failed + 1))
      [ "$failed" -eq 0 ] || count="$count, $failed failed"
    elif [[ $line =~ ^(dl|pm)status:[^:]*:([0-9]+) ]]; then
      [ "${BASH_REMATCH[1]}" = dl ] && count="fetched" || count="installed"
      count="${BASH_REMATCH[2]} % $count"
    else
      continue
    fi
    if [ -t 1 ]; then
      printf '\r%-34s%4d s, %-28s' "$title" $((SECONDS - start)) "$count"
    elif [ $((SECONDS - shown)) -ge "${VELM_PROGRESS:-60}" ]; then
      [ "$ended" -ne 0 ] || printf '\n'
      printf '  %s after %d s\n' "$count" $((SECONDS - start))
      shown=$SECONDS ended=1
    fi
  done
  return "$ended"
}

# run_stage "What is done" COMMAND...: tells of it with its count and its time. Its output goes to $log, a file in
# build/log/. The result is the command's.
run_stage() {
  local start=$SECONDS states=(0 0 0)
  title=$1
  shift
  mkdir -p build/log 2>/dev/null || { fail_if_disk_is_full; fail "cannot write to $root/build/log"; }
  log=build/log/$(printf '%s' "$title" | tr 'A-Z ' 'a-z-' | tr -cd 'a-z0-9-').log
  printf '%-34s' "$title"
  "$@" </dev/null 2>&1 | tee "$log" 2>/dev/null | show_count "$title" "$start" || states=("${PIPESTATUS[@]}")
  [ "${states[2]}" -eq 0 ] || printf '%-34s' "$title"
  [ ! -t 1 ] || printf '\r%-34s%-40s\r%-34s' "$title" "" "$title"
  [ "${states[0]}" -eq 0 ] && printf '%4d s\n' $((SECONDS - start)) ||
    printf 'failed after %d s\n' $((SECONDS - start))
  return "${states[0]}"
}

# Ends the script after a stage that failed: with a line where a disk is full, else with what the stage told last.
stage_failed() {
  fail_if_disk_is_full "$log"
  { grep -vE '^(dl|pm)status:' "$log" || true; } | tail -n 60 >&2
  fail "'$title' failed; the whole output is in $log"
}

stage() { run_stage "$@" || stage_failed; }

# What a build and its tests need of Debian, by package.
packages="cmake ninja-build ccache g++-mingw-w64-x86-64-posix wine64 fonts-wine fonts-liberation googletest python3"

# What these and others are known by where there is no Debian to ask.
declare -A program_of=([cmake]=cmake [ninja-build]=ninja [wine64]=/usr/lib/wine/wine64 [python3]=python3
  [g++-mingw-w64-x86-64-posix]=x86_64-w64-mingw32-g++-posix [doxygen]=doxygen [pkgconf]=pkg-config
  [libxml2-utils]=xmllint [xvfb]=Xvfb [imagemagick]=convert)

is_installed() {
  if command -v dpkg-query >/dev/null 2>&1; then
    dpkg-query -W -f='${Status}' "$1" 2>/dev/null | grep -q 'ok installed'
  else
    [ -z "${program_of[$1]:-}" ] || command -v "${program_of[$1]}" >/dev/null 2>&1
  fi
}

# What apt-get says where it does not reach those that it fetches from.
unreachable="(Temporary failure|Something wicked happened) resolving|Could not (resolve|connect)|Unable to connect"
unreachable="$unreachable|Connection (timed out|failed|refused)|Network is unreachable|No route to host"

# apt_failed MISSING LOG...: ends the script after apt-get failed.
apt_failed() {
  local missing=$1 reason
  shift
  reason=$(grep -hoE "($unreachable).*" "$@" 2>/dev/null | head -n 1) || true
  [ -z "$reason" ] || fail "no network: apt-get reaches no server ($reason); these packages are missing:$missing"
  stage_failed
}

install_packages() {
  local missing="" name sudo="" lists_log
  for name in $packages "$@"; do
    is_installed "$name" || missing="$missing $name"
  done
  [ -n "$missing" ] || return 0
  command -v apt-get >/dev/null 2>&1 ||
    fail "there is no apt-get; install what holds these Debian packages by other means:$missing"
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null 2>&1 || fail "neither root nor sudo; run as root: apt-get install$missing"
    sudo="sudo"
    printf 'Packages to install:%s\n' "$missing"
    # Without a terminal nobody can be asked for a password.
    sudo -n true 2>/dev/null || { [ -t 0 ] && sudo -v; } ||
      fail "no right to use sudo; run as root: apt-get install$missing"
  fi
  # Lists that cannot be fetched are no failure to apt-get; the older ones may do.
  run_stage "Reading the package lists" $sudo env LC_ALL=C apt-get update -qq || apt_failed "$missing" "$log"
  lists_log=$log
  run_stage "Installing packages" $sudo env LC_ALL=C DEBIAN_FRONTEND=noninteractive \
    apt-get install -y --no-install-recommends -o APT::Status-Fd=1 $missing ||
    apt_failed "$missing" "$log" "$lists_log"
}

configure() { stage "Configuring" cmake --preset "$preset"; }

# build [TARGET...]
build() {
  local target arguments=()
  for target in "$@"; do arguments+=(--target "$target"); done
  stage "Building" cmake --build --preset "$preset" "${arguments[@]}"
}
