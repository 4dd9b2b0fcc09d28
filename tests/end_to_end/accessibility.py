"""Uses the editor through the accessibility bus. Argument: a file to edit, which is changed."""

import pathlib
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

# Far longer than anything takes on the busiest machine.
PATIENCE = 300

Role = Atspi.Role
NAMED = {
    Role.PUSH_BUTTON, Role.TOGGLE_BUTTON, Role.CHECK_BOX, Role.RADIO_BUTTON, Role.COMBO_BOX,
    Role.TEXT, Role.ENTRY, Role.PASSWORD_TEXT, Role.SPIN_BUTTON, Role.SLIDER, Role.LIST, Role.TREE,
    Role.TREE_TABLE, Role.TABLE, Role.TREE_ITEM, Role.LIST_ITEM, Role.MENU, Role.MENU_ITEM,
    Role.CHECK_MENU_ITEM, Role.PAGE_TAB, Role.DIALOG, Role.ALERT, Role.PROGRESS_BAR,
    Role.DOCUMENT_WEB, Role.BUTTON_MENU if hasattr(Role, "BUTTON_MENU") else Role.PUSH_BUTTON_MENU,
}


def quietly(ask, otherwise=None):
    """What goes away while it is asked about has nothing to say."""
    try:
        return ask()
    except GLib.Error:
        return otherwise


def until(what, condition, say=lambda: outline(editor())):
    """What a condition gives as soon as that is anything; ends the test when it never does."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        found = quietly(condition)
        if found:
            return found
        time.sleep(0.05)
    raise SystemExit(f"FAILED: {what}\n{say()}")


def children(node):
    # A program that is busy is not to be seen.
    count = quietly(node.get_child_count, 0) if node is not None else 0
    # Of a long list its beginning says enough.
    for at in range(min(count, 200)):
        child = quietly(lambda at=at: node.get_child_at_index(at))
        if child is not None:
            yield child


def everything(node):
    yield node
    for child in children(node):
        yield from everything(child)


def has(node, state):
    return quietly(lambda: node.get_state_set().contains(state), False)


def outline(node, depth=0):
    if node is None:
        return "no program"
    text = quietly(lambda: f"{'  ' * depth}{node.get_role_name()} {node.get_name()!r}\n", "")
    return text + "".join(outline(child, depth + 1) for child in children(node))


def editor():
    desktop = Atspi.get_desktop(0)
    for program in children(desktop):
        if quietly(program.get_name) == "quillon":
            return program
    return None


def windows():
    return [w for w in children(editor()) if has(w, Atspi.StateType.SHOWING)]


def find(name, *roles, within=None, showing=True):
    """The first that has a name and one of the roles."""
    for root in [within] if within else windows():
        for node in everything(root):
            if quietly(node.get_name, "") == name and quietly(node.get_role) in roles:
                if not showing or has(node, Atspi.StateType.SHOWING):
                    return node
    return None


def with_role(within, role):
    return next((node for node in everything(within) if quietly(node.get_role) == role), None)


def press(node):
    actions = until(
        "something can be pressed",
        lambda: [node.get_action_name(at) for at in range(node.get_n_actions())],
    )
    known = [name for name in ("Press", "ShowMenu", "Toggle") if name in actions]
    if not known:
        raise SystemExit(f"FAILED: {node.get_name()} cannot be pressed: {actions}")
    # What opens a box answers when that is closed, which is not waited for.
    quietly(lambda: node.do_action(actions.index(known[0])))


def command(menu, name):
    """Opens a menu, which brings its entries up to date, and presses one that applies."""
    bar = until(f"there is {menu}", lambda: find(menu, Role.MENU_ITEM, showing=False))
    press(bar)
    entry = until(
        f"{name} applies",
        lambda: enabled(find(name, Role.MENU_ITEM, Role.CHECK_MENU_ITEM, within=bar)),
    )
    press(bar)
    until(f"{menu} is closed", lambda: not has(entry, Atspi.StateType.SHOWING))
    press(entry)


def enabled(node):
    return node if node is not None and has(node, Atspi.StateType.ENABLED) else None


def dialog(title):
    """A box that has opened, in which every control is named."""
    box = until(f"{title} opens", lambda: find(title, Role.DIALOG, Role.ALERT))
    check_names(title)
    return box


def press_button(box, name):
    press(until(f"{name} can be pressed", lambda: enabled(find(name, Role.PUSH_BUTTON, within=box))))
    until("the box closes", lambda: not has(box, Atspi.StateType.SHOWING))


def write(field, text):
    until(f"a field takes {text}", lambda: field.set_text_contents(text))


def text_of(node):
    return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))


def name_of(node):
    """Also that of what a part belongs to: the field of a combo box, the page of the preview."""
    if node.get_name() or node.get_role() not in (Role.TEXT, Role.DOCUMENT_WEB):
        return node.get_name()
    return node.get_parent().get_name()


def way_to(node):
    way = []
    while node is not None and len(way) < 6:
        way.append(f"{quietly(node.get_role_name)} {quietly(node.get_name)!r}")
        node = quietly(node.get_parent)
    return " in ".join(way)


def nameless():
    return [
        way_to(node)
        for window in windows()
        for node in everything(window)
        if quietly(node.get_role) in NAMED
        and has(node, Atspi.StateType.SHOWING)
        and not quietly(lambda: name_of(node), "gone")
    ]


def check_names(place):
    found = []

    def all_named():
        found[:] = nameless()
        return windows() and not found

    until(f"everything has a name, {place}", all_named, lambda: "\n".join(found))


def status():
    bar = with_role(editor(), Role.STATUS_BAR)
    return " ".join(quietly(node.get_name, "") for node in everything(bar))


def selected(tree):
    return [node.get_name() for node in children(tree) if has(node, Atspi.StateType.SELECTED)]


def choose(title, path):
    box = dialog(title)
    write(until("a name can be given", lambda: find("ファイル名(N):", Role.TEXT, within=box)), str(path))
    press_button(box, "開く(O)")


def search(text):
    command("編集(E)", "検索(F)...")
    box = until("a text is asked for", lambda: find("Quillon XML Editor", Role.DIALOG))
    check_names("検索")
    write(until("a text can be given", lambda: with_role(box, Role.TEXT)), text)
    press_button(box, "OK")


def main(path):
    Atspi.init()
    # A box that is modal keeps the program from answering what has opened it.
    Atspi.set_timeout(1000, 30000)
    until("the program is there", lambda: editor() and windows())
    tree = until("there is a tree", lambda: find("ドキュメント ツリー", Role.TREE))
    check_names("at first")

    command("ファイル(F)", "開く(O)...")
    choose("開く", path)
    until("the file is open", lambda: find(f"{path.name} - Quillon XML Editor", Role.FRAME))
    pane = until("there is a pane", lambda: find("編集ペイン", Role.TEXT))
    check_names("with a document")
    search("古い")
    until("it is selected", lambda: selected(tree) == ["古い"])
    until("the pane shows it", lambda: text_of(pane) == "古い")
    write(pane, "新しい")
    until("the tree follows", lambda: selected(tree) == ["新しい"])
    command("編集(E)", "元に戻す(U)")
    until("it is undone", lambda: "古い" in text_of(pane))
    command("編集(E)", "やり直す(R)")
    until("it is done again", lambda: "新しい" in text_of(pane))

    command("ツール(T)", "検証(V)")
    choose("検証用ファイルの選択", path.with_suffix(".dtd"))
    until("the document is valid", lambda: "検証が正常に終了しました" in status())

    command("ファイル(F)", "保存(S)")
    until("it is saved", lambda: find(f"{path.name} - Quillon XML Editor", Role.FRAME))
    command("表示(V)", "候補パネル(D)")
    command("表示(V)", "検索結果パネル(P)")
    command("編集(E)", "検索と置換(H)...")
    dialog("検索と置換")
    check_names("with all panels")


main(pathlib.Path(sys.argv[1]))
