# shellcheck shell=bash disable=SC2034
# Sourced by run, test and fuzz/run: what the build needs of the system, the build itself, a place for temporary files.

# One line each: a Debian package and what it is for.
buildPackages='
g++ compiles the program
cmake describes the build
ninja-build runs the build
ccache makes the second build quick
libsqlite3-dev keeps a schema in a database file
sqlite3 makes the template database
libpq-dev reads the catalogue of a PostgreSQL database
libpugixml-dev reads and writes XML
libfmt-dev forms texts and numbers
nlohmann-json3-dev reads and writes JSON lines
libcli11-dev reads the command line
libgraphviz-dev places the boxes of a diagram
qt6-base-dev shows the window
qt6-svg-dev draws the icons at every size
libgtest-dev runs the tests
'
testPackages='
clang-format checks the form of the code
chromium opens the report as its readers do
postgresql runs the SQL scripts and is read as a repository
python3 runs the example of an add-on in Python
pkg-config finds the installed headers as an author of add-ons does
libglib2.0-bin tells the type of a file as desktops do
dpkg-dev finds what the Debian package needs
file tells which files of the package are programs
'
windowPackages='
fonts-noto-cjk shows Japanese and Korean
qt6-translations-l10n gives buttons Japanese and Korean captions
'
vncPackages='
xvfb is a display without a screen
x11vnc serves that display
'

AsRoot() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "setup: installing needs root or sudo; as root, run: $*" >&2
        return 1
    fi
}

# InstallMissing LIST...: installs the packages of the lists that are not installed yet, saying which and why.
InstallMissing() {
    local installed package purpose missing=()
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n')
    while read -r package purpose; do
        if [ -n "$package" ] && ! grep -qxF "installed $package" <<<"$installed"; then
            echo "setup: installing $package, which $purpose"
            missing+=("$package")
        fi
    done < <(printf '%s\n' "$@")
    [ ${#missing[@]} -gt 0 ] || return 0
    AsRoot apt-get -q update
    AsRoot env DEBIAN_FRONTEND=noninteractive apt-get -q -y --no-install-recommends install "${missing[@]}"
}

# Build PRESET [TARGET...]: configures the preset and builds the targets, or everything.
Build() {
    local root preset=$1
    root=$(dirname "$(dirname "$(realpath "${BASH_SOURCE[0]}")")")
    cmake -S "$root" --preset "$preset"
    cmake --build "$root/build/$preset" ${2+--target "${@:2}"}
}

# UseTemporaryFolder: a TMPDIR that goes with everything in it when the script ends. It is in memory where there is
# plenty, for programs that make many small files wait for a disk most of their time.
UseTemporaryFolder() {
    local parent=/tmp
    if [ -w /dev/shm ] && [ "$(df --output=avail /dev/shm | tail -n 1)" -gt 2000000 ]; then parent=/dev/shm; fi
    TMPDIR=$(mktemp -d "${TMPDIR:-$parent}/tessel-XXXXXX")
    export TMPDIR
    trap 'rm -rf "$TMPDIR"' EXIT
    # A server that root may not run goes through it to a folder of its own.
    chmod 711 "$TMPDIR"
}
