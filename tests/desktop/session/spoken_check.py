#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What a screen reader meets in the windows: spoken_check.py KELVARIN EXAMPLES

Starts the program, walks each window over the accessibility bus as a reader does, and says which control has nothing to
be spoken, and which light, grid or table does not tell its values. To be run under a bus and a screen of its own, see
spoken_check.sh. Exit status 1 where something is wrong.
"""

import os
import subprocess
import sys
import time

import pyatspi

# What a person can act on, by the names of roles.
CONTROLS = {"push button", "toggle button", "check box", "radio button", "combo box", "text", "spin button", "list",
            "table", "tree", "tree table", "page tab list", "slider", "link"}

faults = []


def nodes_of(node, depth=0):
    """All shown nodes below one; tables of thousands of cells only by their beginnings."""
    yield node
    if depth > 30:
        return
    for index in range(min(node.childCount, 300)):
        child = node.getChildAtIndex(index)
        if child is not None and child.getState().contains(pyatspi.STATE_SHOWING):
            yield from nodes_of(child, depth + 1)


def is_named(node):
    if node.name or node.getRoleName() == "combo box" and node.childCount and node.getChildAtIndex(0).name:
        return True
    return any(r.getRelationType() == pyatspi.RELATION_LABELLED_BY for r in node.getRelationSet())


class program:
    def __init__(self, *arguments):
        environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self.process = subprocess.Popen([sys.argv[1], *arguments], env=environment)
        self.root = self.wait_for(self.find_root)
        time.sleep(0.5)

    def find_root(self):
        for application in pyatspi.Registry.getDesktop(0):
            if application and application.get_process_id() == self.process.pid and application.childCount:
                return application
        return None

    @staticmethod
    def wait_for(find):
        for _ in range(200):
            found = find()
            if found:
                return found
            time.sleep(0.1)
        raise SystemExit("spoken_check: a window did not come")

    def nodes(self):
        return list(nodes_of(self.root))

    def node(self, role, begin):
        """The shown node of this role whose name begins so; waits for it."""
        return self.wait_for(lambda: next(
            (n for n in self.nodes() if n.getRoleName() == role and n.name.startswith(begin)), None))

    def press(self, role, begin):
        self.node(role, begin).queryAction().doAction(0)
        time.sleep(0.5)

    def check(self, what, *told):
        """Each control has a name; and these texts are spoken somewhere."""
        nodes = self.nodes()
        for node in nodes:
            if node.getRoleName() in CONTROLS and not is_named(node):
                parent = node.parent
                faults.append(f"{what}: {node.getRoleName()} without a name in {parent.getRoleName()} '{parent.name}'")
        spoken = {node.name for node in nodes}
        for node in nodes:
            if "Text" in pyatspi.listInterfaces(node):
                spoken.add(node.queryText().getText(0, -1))
        for text in told:
            if not any(text in each for each in spoken):
                faults.append(f"{what}: nothing tells '{text}'")
        print(f"{what}: {len(nodes)} nodes")

    def end(self):
        self.process.terminate()
        self.process.wait()


def check_windows(examples):
    for file, told in {
        "cable-sag.kvr": ("Traffic light: ready", "equation 2: span = 120", "initial guess 1: 315"),
        "satellite.kvr": ("Traffic light: ready", "equation 1: d(x)/d(t) = u", "initial value 1: 6678"),
        "bridge-circuit.kvr": ("i_left", "60"),
        "vapour-pressure.kvr": ("lgP", "9.21"),
    }.items():
        shown = program(os.path.join(examples, file))
        shown.check(file, *told)
        if file == "cable-sag.kvr":
            shown.press("push button", "Solve it")
            shown.node("frame", "Nonlinear Equations Solution")
            shown.check("report", "Sag and tension of a cable")
            shown.press("push button", "New optimization problem")
            shown.check("optimization", "Traffic light")
        shown.end()


def check_tools():
    for word, told in {"calc": "Answer", "units": "Result", "const": "speed of light in vacuum", "ant": "Logarithm"}.items():
        shown = program(word)
        shown.check(word, told)
        shown.end()


check_windows(sys.argv[2])
check_tools()
for fault in faults:
    print(fault, file=sys.stderr)
sys.exit(1 if faults else 0)
