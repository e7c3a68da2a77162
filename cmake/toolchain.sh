# What ./run and ./test share: the packages the build needs, and a build that is silent when there
# is nothing to do. Sourced by bash; standard input and output belong to the caller's program, so
# nothing here reads the one or writes the other (but for the answer to a question at a terminal).

packages=(g++ cmake ninja-build libgtest-dev libgmock-dev libbenchmark-dev libcli11-dev
          nlohmann-json3-dev libedit-dev pkg-config libcairo2-dev fonts-liberation)

Say() { printf '%s\n' "$*" >&2; }

MissingPackages() {
  comm -23 <(printf '%s\n' "${packages[@]}" | sort) \
    <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "${packages[@]}" 2>/dev/null |
      sed -n 's/^installed //p' | sort -u)
}

InstallPackages() {
  command -v dpkg-query >/dev/null || return 0  # not a Debian system: the configuration will tell
  local missing as_root=()
  mapfile -t missing < <(MissingPackages)
  [ ${#missing[@]} -gt 0 ] || return 0

  if [ "$(id -u)" -ne 0 ]; then
    if [ ! -t 0 ] || [ ! -t 2 ] || ! command -v sudo >/dev/null; then
      Say "Feltmaster is built with packages that are not installed; as root, run:" \
        "apt-get install ${missing[*]}"
      exit 2
    fi
    local answer
    read -r -p "Install ${missing[*]} with sudo apt-get? [y/N] " answer
    [[ $answer == [yY]* ]] || exit 2
    as_root=(sudo)
  fi
  Say "Installing ${missing[*]}"
  local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -y -q)
  "${apt[@]}" update </dev/null >&2 || true  # the lists on the disk may still do
  if ! "${apt[@]}" install --no-install-recommends "${missing[@]}" </dev/null >&2; then
    Say "Installing ${missing[*]} failed"
    exit 2
  fi
}

# Cached by an earlier place of the source tree, by an interrupted configuration, or without the
# strictness asked for now.
NeedsConfiguring() {
  local root=$1 cache=$2/CMakeCache.txt
  [ -f "$2/build.ninja" ] || return 0
  grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$cache" || return 0
  [ "${CI:-}" = true ] && grep -qxF FELTMASTER_WERROR:BOOL=OFF "$cache"
}

# Build ROOT PRESET TARGET: brings the target up to date; a second builder waits for the first.
Build() {
  local root=$1 preset=$2 target=$3 dir=$1/build/$2
  mkdir -p "$dir" || return
  (
    set -o pipefail
    flock 9
    cd "$root" || exit
    if NeedsConfiguring "$root" "$dir"; then
      cmake --fresh --preset "$preset" || exit
    fi
    ninja -C "$dir" "$target" |
      sed -u -e '/Entering directory/d' -e '/Re-checking globbed/d' -e '/no work to do/d'
  ) 9>"$dir/.lock" </dev/null >&2
}
