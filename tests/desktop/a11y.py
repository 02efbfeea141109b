#!/usr/bin/env python3
"""What a screen reader finds through AT-SPI in the message box and the
ImageButton of desktop_a11y_host, and a press of the button by its name.

    python3 a11y.py <path to desktop_a11y_host>
"""
import subprocess
import sys
import time

import pyatspi

APP = "orvane-a11y-host"
EXPECTED = [
    ("label", "The disk is almost full"),       # the heading
    ("label", "Only 2 GB are left on the system disk."),  # the message
    ("check box", "Do not ask again"),
    ("push button", "Later"),
    ("push button", "Clean up"),
    ("push button", "Close"),                   # the bar's close button
    ("push button", "Export report"),           # the ImageButton
]


def find_app(timeout):
    deadline = time.time() + timeout
    while time.time() < deadline:
        desktop = pyatspi.Registry.getDesktop(0)
        for i in range(desktop.childCount):
            app = desktop.getChildAtIndex(i)
            if app is not None and app.name == APP:
                return app
        time.sleep(0.2)
    return None


def walk(node, found, depth=0):
    if node is None or depth > 40:
        return
    try:
        found.append((node.getRoleName(), (node.name or "").strip(), node))
        for i in range(node.childCount):
            walk(node.getChildAtIndex(i), found, depth + 1)
    except Exception:  # a widget gone while walking
        pass


def main():
    host = subprocess.Popen([sys.argv[1]], stdout=subprocess.PIPE, text=True)
    failures = []
    try:
        app = find_app(20)
        if app is None:
            print("FAIL: %s is not on the accessibility bus" % APP)
            return 1
        found = []
        # The windows may still be filling in: look a few times.
        for _ in range(20):
            found = []
            walk(app, found)
            names = {(r, n) for r, n, _ in found}
            if all(e in names for e in EXPECTED):
                break
            time.sleep(0.25)
        names = {(r, n) for r, n, _ in found}
        for role, name in EXPECTED:
            if (role, name) in names:
                print("PASS: %s %r" % (role, name))
            else:
                failures.append("no %s named %r" % (role, name))
        unnamed = [r for r, n, _ in found if r == "push button" and not n]
        if unnamed:
            failures.append("%d push button(s) without a name" % len(unnamed))

        button = next((o for r, n, o in found if r == "push button" and n == "Export report"), None)
        if button is not None:
            action = button.queryAction()
            names = [action.getName(i) for i in range(action.nActions)]
            index = names.index("Press") if "Press" in names else 0
            action.doAction(index)
            try:
                code = host.wait(timeout=10)
            except subprocess.TimeoutExpired:
                code = None
            out = host.stdout.read() if code is not None else ""
            if code == 0 and "clicked: Export report" in out:
                print("PASS: pressing 'Export report' through AT-SPI clicked it")
            else:
                failures.append("pressing 'Export report' did not click it (exit %r)" % code)
    finally:
        if host.poll() is None:
            host.kill()
            host.wait()
    for f in failures:
        print("FAIL: " + f)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
