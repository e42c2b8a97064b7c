# Installs what the project needs and the machine lacks, and builds it. Sourced by the other scripts, from the root of
# the checkout.

say() { printf '\n== %s\n' "$*"; }

as_root() {
  if [ "$(id -u)" = 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    echo "This needs root: $*" >&2
    echo "Run it as root, or install sudo." >&2
    return 1
  fi
}

is_installed() { [ "$(dpkg-query -W -f='${Status}' "$1" 2>/dev/null)" = "install ok installed" ]; }

# need_packages NAME...: installs the Debian packages that are missing.
need_packages() {
  local missing=() name
  for name in "$@"; do
    is_installed "$name" || missing+=("$name")
  done
  [ ${#missing[@]} = 0 ] && return 0
  if ! command -v apt-get >/dev/null; then
    echo "Please install what stands for these Debian packages: ${missing[*]}" >&2
    return 1
  fi
  say "Installing Debian packages: ${missing[*]}"
  as_root apt-get update -qq
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# Node.js may have come another way than by its package.
need_node() {
  command -v node >/dev/null && command -v npm >/dev/null && return 0
  need_packages nodejs npm
}

# The npm packages that the lock file names, installed again when the lock file has changed.
need_npm_packages() {
  need_node
  if ! cmp -s package-lock.json node_modules/.installed-lock; then
    say "Installing npm packages of package-lock.json"
    npm ci --no-audit --no-fund --loglevel=error
    cp package-lock.json node_modules/.installed-lock
  fi
}

need_build() {
  need_packages g++ cmake ninja-build ccache libboost1.81-dev libsoci-dev libsqlite3-dev libcli11-dev
  need_npm_packages
}

configure() { cmake --preset "$1" --log-level=WARNING; }

# build PRESET [TARGET...]
build() {
  local preset=$1
  shift
  say "Building ($preset)"
  configure "$preset"
  if [ $# = 0 ]; then
    cmake --build --preset "$preset"
  else
    cmake --build --preset "$preset" --target "$@"
  fi
}
