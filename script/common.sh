# What the ways in share; sourced by them, never run.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() { printf '== %s\n' "$*" >&2; }
die() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; exit 1; }

# A folder of this user's own to build in: the checkout's, or one outside it when the checkout is somebody else's.
build_folder() {
    local folder
    for folder in "$root/build" "${XDG_CACHE_HOME:-${HOME:-/nonexistent}/.cache}/router-manager" \
                  "${TMPDIR:-/tmp}/router-manager-$(id -u)"; do
        if mkdir -p -m 0755 "$folder/$1" 2>/dev/null && [ -O "$folder/$1" ] && [ -w "$folder/$1" ]; then
            printf '%s\n' "$folder/$1"
            return
        fi
    done
    die "no folder to build in: neither $root/build nor your cache folder nor ${TMPDIR:-/tmp} can be written to"
}

# configure PRESET BUILD-FOLDER [CMAKE-ARGUMENT...]: the programs of a build find each other below its own folder.
configure() {
    local preset=$1 folder=$2
    shift 2
    (cd "$root" && cmake --preset "$preset" -B "$folder" "-DROUTER_RUNTIME_DIR=$folder/run" \
        "-DROUTER_STATE_DIR=$folder/state" "$@") >"$folder/configure.log" 2>&1 ||
        { cat "$folder/configure.log" >&2; die "the build cannot be configured"; }
}

# build BUILD-FOLDER [TARGET...]: one moving line on a terminal, only what goes wrong elsewhere.
build() {
    local folder=$1 targets=() quiet=()
    shift
    [ $# -eq 0 ] || targets=(--target "$@")
    [ -t 1 ] || quiet=(-- --quiet)
    cmake --build "$folder" "${targets[@]}" "${quiet[@]}" >&2 || die "the build failed"
}
