# shellcheck shell=bash
# Sourced by ./run and ./test: the Debian packages of the project and how the missing ones are installed.
# An entry is a package, or package:command where the command will do wherever it comes from.

# shellcheck disable=SC2034  # the lists are for the scripts that source this file
{
  BUILD_PACKAGES=(g++:g++ cmake:cmake ninja-build:ninja ccache:ccache libfmt-dev libcli11-dev rapidjson-dev
                  qt6-base-dev qt6-svg-dev qt6-translations-l10n fonts-dejavu-core)
  TEST_PACKAGES=(libgtest-dev libgmock-dev nlohmann-json3-dev locales)
  CHECK_PACKAGES=(clang:clang++ clang-format:clang-format clang-tidy:clang-tidy shellcheck:shellcheck libbenchmark-dev)
}

# Without dpkg there is no telling: CMake will name what it does not find.
is_installed() {
  if [[ $1 == *:* ]]; then
    command -v "${1#*:}" >/dev/null
  elif command -v dpkg-query >/dev/null; then
    [[ $(dpkg-query --show --showformat='${Status}' "$1" 2>/dev/null) == 'install ok installed' ]]
  fi
}

apt_get() {
  local asRoot=()
  ((EUID == 0)) || asRoot=(sudo)
  "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=120 "$@" >/dev/null
}

# install_packages ENTRY...: installs what is missing of the entries; fails with an advice when it cannot.
install_packages() {
  local entry missing=()
  for entry in "$@"; do
    is_installed "$entry" || missing+=("${entry%%:*}")
  done
  ((${#missing[@]})) || return 0

  echo "Installing: ${missing[*]}"
  if command -v apt-get >/dev/null && { ((EUID == 0)) || command -v sudo >/dev/null; }; then
    apt_get update || echo 'The package lists could not be brought up to date; trying with those at hand.' >&2
    apt_get install --yes --no-install-recommends "${missing[@]}" && return 0
  fi
  echo "These packages are missing and could not be installed. Please install them as root:" >&2
  echo "  apt-get install ${missing[*]}" >&2
  return 1
}

# The run-time libraries of Clang's sanitizers and fuzzer; their package is named after the release of Clang.
install_clang_runtime() {
  compgen -G "$(clang++ -print-resource-dir)/lib/*/libclang_rt.fuzzer*.a" >/dev/null && return 0
  install_packages "libclang-rt-$(clang++ -dumpversion | cut -d. -f1)-dev"
}

# The OPC UA library, by packaging/open62541.sh. Without it the build goes on: online there is then only the
# demonstration server.
install_opcua() {
  bash packaging/open62541.sh build/deps/open62541 || true
}
