# Checks that are counted, for the packages' tests. Sourced by packaging/linux/test and packaging/windows/test.

passed=0
failed=0

# check STATEMENT COMMAND...: counts whether the command succeeds, and shows what it printed if it does not.
check() {
    local statement=$1 output
    shift
    if output=$("$@" 2>&1); then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'failed: %s\n%s\n' "$statement" "$output"
    fi
}

# holds SECONDS COMMAND...: waits until the command succeeds, and fails when it has not by then.
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

# open_display FILE: starts a screen without a monitor for what follows. Its process is $display, its number goes by way
# of the file.
open_display() {
    Xvfb -displayfd 5 -screen 0 1280x1024x24 -nolisten tcp 5>"$1" 2>/dev/null &
    display=$!
    holds 20 test -s "$1"
    export DISPLAY=:$(cat "$1")
    unset WAYLAND_DISPLAY
}

# shows TITLE: whether a window on that screen has the title.
shows() {
    xwininfo -root -tree | grep -F "\"$1\""
}

# tell_counts: prints them, and succeeds when nothing failed.
tell_counts() {
    echo "$passed passed, $failed failed"
    [ "$failed" = 0 ]
}
