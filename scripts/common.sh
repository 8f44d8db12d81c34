# Shared by ./run, ./test, bench/run, scripts/fuzz and .ci/run: what must be installed, and how a preset is built.

build_packages="g++ cmake ninja-build pkg-config nlohmann-json3-dev libcli11-dev libxcb1-dev libxcb-shape0-dev libicu-dev libsqlite3-dev libsystemd-dev qt6-base-dev"
test_packages="libgtest-dev libgmock-dev xvfb openbox dbus"
bench_packages="libbenchmark-dev dbus xvfb"
package_packages="dpkg-dev file lintian desktop-file-utils appstream"
fuzz_packages="clang-19 libclang-rt-19-dev"
lint_packages="git clang-19 clang-format-19 clang-tidy-19"

say() { printf '%s\n' "$*" >&2; }

# Installs the packages that are missing, in one call; where there is no apt-get it names them and stops.
need() {
  local missing=() package
  for package in "$@"; do
    # A package of two architectures answers twice.
    [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) == installed* ]] || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  if ! command -v apt-get >/dev/null; then
    say "quibbly needs these packages, under the names your system has for them: ${missing[*]}"
    exit 1
  fi
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      say "quibbly needs these packages; install them as root: apt-get install ${missing[*]}"
      exit 1
    fi
    as_root=(sudo)
  fi
  say "Installing ${missing[*]}"
  "${as_root[@]}" apt-get update -qq >&2 &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2 ||
    { say "Installing failed; see the lines above."; exit 1; }
}

# configure PRESET [VARIABLE=VALUE...]: runs CMake unless the preset is configured with these values already.
configure() {
  local preset=$1 log=build/$1/configure.log setting defines=() known=1
  shift
  mkdir -p "build/$preset"
  [ -f "build/$preset/build.ninja" ] || known=0
  for setting in "$@"; do
    defines+=("-D$setting")
    grep -qs "^${setting%%=*}:[A-Z]*=${setting#*=}\$" "build/$preset/CMakeCache.txt" || known=0
  done
  [ $known -eq 1 ] && return
  say "Configuring $preset"
  cmake --preset "$preset" "${defines[@]}" >"$log" 2>&1 || { cat "$log" >&2; exit 1; }
}

# build PRESET [TARGET...]: says nothing when nothing changed; else shows one line of progress on a terminal, and elsewhere
# that it builds. What the compiler said is kept in build/PRESET/build.log and shown when it failed.
build() {
  local preset=$1 log=build/$1/build.log
  shift
  ninja -C "build/$preset" "$@" 2>&1 | tee "$log" | show_progress "$preset"
  [ "${PIPESTATUS[0]}" -eq 0 ] || { cat "$log" >&2; exit 1; }
}

show_progress() {
  local line said=
  while IFS= read -r line; do
    [[ $line =~ ^\[[0-9]+/[0-9]+\]\ (Building|Linking) ]] || continue
    if [ -t 2 ]; then
      printf '\r\033[K%.79s' "$line" >&2
    elif [ -z "$said" ]; then
      say "Building $1"
    fi
    said=1
  done
  if [ -t 2 ] && [ -n "$said" ]; then printf '\r\033[K' >&2; fi
}
