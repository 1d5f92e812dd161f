# shellcheck shell=bash
# Shared by the scripts; source it. Stands in the repository's root afterwards.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# packages_of GROUP ...: the packages of those groups of scripts/packages.txt.
packages_of() {
  local group
  for group in "$@"; do
    awk -v group="$group" '/^# group: / {on = $3 == group; found = found || on}
      on && /^[^#]/ {print}
      END {exit !found}' scripts/packages.txt ||
      { echo "scripts/packages.txt has no group '$group'" >&2; return 1; }
  done
}

# install_packages GROUP ...: installs those of the groups' packages that this machine lacks.
install_packages() {
  local missing=() packages package
  packages=$(packages_of "$@")
  while read -r package; do
    dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
      missing+=("$package")
  done < <(sort -u <<<"$packages")
  [ ${#missing[@]} -eq 0 ] && return
  echo "== Installing: ${missing[*]}"
  as_root apt-get update -qq
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    "${missing[@]}" >/dev/null
}

# source_date: SOURCE_DATE_EPOCH, or the time of the commit in seconds; in an archive of the sources,
# of its change log.
source_date() {
  if [ -n "${SOURCE_DATE_EPOCH:-}" ]; then echo "$SOURCE_DATE_EPOCH"
  elif [ -e .git ]; then git log -1 --format=%ct
  else stat -c %Y CHANGELOG.md; fi
}

# build PRESET [TARGET ...]: configures and builds everything, or the targets. On a build server (CI)
# every warning is an error.
build() {
  echo "== Building the preset '$1'"
  cmake --preset "$1" ${CI:+-DWARNINGS_ARE_ERRORS=ON} >/dev/null
  cmake --build --preset "$1" ${2:+--target "${@:2}"} -- --quiet
}
