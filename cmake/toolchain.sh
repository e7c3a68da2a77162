# What ./run and ./test share: the packages the build needs, those of the desktop, and a build that
# is silent when there is nothing to do. Sourced by bash; standard input and output belong to the
# caller's program, so nothing here reads the one or writes the other (but for the answer to a
# question at a terminal).

packages=(g++ cmake ninja-build libgtest-dev libgmock-dev libbenchmark-dev libcli11-dev
          nlohmann-json3-dev libedit-dev pkg-config libcairo2-dev fonts-liberation)
# Without these everything but the windows is built. The fonts are those of the table's lettering.
desktop_packages=(qt6-base-dev qt6-multimedia-dev qt6-svg-dev
                  fonts-texgyre fonts-roboto-unhinted fonts-dejavu)

Say() { printf '%s\n' "$*" >&2; }

# MissingPackages PACKAGE...
MissingPackages() {
  comm -23 <(printf '%s\n' "$@" | sort) \
    <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
      sed -n 's/^installed //p' | sort -u)
}

# AptInstall PACKAGE...: asks first unless we are root; fails without a word where nobody can be
# asked.
AptInstall() {
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    [ -t 0 ] && [ -t 2 ] && command -v sudo >/dev/null || return
    local answer
    read -r -p "Install $* with sudo apt-get? [y/N] " answer
    [[ $answer == [yY]* ]] || return
    as_root=(sudo)
  fi
  Say "Installing $*"
  local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -y -q)
  "${apt[@]}" update </dev/null >&2 || true  # the lists on the disk may still do
  "${apt[@]}" install --no-install-recommends "$@" </dev/null >&2
}

# InstallPackages ROOT
InstallPackages() {
  command -v dpkg-query >/dev/null || return 0  # not a Debian system: the configuration will tell
  local missing
  mapfile -t missing < <(MissingPackages "${packages[@]}")
  if [ ${#missing[@]} -gt 0 ] && ! AptInstall "${missing[@]}"; then
    Say "Feltmaster is built with packages that are not installed; as root, run:" \
      "apt-get install ${missing[*]}"
    exit 2
  fi

  # Whoever cannot have them or does not want them is not asked again.
  local asked=$1/build/desktop_packages
  mapfile -t missing < <(MissingPackages "${desktop_packages[@]}")
  if [ ${#missing[@]} -gt 0 ] && [ "$(cat "$asked" 2>/dev/null)" != "${missing[*]}" ]; then
    AptInstall "${missing[@]}" ||
      Say "Without ${missing[*]} Feltmaster is built as far as they allow"
    mapfile -t missing < <(MissingPackages "${desktop_packages[@]}")
    mkdir -p "$1/build" && printf '%s' "${missing[*]}" >"$asked"
  fi
}

# Cached by an earlier place of the source tree, by an interrupted configuration, without the
# strictness asked for now, or before all of Qt was there.
NeedsConfiguring() {
  local root=$1 cache=$2/CMakeCache.txt
  [ -f "$2/build.ninja" ] || return 0
  grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$cache" || return 0
  [ "${CI:-}" = true ] && grep -qxF FELTMASTER_WERROR:BOOL=OFF "$cache" && return
  grep -qxF FELTMASTER_DESKTOP:BOOL=ON "$cache" &&
    grep -qxF FELTMASTER_DESKTOP_FOUND:INTERNAL=OFF "$cache" &&
    [ -z "$(MissingPackages "${desktop_packages[@]}" 2>/dev/null)" ]
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
