# Sourced by ./run, ./test and bench/run: installs the packages that are missing and builds.
# Each function says in one line what it does; a failing step stops the script with its own words.

say() { printf '== %s\n' "$*"; }

# missing_packages KIND...: the packages of those kinds that packages.txt names and the machine lacks.
missing_packages() {
    local package kind wanted
    while read -r package kind _; do
        case "$package" in '' | \#*) continue ;; esac
        for wanted in "$@"; do
            if [ "$kind" = "$wanted" ] && ! dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed'; then
                echo "$package"
            fi
        done
    done <packages.txt
}

have_packages() { [ -z "$(missing_packages "$@")" ]; }

# need_packages KIND...: installs what is missing of those kinds.
need_packages() {
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -eq 0 ] && return 0
    say "installing ${missing[*]}"
    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get)
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || {
            echo "These packages are missing and only root or a user with sudo can install them: ${missing[*]}" >&2
            exit 1
        }
        apt=(sudo "${apt[@]}")
    fi
    "${apt[@]}" update -qq
    "${apt[@]}" install -y -qq --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET...]: configures when needed and builds with all cores. Packages that came since the last time may
# bring more to build, so a change of what is there configures again.
build() {
    local preset=$1
    shift
    say "building ($preset)"
    local missing
    missing=$(missing_packages test bench)
    if [ ! -f "build/$preset/build.ninja" ] || [ "$missing" != "$(cat "build/$preset/missing" 2>/dev/null)" ]; then
        cmake --preset "$preset" >"build-$preset.log" 2>&1 || {
            cat "build-$preset.log"
            rm -f "build-$preset.log"
            exit 1
        }
        rm -f "build-$preset.log"
        echo "$missing" >"build/$preset/missing"
    fi
    # On a terminal this is one line that stays and tells how far it is.
    NINJA_STATUS='%p built, step %f of %t: ' cmake --build "build/$preset" --parallel "$(nproc)" ${1:+--target "$@"}
}
