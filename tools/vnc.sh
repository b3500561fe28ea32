# shellcheck shell=bash
# Sourced by run: a window for a machine without a screen.

IsPortTaken() { (exec 3<>"/dev/tcp/127.0.0.1/$1") 2>/dev/null; }

StartDisplay() {
    # The display's number comes back on the pipe, so that two runs never choose the same one.
    coproc XSERVER { exec Xvfb -displayfd 1 -screen 0 1440x900x24 -nolisten tcp 2>/dev/null; }
    served+=("$XSERVER_PID")
    if ! read -r display <&"${XSERVER[0]}"; then
        echo "run: Xvfb did not start; run 'Xvfb -displayfd 1' to see why." >&2
        return 1
    fi
}

StartServer() {
    x11vnc -display ":$display" -localhost -rfbport "$port" -forever -shared -nopw -quiet >/dev/null 2>&1 &
    served+=("$!")
    until IsPortTaken "$port"; do
        if ! kill -0 "$!" 2>/dev/null; then
            echo "run: x11vnc did not start on port $port; run 'x11vnc -display :$display' to see why." >&2
            return 1
        fi
        sleep 0.1
    done
}

# ServeWindow COMMAND...: runs the command on a display of its own that a VNC viewer on this machine can show, and
# ends the display with it.
ServeWindow() {
    local display port=5900
    served=()
    trap 'kill "${served[@]}" 2>/dev/null || true; wait' EXIT
    while IsPortTaken "$port"; do port=$((port + 1)); done
    StartDisplay
    StartServer
    echo "The window is at 127.0.0.1:$port, for any VNC viewer on this machine, without a password."
    echo "From another machine: ssh -L $port:127.0.0.1:$port HOST, then the same address there."
    env -u WAYLAND_DISPLAY DISPLAY=":$display" QT_QPA_PLATFORM=xcb "$@"
}
