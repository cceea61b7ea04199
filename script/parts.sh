# shellcheck shell=bash
# What the scripts that have several parts share: a line of progress for each, its time, and what to run after a failure.
# A script sources this after it has changed to the project's folder.

readonly logs=build/logs
mkdir -p "$logs"
if [[ -t 1 && -z ${NO_COLOR:-} && ${TERM:-dumb} != dumb ]]; then
    good=$'\e[32m' bad=$'\e[31m' dim=$'\e[2m' plain=$'\e[0m'
else
    good='' bad='' dim='' plain=''
fi

# again COMMAND...: what to type to run it again; of a function of a script, what it does.
again() {
    case $(type -t "$1"):$1 in
        function:ctest_in) echo "    ctest --output-on-failure --test-dir ${*@Q}" | sed "s/'ctest_in' //" ;;
        function:*) declare -f "$1" | sed '1,2d; $d' ;;
        *) echo "    $*" ;;
    esac
}

# part NAME COMMAND...: runs a command with its output in a log, and says how long it took. A failure shows the end of the
# log and the command, and ends the script.
part() {
    local name=$1 began=$SECONDS status=0
    local log="$logs/${name//[^A-Za-z0-9]/-}.log"
    shift
    printf '%s...%s %s\n' "$dim" "$plain" "$name"
    # As a condition a function would go on after a command that fails.
    (set -e; "$@") >"$log" 2>&1 </dev/null &
    wait $! || status=$?
    if ((status == 0)); then
        printf '%sok%s  %s %s(%d s)%s\n' "$good" "$plain" "$name" "$dim" $((SECONDS - began)) "$plain"
        sed -n 's/^\(100% tests passed.*\|[0-9]* passed, [0-9]* failed.*\)$/    \1/p' "$log"
    else
        tail -n 60 "$log"
        printf '%sFAILED%s %s after %d s\n' "$bad" "$plain" "$name" $((SECONDS - began)) >&2
        printf 'The whole output is in %s. Run this part again with\n%s\n' "$log" "$(again "$@")" >&2
        exit 1
    fi
}

# part_beside NAME COMMAND...: the same in the background, for what waits a lot. parts_beside_end waits for all of them,
# and fails if one has failed.
beside=()
part_beside() {
    part "$@" &
    beside+=($!)
}
parts_beside_end() {
    local pid
    for pid in "${beside[@]}"; do wait "$pid"; done
    beside=()
}
trap wait EXIT

# ctest_in BUILD [OPTION...]: all tests of a build tree, and the names of those that failed at the end of the log. Some
# wait for terminals and servers, so there is one more at a time than there are processors.
ctest_in() {
    local tree=$1
    shift
    ctest --test-dir "$tree" -j $(($(nproc) + 1)) --output-on-failure "$@" || {
        echo "Run a failed test again with: ctest --test-dir $tree --output-on-failure -R 'NAME'"
        return 1
    }
}

# Compiles what was compiled before from a cache, where there is one; precompiled headers count by their sources.
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_SLOPPINESS=pch_defines,time_macros
fi
