#!/usr/bin/env bash
# Makes the OPC UA library open62541 1.4 available for the build: open62541.sh PREFIX
# Where the release packages it, the package is installed. On an older Debian the packages of a newer release, which run
# there too, are unpacked below PREFIX; the system itself stays as it is. Ends with a status other than 0, and one line
# that says so, when there is no way to the library: the programs are then built without OPC UA.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
source packaging/install-packages.sh

prefix=$(realpath -m -- "$1")
readonly prefix
readonly packages=(libopen62541-1.4 libopen62541-1.4-dev)
readonly needed=(libmbedcrypto16 libmbedx509-7)  # what the library itself is linked with
readonly newerReleases=(trixie forky sid)        # in this order: a mirror may lack single files of one

give_up() {
  echo "OPC UA: $1; building without it." >&2
  exit 1
}

# Debian's archive as this machine's package manager knows it.
archive_uri() {
  # shellcheck disable=SC2016  # the package manager fills these in
  apt-get indextargets --format '$(REPO_URI) $(ORIGIN)' 'Created-By: Packages' | awk '$2 == "Debian" { print $1; exit }'
}

# The package manager with a state of its own below $work; it neither needs nor gets any right.
own_apt() {
  apt-get -qq -o Dir::Etc::sourcelist="$work/newer.sources" -o Dir::Etc::sourceparts=- -o Dir::State::lists="$work/lists" \
    -o Dir::Cache="$work/cache" -o APT::Sandbox::User=root -o Acquire::http::Timeout=20 "$@"
}

# fetch RELEASE URI: unpacks the packages of a release into $work/tree.
fetch() {
  rm -rf "$work"
  mkdir -p "$work"/{lists,cache,debs,tree}
  cat >"$work/newer.sources" <<END
Types: deb
URIs: $2
Suites: $1
Components: main
Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg
END
  own_apt update || return 1
  (cd -- "$work/debs" && own_apt download "${packages[@]}" "${needed[@]}") || return 1
  local package
  for package in "$work"/debs/*.deb; do
    dpkg-deb -x "$package" "$work/tree" || return 1
  done
  mkdir -p "$work/tree/usr/share/open62541/schema"  # its CMake configuration asks for this folder
}

is_packaged() {
  apt-cache policy "${packages[1]}" 2>/dev/null | grep -q 'Candidate: [0-9]'
}

[[ ! -e $prefix/complete ]] || exit 0
if is_installed "${packages[1]}"; then exit 0; fi
for tool in apt-get dpkg-deb; do
  command -v "$tool" >/dev/null || give_up "there is no $tool to get open62541 1.4"
done
if is_packaged; then
  install_packages "${packages[1]}" && exit 0
  give_up 'open62541 1.4 could not be installed'
fi

work=$(mktemp -d)
trap 'rm -rf "$work" "$work.log"' EXIT
uri=$(archive_uri)
[[ -n $uri ]] || give_up 'the package manager knows no archive for open62541 1.4'
echo 'Fetching: open62541 1.4'
for release in "${newerReleases[@]}"; do
  if fetch "$release" "$uri" >"$work.log" 2>&1; then
    rm -rf "$prefix"
    mkdir -p "$(dirname -- "$prefix")"
    mv "$work/tree" "$prefix"
    touch "$prefix/complete"
    exit 0
  fi
done
tail -n 3 "$work.log" >&2
give_up 'open62541 1.4 could not be fetched'
