"""What a screen reader does with a program, over the bus that assistive programs use."""

import itertools
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

Role, State = Atspi.Role, Atspi.StateType
PRESSED = (Role.PUSH_BUTTON, Role.RADIO_BUTTON, Role.CHECK_BOX)
WAYS_TO_PRESS = {"Press", "Toggle", "ShowMenu"}
TICKED = (Role.RADIO_BUTTON, Role.CHECK_BOX)
# What is in them is asked for one by one: there are thousands of cells; the last ones hold nothing.
READ_AS_ONE = {Role.TABLE, Role.COMBO_BOX, Role.LIST, Role.CHART, Role.LABEL, Role.TEXT, *PRESSED}
SYMBOLS = {
    "Tab": 0xFF09,
    "Escape": 0xFF1B,
    "Home": 0xFF50,
    "Right": 0xFF53,
    "F1": 0xFFBE,
    "Alt": 0xFFE9,
}
PATIENCE = 10  # seconds


def is_(state, element):
    return element.get_state_set().contains(state)


def children(element):
    all_of_them = (element.get_child_at_index(index) for index in range(element.get_child_count()))
    return [child for child in all_of_them if child is not None]


def name_of(element):
    """What is said first. A list is named by its label: its own name is the entry that is chosen."""
    if element.get_role() == Role.COMBO_BOX:
        for relation in element.get_relation_set():
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
                return relation.get_target(0).get_name()
    return element.get_name()


def said_of(element):
    return ", ".join(filter(None, (name_of(element), element.get_role_name(), element.get_description())))


def text_of(element):
    return Atspi.Text.get_text(element, 0, -1)


def actions_of(element):
    return [Atspi.Action.get_action_name(element, index) for index in range(element.get_n_actions())]


def headings_of(table):
    return [Atspi.Table.get_column_description(table, column) for column in range(table.get_n_columns())]


def cells_of(table, row):
    return [table.get_accessible_at(row, column).get_name() for column in range(table.get_n_columns())]


def faults_of(element):
    """What keeps a user who only hears from using it."""
    role, name, states = element.get_role(), name_of(element), element.get_state_set()
    if states.contains(State.FOCUSABLE) and role in (Role.INVALID, Role.UNKNOWN):
        yield "takes the focus and is nothing that a reader knows"
    if states.contains(State.FOCUSABLE) and not name:
        yield "takes the focus and has no name"
    if "__" in name + element.get_description():
        yield "is read out stroke by stroke"
    if role in PRESSED and states.contains(State.ENABLED) and not WAYS_TO_PRESS & {*actions_of(element)}:
        yield "cannot be pressed"
    if role == Role.TABLE and element.get_n_rows() > 0:
        for heading, cell in zip(headings_of(element), cells_of(element, 0)):
            if not heading or not cell:
                yield f'has the cell "{cell}" under the heading "{heading}"'


class Reader:
    def __init__(self, desktop):
        self._desktop = desktop
        Atspi.set_timeout(1000 * PATIENCE, 1000 * PATIENCE)
        programs = Atspi.get_desktop(0)
        self._program = self.until(lambda: next(iter(children(programs)), None), "the program")

    def until(self, condition, what):
        """What the condition gives, as soon as that is something."""
        end = time.monotonic() + PATIENCE
        while True:
            self._desktop.focus_front_window()
            try:
                found = condition()
            except GLib.Error:
                found = None  # something went away while it was read
            if found:
                return found
            if time.monotonic() > end:
                raise AssertionError(f"waited in vain for {what}; in front is\n{self.transcript()}")
            time.sleep(0.01)

    # --- What is heard

    def front(self):
        """The window that has the keyboard; of the main window, the page that it shows."""
        for window in children(self._program):
            if is_(State.ACTIVE, window):
                stacks = [child for child in children(window) if child.get_role() == Role.LAYERED_PANE]
                pages = [page for stack in stacks for page in children(stack) if is_(State.SHOWING, page)]
                return pages[0] if pages else window
        return None

    def elements(self):
        """All that is shown in front, in the order in which it is read."""
        front = self.front()
        return iter(()) if front is None else self._shown(front)

    def _shown(self, element):
        if is_(State.SHOWING, element):
            yield element
            if element.get_role() not in READ_AS_ONE:
                for child in children(element):
                    yield from self._shown(child)

    def transcript(self):
        return "\n".join(map(said_of, self.elements()))

    def faults(self):
        return [f"{said_of(element)}: {fault}" for element in self.elements() for fault in faults_of(element)]

    def find(self, name, *roles, nth=0):
        """The nth element in front of this name, as soon as it is there; "Name*" is the start of a name."""

        def fits(element):
            heard = name_of(element).strip()
            return heard.startswith(name[:-1]) if name.endswith("*") else heard == name

        def found():
            fitting = (one for one in self.elements() if (not roles or one.get_role() in roles) and fits(one))
            return next(itertools.islice(fitting, nth, None), None)

        return self.until(found, f'"{name}"')

    def focus(self):
        return next((element for element in self.elements() if is_(State.FOCUSED, element)), None)

    def wait_for_focus(self, name):
        self.until(lambda: (focus := self.focus()) and name_of(focus) == name, f'the focus on "{name}"')

    # --- What is done

    def do(self, action, element):
        self.until(lambda: action in actions_of(element), f'"{name_of(element)}" to offer "{action}"')
        element.do_action(actions_of(element).index(action))

    def press(self, name):
        self.do("Press", self.find(name, Role.PUSH_BUTTON))

    def tick(self, name, nth=0):
        element = self.find(name, *TICKED, nth=nth)
        self.do("Toggle", element)
        self.until(lambda: is_(State.CHECKED, element), f'a tick at "{name}"')

    def go_to(self, name, *roles):
        """With Tab, as often as it takes."""
        target = self.find(name, *roles)
        for _ in self.elements():
            if is_(State.FOCUSED, target):
                return target
            before = self.focus()
            self.key("Tab")
            self.until(lambda: (now := self.focus()) and now != before, "the focus to move on")
        raise AssertionError(f'Tab never comes to "{name}"')

    def fill(self, name, text):
        """As dictation does; Tab then leaves the box."""
        self.go_to(name, Role.TEXT).set_text_contents(text)
        self.key("Tab")

    def choose(self, name, entry):
        box = self.go_to(name, Role.COMBO_BOX)
        self.type(entry)
        self.until(lambda: box.get_name().strip() == entry, f'"{entry}" in "{name}"')

    def type(self, text):
        for character in text:
            self._stroke(ord(character))

    def key(self, *names):
        """The last key while the others are held."""
        held = [self._desktop.key_code(SYMBOLS[name]) for name in names[:-1]]
        for code in held:
            Atspi.generate_keyboard_event(code, None, Atspi.KeySynthType.PRESS)
        self._stroke(SYMBOLS.get(names[-1]) or ord(names[-1]))
        for code in reversed(held):
            Atspi.generate_keyboard_event(code, None, Atspi.KeySynthType.RELEASE)

    def _stroke(self, symbol):
        self._desktop.focus_front_window()
        Atspi.generate_keyboard_event(symbol, None, Atspi.KeySynthType.SYM)
