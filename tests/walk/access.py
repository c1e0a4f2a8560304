"""Checks a window against docs/accessibility.md: names and roles, the Tab order in both directions,
a visible focus, contrast of text."""

import time

from person import *  # noqa: F403
from pixels import contrast_of_text, grab, picture_of

TAKES_FOCUS = {
    "push button",
    "text",
    "tree",
    "check box",
    "combo box",
    "scroll bar",
    "slider",
}  # roles that a user acts on
least = 4.5  # contrast of text, by the Web Content Accessibility Guidelines 2.1, level AA
lowest = []


def has(node, state):
    node.clear_cache()
    return node.get_state_set().contains(state)


def all_showing(node):
    for child in children(node):
        if showing(child):
            yield child
            if child.get_role_name() not in ("tree", "combo box", "menu bar"):
                yield from all_showing(child)


def what_is_told_of(form, node):
    return [
        name for name, (_, role, title) in told[form].controls.items() if is_that(node, role, title)
    ]


def check_names(form):
    """Checks that the page lists every control that the user can act on. The scroll bars inside a
    text have no name and need none. A label counts as focusable if the mouse can select its
    text."""
    seen = set()
    for node in all_showing(window_of(form)):
        names = what_is_told_of(form, node)
        seen.update(names)
        acts = (
            has(node, Atspi.StateType.FOCUSABLE)
            and node.get_role_name() != "label"
            or node.get_role_name() in TAKES_FOCUS
        )
        inner = node.get_role_name() == "scroll bar" and node.get_name() == ""
        if acts and not inner and not names:
            fail(
                f'{form} has a {node.get_role_name()} "{name_of(node)}" that docs/accessibility.md doesn\'t know'
            )
        if (
            node.get_description() in told[form].controls
            and node.get_description() != node.get_name()
        ):
            fail(f"a screen reader would say {node.get_description()} in {form}")
    return seen


def check_room(form):
    """Checks that all of each control is within its window, and all of the window on the screen."""
    window = window_of(form)
    left, top, width, height = desk.box_of(window)
    screen_width, screen_height = map(int, screen.partition("@")[0].split("x"))
    slack = round(scale)  # a pixel of the layout
    right, bottom = left + width - slack, top + height - slack
    if min(left, top) < 0 or right > screen_width or bottom > screen_height:
        fail(f"{form} doesn't fit the screen: {left}, {top}, {width} x {height}")
    for node in all_showing(window):
        x, y, wide, high = desk.box_of(node)
        names = set(what_is_told_of(form, node)) - {"Picture2"}  # a map, larger than its window
        if names and not (
            left - slack <= x
            and top - slack <= y
            and x + wide <= left + width + slack
            and y + high <= top + height + slack
            and min(wide, high) > 4
        ):
            fail(f"{form} cuts off {names}: {x}, {y}, {wide} x {high}")


def focused(form):
    """The control with the focus. A box around buttons reports the focus of its first button,
    although it isn't focusable itself."""
    return search(
        window_of(form),
        lambda node: has(node, Atspi.StateType.FOCUSED)
        and has(node, Atspi.StateType.FOCUSABLE)
        and node.get_role_name() not in ("tree item", "table cell", "list item", "menu item"),
    )


def focus_name(form):
    names = what_is_told_of(
        form, wait(lambda: focused(form), f"a control of {form} with the focus")
    )
    return names[0] if names else "?"


def order_told(form):
    stops = sorted((tab, name) for name, (tab, _, _) in told[form].controls.items() if tab)
    return [
        name
        for _, name in stops
        if (node := control(form, name, True)) and has(node, Atspi.StateType.ENABLED)
    ]


def is_seen(node, without):
    """Whether the control looks different now. Varying delays catch a blinking caret."""
    for look in range(12):
        if picture_of(user.name, *desk.box_of(node)) != without:
            return True
        time.sleep(0.05 * look)
    return False


def check_tab(form, ends_at, begins_at):
    order = order_told(form)
    if begins_at:
        turn = order.index(begins_at)
        order = order[turn:] + order[:turn]
    first = focus_name(form)
    if first != order[0]:
        fail(f"{form} begins at {first}, not at {order[0]}")
    pictures_without = {
        name: picture_of(user.name, *desk.box_of(control(form, name))) for name in order[1:]
    }
    for name in order[1:]:
        keys("Tab")
        if focus_name(form) != name:
            fail(f"{form}: Tab leads to {focus_name(form)}, not to {name}")
        if form != "frmMap" and not is_seen(control(form, name), pictures_without[name]):
            fail(f"{form}: nobody sees that {name} has the focus")
    if ends_at != order[-1]:
        keys("Tab")
    if len(order) > 1 and ends_at is None:
        if focus_name(form) != order[0]:
            fail(f"{form}: Tab doesn't come back to {order[0]}")
        keys("shift+Tab")
        if focus_name(form) != order[-1]:
            fail(f"{form}: Shift+Tab doesn't go back to {order[-1]}")
        keys("Tab")
    return order


def check_contrast(form):
    """Checks all enabled labels, buttons and menus, and the lines of texts and trees."""
    for node in list(all_showing(window_of(form))):
        role, (x, y, width, height) = node.get_role_name(), desk.box_of(node)
        bears_text = role in (
            "label",
            "push button",
            "text",
            "tree",
            "check box",
            "combo box",
            "menu bar",
        )
        if not bears_text or width < 8 or height < 8 or not has(node, Atspi.StateType.ENABLED):
            continue
        if (
            form == "frmSplash"
            or role == "push button"
            and (node.get_name().startswith("Click here") or form == "frmVideo")
        ):
            continue  # painted
        if role == "check box":
            width += 4 * height  # its text is beside the box that is told
        if role in ("text", "label") and Atspi.Text.get_character_count(node) == 0:
            continue
        ratio = contrast_of_text(grab(user.name, x + 2, y + 2, width - 4, height - 4))
        if ratio is not None:
            lowest.append((ratio, f"{form}, {role} {name_of(node)!r}"))
            if ratio < least:
                fail(f'{form}: {role} "{name_of(node)}" stands at {ratio:.1f}:1 against its ground')


def check(form, ends_at=None, begins_at=None):
    """Checks the window and moves through it by Tab. The focus begins at the first control in the
    order, or at `begins_at`; with `ends_at` it doesn't return to the first control. Returns the
    names of the controls that the window shows."""
    wait(lambda: is_active(form), form)
    time.sleep(0.6)
    seen = check_names(form)
    check_room(form)
    if "@" in screen:
        shot(f"access-{form}")
    order = (
        check_tab(form, ends_at, begins_at)
        if any(tab for tab, _, _ in told[form].controls.values())
        else []
    )
    check_contrast(form)
    expect(True, f"{form}: {len(seen)} controls with names, by Tab: {' '.join(order) or 'none'}")
    return seen


def check_all(form, seen):
    missing = set(told[form].controls) - seen
    if missing:
        fail(f"{form} never showed {' '.join(sorted(missing))}")
