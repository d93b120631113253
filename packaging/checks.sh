# Checks that are counted, for the packages' tests. Sourced by packaging/linux/test and packaging/windows/test.

passed=0
failed=0

# check NAME COMMAND...: counts whether the command succeeds, and shows what it printed if it does not.
check() {
    local name=$1 output
    shift
    if output=$("$@" 2>&1); then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'failed: %s\n%s\n' "$name" "$output"
    fi
}

# holds SECONDS COMMAND...: waits until the command succeeds.
holds() {
    local end=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $end ] || { echo "does not hold: $*"; return 1; }
        sleep 0.2
    done
}

# gone PATH...: whether none of them exists.
gone() {
    local path
    for path; do
        [ ! -e "$path" ] || { echo "still there: $path"; return 1; }
    done
}

# tell_counts: prints them, and succeeds when nothing failed.
tell_counts() {
    echo "$passed passed, $failed failed"
    [ "$failed" = 0 ]
}
