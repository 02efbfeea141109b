#!/bin/sh
# The interaction tests on real desktops (`make test-desktop`).
#
#   sh tests/desktop/run.sh <build dir>
#
# Starts, each on a free display or socket of its own: Xvfb (one 1920x1080
# screen), X.Org's dummy driver for two screens side by side, openbox, a private session
# bus with the accessibility bus, xcompmgr for the compositor cases, and
# weston's headless backend for Wayland. Every process it starts is stopped
# by its process id when the script exits. Prints "N passed, M failed" and
# the wall time; exits non-zero on any failure. Screenshots of both skins,
# with and without a compositor, go to <build dir>/desktop-shots/.
set -u

BUILD=$(cd "${1:-build}" && pwd)
HERE=$(cd "$(dirname "$0")" && pwd)
BIN="$BUILD/tests/desktop"
SHOTS="$BUILD/desktop-shots"
started_at=$(date +%s)

work=$(mktemp -d "${TMPDIR:-/tmp}/orvane-desktop.XXXXXX")
mkdir -p "$work/home" "$work/xdg" "$SHOTS"
chmod 700 "$work" "$work/xdg"
# A private runtime directory, also the home of weston's socket.
XDG_RUNTIME_DIR="$work/xdg"
export XDG_RUNTIME_DIR
pids=""
passed=0
failed=0
failures=""

# Stops one process we started, and any it started itself, by their ids.
stop_pid() {
    for child in $(ps -o pid= --ppid "$1" 2>/dev/null); do
        kill "$child" 2>/dev/null
    done
    kill "$1" 2>/dev/null
    i=0
    while kill -0 "$1" 2>/dev/null && [ $i -lt 50 ]; do sleep 0.1; i=$((i + 1)); done
    kill -9 "$1" 2>/dev/null
    remaining=""
    for p in $pids; do [ "$p" = "$1" ] || remaining="$remaining $p"; done
    pids=$remaining
}

cleanup() {
    # Newest first: clients before their servers.
    for p in $(echo $pids | tr ' ' '\n' | tac); do stop_pid "$p"; done
    rm -rf "$work"
}
trap cleanup EXIT
trap 'exit 130' INT TERM

# Waits up to 10 s for a condition (a shell command).
wait_for() {
    i=0
    while ! eval "$1" >/dev/null 2>&1; do
        i=$((i + 1))
        [ $i -gt 100 ] && return 1
        sleep 0.1
    done
}

# After an X server was started in the background with -displayfd 3 into
# $work/displayfd: records its id, sets DISPLAY once it answers, starts
# openbox. x_started <server name> <its log> <screens>
x_started() {
    xpid=$!
    pids="$pids $xpid"
    wait_for "test -s '$work/displayfd'" || { echo "$1 did not start"; cat "$2"; exit 1; }
    DISPLAY=":$(head -n1 "$work/displayfd")"
    export DISPLAY
    wait_for "xdpyinfo" || { echo "$1 on $DISPLAY does not answer"; exit 1; }
    openbox --sm-disable >"$work/openbox-$3.log" 2>&1 &
    wmpid=$!
    pids="$pids $wmpid"
    # openbox sets _NET_SUPPORTING_WM_CHECK once it manages the screen.
    wait_for "xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'" || { echo "openbox did not start"; exit 1; }
    echo "== $1 $DISPLAY with $3 screen(s), openbox"
}

# Xvfb with one 1920x1080 screen, on a display number it picks itself.
start_x() {
    rm -f "$work/displayfd"
    Xvfb -displayfd 3 -screen 0 1920x1080x24 +extension Composite -nolisten tcp -noreset \
        3>"$work/displayfd" >"$work/xvfb.log" 2>&1 &
    x_started Xvfb "$work/xvfb.log" 1
}

# X.Org on the dummy driver with two 1920x1080 screens side by side under
# Xinerama (Xvfb puts every Xinerama head at 0,0).
start_two_screens() {
    mkdir -p "$work/xorg.conf.d"
    rm -f "$work/displayfd"
    Xorg -config "$HERE/xorg-two-screens.conf" -configdir "$work/xorg.conf.d" -noreset -nolisten tcp \
        -logfile "$work/xorg.log" -displayfd 3 3>"$work/displayfd" >"$work/xorg.out" 2>&1 &
    x_started X.Org "$work/xorg.out" 2
}

stop_x() {
    stop_pid "$wmpid"
    stop_pid "$xpid"
}

start_buses() {
    dbus-daemon --session --fork --print-address=1 --print-pid=1 >"$work/bus" 2>"$work/bus.log" \
        || { echo "no session bus"; cat "$work/bus.log"; exit 1; }
    DBUS_SESSION_BUS_ADDRESS=$(sed -n 1p "$work/bus")
    export DBUS_SESSION_BUS_ADDRESS
    pids="$pids $(sed -n 2p "$work/bus")"
    /usr/libexec/at-spi-bus-launcher >"$work/a11y-bus.log" 2>&1 &
    pids="$pids $!"
    wait_for "dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus org.a11y.Bus.GetAddress" \
        || { echo "no accessibility bus"; cat "$work/a11y-bus.log"; exit 1; }
    /usr/libexec/at-spi2-registryd >"$work/registryd.log" 2>&1 &
    pids="$pids $!"
    echo "== session bus and accessibility bus"
}

start_compositor() {
    xcompmgr >"$work/xcompmgr.log" 2>&1 &
    cmpid=$!
    pids="$pids $cmpid"
    sleep 0.5
    echo "== xcompmgr"
}

# run <name> <command...>: one test; its output is shown when it fails.
run() {
    name=$1
    shift
    log="$work/$(echo "$name" | tr ' /' '__').log"
    t0=$(date +%s)
    if HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config" XDG_DATA_HOME="$work/home/.local/share" \
        XDG_CACHE_HOME="$work/home/.cache" ORVANE_DESKTOP_SHOTS="$SHOTS" \
        timeout 300 "$@" >"$log" 2>&1; then
        passed=$((passed + 1))
        echo "PASS  $name ($(($(date +%s) - t0)) s)"
    else
        failed=$((failed + 1))
        failures="$failures
  $name"
        echo "FAIL  $name ($(($(date +%s) - t0)) s)"
        sed 's/^/      /' "$log"
    fi
}

export QT_QPA_PLATFORM=xcb
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1

start_x
start_buses
run "dialogs (X11)" "$BIN/desktop_dialogs"
# Dialogs follow the compositor's state when they open: without, with, and
# once more without after it stopped.
run "band, no compositor" env ORVANE_EXPECT_COMPOSITOR=0 "$BIN/desktop_compositor"
start_compositor
run "band, compositor" env ORVANE_EXPECT_COMPOSITOR=1 "$BIN/desktop_compositor"
stop_pid "$cmpid"
run "band, compositor stopped" env ORVANE_EXPECT_COMPOSITOR=0 ORVANE_DESKTOP_SHOTS= "$BIN/desktop_compositor"

# The system's Python, which has the AT-SPI bindings from python3-pyatspi.
run "screen reader (AT-SPI)" /usr/bin/python3 "$HERE/a11y.py" "$BIN/desktop_a11y_host"
stop_x

start_two_screens
run "two screens" "$BIN/desktop_screens"
stop_x

echo "== Wayland (weston, headless backend)"
socket="orvane-desktop-$$"
weston --backend=headless-backend.so --socket="$socket" --idle-time=0 \
    --width=1920 --height=1080 >"$work/weston.log" 2>&1 &
westonpid=$!
pids="$pids $westonpid"
if wait_for "test -S '$work/xdg/$socket'"; then
    run "dialogs (Wayland)" env -u DISPLAY WAYLAND_DISPLAY="$socket" \
        QT_QPA_PLATFORM=wayland "$BIN/desktop_dialogs"
    # The button suites as they are: their look and mouse states do not
    # depend on where a window may be placed.
    for suite in tst_imagebutton tst_buttonstyles; do
        run "$suite (Wayland)" env -u DISPLAY WAYLAND_DISPLAY="$socket" \
            QT_QPA_PLATFORM=wayland "$BUILD/tests/widgets/$suite"
    done
else
    failed=$((failed + 1))
    failures="$failures
  weston did not start"
    cat "$work/weston.log"
fi
stop_pid "$westonpid"

elapsed=$(($(date +%s) - started_at))
echo
[ -n "$failures" ] && echo "Failed:$failures"
echo "$passed passed, $failed failed"
echo "Wall time: ${elapsed} s"
[ "$failed" -eq 0 ]
