# What ./run, ./test and the benchmarks share. To be sourced by a script that has set -euo pipefail.
# Sets `root`, the project's directory, and `cache`, the user's directory for what can be made again.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
# shellcheck disable=SC2034
cache=${XDG_CACHE_HOME:-$HOME/.cache}/Ombravision

fail() {
    echo "$(basename "$0"): $*" >&2
    exit 1
}

# as_root COMMAND...
as_root() {
    if ((EUID == 0)); then
        "$@"
    else
        command -v sudo >/dev/null || fail "needs root to run: $*"
        sudo "$@"
    fi
}

# install_packages USE...: the packages of these uses in packages.txt; asks apt only when one is missing.
install_packages() {
    local uses wanted missing
    uses=" $* "
    wanted=$(awk -v uses="$uses" '!/^#/ && index(uses, " " $1 " ") {print $2}' "$root/packages.txt" | sort -u)
    command -v dpkg-query >/dev/null || fail "this is no Debian; please install yourself what packages.txt lists"
    # shellcheck disable=SC2086  # One word for each package.
    missing=$(comm -23 <(echo "$wanted") \
        <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' $wanted 2>/dev/null | sed -n 's/^installed //p' | sort -u))
    [[ -n $missing ]] || return 0
    echo "Installing: ${missing//$'\n'/ }"
    as_root apt-get -qq update
    # shellcheck disable=SC2086
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -qq -y install --no-install-recommends $missing
}

# build_preset PRESET [CMAKE-BUILD-ARGUMENT...]: brings build/PRESET up to date.
build_preset() {
    local preset=$1
    shift
    (
        cd "$root" || exit
        [[ -f build/$preset/build.ninja ]] || cmake --preset "$preset"
        cmake --build --preset "$preset" "$@"
    )
}

# display_is_alive: whether DISPLAY names a server that answers.
display_is_alive() {
    [[ -n ${DISPLAY:-} ]] && timeout 5 xprop -root _NET_SUPPORTED >/dev/null 2>&1
}
