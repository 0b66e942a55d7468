# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 Velmarinth
# SPDX-License-Identifier: Apache-2.0
#
# Sourced by ./run, ./test and .ci/run: installs what is missing and builds. Needs root only to install.

set -euo pipefail

ORVO_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
# shellcheck disable=SC2034 # for the scripts that source this one
ORVO_BUILD_PACKAGES=(cmake ninja-build g++ qtbase5-dev qtbase5-dev-tools libqt5svg5-dev)
# shellcheck disable=SC2034
ORVO_TEST_PACKAGES=(xvfb xauth fonts-dejavu-core)
# shellcheck disable=SC2034 # clang's runtime, with its fuzzer, in a package of its own
ORVO_FUZZ_PACKAGES=(clang libclang-rt-dev)

say() {
    printf '==> %s\n' "$*" >&2
}

# fail MESSAGE [MORE LINES …]: says what went wrong and ends the script.
fail() {
    printf '==> %s\n' "$1" >&2
    shift
    [ $# -eq 0 ] || printf '    %s\n' "$@" >&2
    exit 1
}

missing_packages() {
    local installed
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null | sed -n 's/^installed //p') || true
    printf '%s\n' "$@" | grep -vxF "${installed:-none}" || true
}

# as_root COMMAND …: runs it as root, if necessary with sudo, which asks for a password only at a terminal.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif [ -t 0 ]; then
        sudo "$@"
    else
        sudo -n "$@"
    fi
}

# need_packages PACKAGE …: installs those that are missing; costs one query if none is.
need_packages() {
    if ! command -v dpkg-query >/dev/null; then
        say "This is not Debian: the packages are not checked. Wanted: $*"
        return
    fi
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0

    say "Missing Debian packages: ${missing[*]}"
    local by_hand="apt-get update && apt-get install --no-install-recommends ${missing[*]}"
    if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
        fail "Installing them takes root, and there is no sudo. As root, run:" "$by_hand" "Then call this again."
    fi
    if ! as_root true; then
        fail "Installing them takes root, and sudo refused. As root, run:" "$by_hand" "Then call this again."
    fi

    say "Installing them"
    local options=(-q -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3 -o Acquire::http::Timeout=20)
    as_root apt-get "${options[@]}" update </dev/null >&2 || true
    as_root env DEBIAN_FRONTEND=noninteractive apt-get "${options[@]}" -o Dpkg::Use-Pty=0 \
        install -y --no-install-recommends "${missing[@]}" </dev/null >&2 \
        || fail "The packages could not be installed; apt-get says above why." \
            "Without a network, connect this machine to one that reaches the Debian mirror; otherwise run as root:" \
            "$by_hand" "Then call this again."
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -eq 0 ] || fail "apt-get ran, but still missing: ${missing[*]}"
}

# build PRESET [TARGET …]: configures if that was not done yet or the presets changed, then builds.
build() {
    local preset=$1 folder=$ORVO_ROOT/build/$1
    shift
    if ! grep -qsxF "CMAKE_HOME_DIRECTORY:INTERNAL=$ORVO_ROOT" "$folder/CMakeCache.txt"; then
        say "Configuring build/$preset"
        (cd "$ORVO_ROOT" && cmake --preset "$preset" --fresh) >&2 || fail "CMake says above what it lacks."
    elif [ ! "$folder/build.ninja" -nt "$ORVO_ROOT/CMakePresets.json" ]; then
        say "Configuring build/$preset again"
        (cd "$ORVO_ROOT" && cmake --preset "$preset") >&2 || fail "CMake says above what it lacks."
    fi
    say "Building build/$preset"
    cmake --build "$folder" ${1:+--target "$@"} </dev/null >&2 || fail "The build failed; the compiler says above why."
}

# run_tests PRESET [CTEST ARGUMENT …]: runs the built tests on all cores, in invisible windows.
run_tests() {
    local preset=$1
    shift
    say "Testing build/$preset"
    ctest --test-dir "$ORVO_ROOT/build/$preset" --no-tests=error --output-on-failure --parallel "$(nproc)" \
        "$@" </dev/null
}
