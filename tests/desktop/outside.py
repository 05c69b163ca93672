"""Drives the whole program from outside through accessibility, as a screen reader does: it knows only accessible names
and roles. Then it checks the files on the disk. outside.sh starts it with the program's directory."""
import os
import re
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

Role, State = Atspi.Role, Atspi.StateType
BUTTON, CHECK, TEXT, LIST, ROW, LABEL, COMBO, MENU, PAGE = (
    Role.PUSH_BUTTON, Role.CHECK_BOX, Role.TEXT, Role.LIST, Role.LIST_ITEM, Role.LABEL, Role.COMBO_BOX, Role.MENU_ITEM,
    Role.DOCUMENT_WEB)
NAMED = (Role.FRAME, Role.DIALOG, Role.ALERT, BUTTON, CHECK, TEXT, LIST, ROW, COMBO, MENU, PAGE)
ENTER, ESCAPE = 0xFF0D, 0xFF1B
LIMIT = 30  # seconds; a reply takes less than one unless the machine is busy

directory = sys.argv[1]
announced = []  # the controls that were announced as having the focus, with their roles


class Wrong(Exception):
    """A fault of the program."""


class Absent(Exception):
    """A control is not showing, or not any more."""


def until(what, test):
    """Waits until test() returns a true value, and returns it."""
    end = time.monotonic() + LIMIT
    while True:
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            if result := test():
                return result
        except (Absent, GLib.Error):
            pass
        if program.poll() is not None:
            raise Wrong(f"the program ended with status {program.returncode}; there was no {what}")
        if time.monotonic() > end:
            raise Wrong(f"after {LIMIT} s there was no {what}, but: {told()}")
        time.sleep(0.02)


def has(node, *states):
    return all(node.get_state_set().contains(state) for state in states)


def children(node):
    return [child for i in range(node.get_child_count()) if (child := node.get_child_at_index(i))]


def window():
    """The window in front."""
    for app in children(Atspi.get_desktop(0)):
        if app.get_process_id() == program.pid:
            for top in reversed(children(app)):
                if has(top, State.SHOWING):
                    return top
    raise Absent


def showing(node=None):
    """All that shows in the window in front, except the contents of a browser page."""
    yield (node := node or window())
    for child in children(node) if node.get_role() != PAGE else []:
        if has(child, State.SHOWING):
            yield from showing(child)


def told():
    """What a screen reader would read out now, for error messages."""
    try:
        return "; ".join(
            f"{node.get_role().value_nick} '{node.get_name()[:50]}'{' in focus' if has(node, State.FOCUSED) else ''}"
            for node in showing() if node.get_name())
    except (Absent, GLib.Error):
        return "nothing that stays"


def seek(role, name):
    """The first control of that role and name that shows now. The name is a pattern."""
    for node in showing():
        if node.get_role() == role and re.fullmatch(name, node.get_name(), re.DOTALL):
            return node
    raise Absent


def find(role, name):
    return until(f"{role.value_nick} '{name}'", lambda: seek(role, name))


def text_of(name):
    return Atspi.Text.get_text(seek(TEXT, name), 0, -1)


def rows_of(name, *states):
    return [row.get_name() for row in children(seek(LIST, name)) if has(row, *states)]


def is_ticked(name):
    return has(seek(CHECK, name), State.CHECKED)


def expect(what, look, wanted):
    until(f"{what} {wanted!r}", lambda: look() == wanted)


def act(role, name):
    control = find(role, name)
    try:
        if not Atspi.Action.do_action(control, 0):
            raise Wrong(f"{role.value_nick} '{name}' has no action")
    except GLib.Error as error:
        raise Wrong(f"{role.value_nick} '{name}' keeps who acts on it waiting: {error.message}") from error


def press(name):
    act(BUTTON, name)


def fill(name, text):
    """Sets the whole text at once, as dictation does."""
    if not Atspi.EditableText.set_text_contents(find(TEXT, name), text):
        raise Wrong(f"text '{name}' can't be filled in")


def write(text):
    """Types a text on the keyboard, for whatever has the focus."""
    Atspi.generate_keyboard_event(0, text, Atspi.KeySynthType.STRING)


def strike(key):
    Atspi.generate_keyboard_event(key, None, Atspi.KeySynthType.SYM)


def on_focus(event):
    if event.detail1:
        try:
            announced.append((event.source, event.source.get_role()))
        except GLib.Error:
            announced.append((event.source, Role.INVALID))


def focus(role, name):
    """Waits until the control has the focus and it, or a row in it, has been announced to screen readers."""
    def is_there():
        node = seek(role, name)
        return has(node, State.FOCUSED) and announced and node in (announced[-1][0], announced[-1][0].get_parent())
    until(f"focus on {role.value_nick} '{name}', told to screen readers", is_there)


def all_told(title):
    """Checks that each control has a name and a role that screen readers know."""
    def faults():
        for node in showing():
            role, name = node.get_role(), node.get_name()
            # The text of a box can be selected and so takes the focus; the view of a page passes it on.
            is_known = role in NAMED + (LABEL,) or PAGE in [child.get_role() for child in children(node)]
            if role in NAMED and not name.strip() or has(node, State.FOCUSABLE) and not is_known:
                yield f"{role.value_nick} '{name}' below {node.get_parent().get_role().value_nick}"
    if bad := until(f"answer from '{title}'", lambda: [list(faults())])[0]:
        raise Wrong(f"on '{title}' screen readers can't tell what these are: {', '.join(bad)}")
    print(f"{time.monotonic() - begun:5.1f} s  {title}")


def screen(title, role, name, *others):
    """Waits for a screen: its window is active, the first control has the focus, and the others are showing."""
    find(LABEL, title)
    until(f"active window with '{title}'", lambda: has(seek(Role.FRAME, ".+"), State.ACTIVE))
    focus(role, name)
    for other in others:
        find(*other)
    all_told(title)


def create_project():
    find(LABEL, "Version .*")
    hide = "Don't show this Welcome Screen in the future"
    screen("Welcome", BUTTON, "Next", (CHECK, hide), (BUTTON, "Help: Ferncastle"))
    expect("tick at the start", lambda: is_ticked(hide), False)
    press("Next")
    screen("Main Menu", BUTTON, "Start Ferncastle", (BUTTON, "FAQ"), (BUTTON, "Support"))
    press("Start Ferncastle")
    screen("Load or Create Menu", BUTTON, "Create a new project", (BUTTON, "Load an existing project"))
    press("Create a new project")

    domain = "Your site's domain name"
    screen("Create a New Project", TEXT, "Name your project", (TEXT, domain), (BUTTON, "Back"))
    # The help box opens when an entry is missing, and for a topic. The focus then moves to its text, and back when it
    # closes. While it is closed, none of its controls must be showing.
    write("Fern and Friends")
    expect("name", lambda: text_of("Name your project"), "Fern and Friends")
    for button, words in ("Next", "you must enter a domain name"), ("Help: Domain Name", "spelled correctly"):
        until("help box that is in", lambda: not {"Help text", "Close help"} & {node.get_name() for node in showing()})
        press(button)
        focus(TEXT, "Help text")
        until(f"help '{words}'", lambda: words in text_of("Help text"))
        all_told(f"Help of {button}")
        strike(ESCAPE)
        focus(BUTTON, button)
    fill(domain, "http://www.fernandfriends.example/")
    press("Next")


def choose_site():
    site = "Directory of your site"
    screen("Choose the location of your site", LIST, site)
    drive = find(COMBO, ".*")
    until("word of what the drive is for", lambda: "Drive of your site" in (drive.get_name(), drive.get_description()))
    # The entries of the previous screen must have reached the program.
    expect("domain", lambda: text_of("Your domain name"), "fernandfriends.example")
    write("s")
    expect("directory", lambda: rows_of(site, State.SELECTED), ["sample"])
    strike(ENTER)
    until("directories of the site", lambda: "downloads" in rows_of(site))
    expect("directory", lambda: rows_of(site, State.SELECTED), ["sample"])
    press("Next")


def choose_keywords():
    words = "Master Keyword List"
    screen("Keywords", TEXT, "Keyword", (LIST, words), (BUTTON, "Add Keyword"), (BUTTON, "Clear All"))
    write("bracken")
    expect("keyword", lambda: text_of("Keyword"), "bracken")
    strike(ENTER)
    expect("keywords", lambda: rows_of(words), ["bracken"])
    fill("Keyword", "heather")
    press("Add Keyword")
    expect("keywords", lambda: rows_of(words), ["bracken", "heather"])
    for chosen, left in ("heather", ["bracken"]), ("bracken", []):
        act(ROW, chosen)
        press("Remove")
        find(TEXT, f"Remove the following Keyword:.*{chosen}")
        press("Yes")
        expect("keywords", lambda: rows_of(words), left)
    press("Load")
    file = os.path.join(directory, "sample-keywords.txt")
    fill("File name:", file)
    press("Open")
    wanted = open(file, encoding="ascii").read().split()
    expect("keywords", lambda: rows_of(words), wanted)
    press("Next")
    screen("Keywords Per Filename", TEXT, "Number of keywords per file name")
    expect("number", lambda: text_of("Number of keywords per file name"), "3")
    press("Next")
    return wanted


def expand():
    quillmark = "I am using Quillmark"
    # Ticks the box, leaves and comes back: the box must show what the program has stored. Then unticks it again.
    for was_ticked in False, True:
        screen("Using Quillmark", CHECK, quillmark)
        expect("tick on coming", lambda: is_ticked(quillmark), was_ticked)
        act(CHECK, quillmark)
        expect("tick on leaving", lambda: is_ticked(quillmark), not was_ticked)
        press("Next")
        screen("Confirm your information", BUTTON, "Expand my site", (LIST, "Your Master Keyword List"))
        press("Expand my site" if was_ticked else "Back")
    screen("Go Ahead and Expand the Site", BUTTON, "Expand the site", (LABEL, r".*\\0001\\"))
    announced.clear()
    press("Expand the site")


def read_report():
    title = "Expansion report: Fern and Friends"
    page = find(PAGE, title)
    # The run uses a hidden list to walk through the directories; its rows must not be announced.
    if any(role == ROW for _, role in announced):
        raise Wrong("while the site was expanded screen readers were told of rows in a hidden list")
    until("active window of the report", lambda: has(seek(Role.FRAME, title), State.ACTIVE))
    until("focus on the page", lambda: has(page, State.FOCUSED))
    until("address of the report", lambda: text_of("Address").endswith(r"\0001_store\report.html"))
    all_told(title)

    def numbers(node):
        names = [child.get_name() for child in children(node)]
        if node.get_role() == Role.TABLE_ROW and len(names) > 1:
            yield names[0], names[1]
        for child in children(node):
            yield from numbers(child)
    return until("table of numbers", lambda: (told := dict(numbers(page))).get("Media links") and told)


def leave():
    for answer in "No", "Yes":
        # The call must return before the question is answered.
        act(MENU, "Close Report")
        find(TEXT, "Are you sure you want to exit.")
        until("focus on No", lambda: has(seek(BUTTON, "No"), State.FOCUSED))
        press(answer)
        if answer == "No":
            find(MENU, "View Report")
    if status := program.wait(LIMIT):
        raise Wrong(f"the program ended with status {status}")


def look_at_disk(keywords, told):
    def files(place):
        return {os.path.relpath(os.path.join(path, name), place) for path, _, names in os.walk(place) for name in names}

    def same(what, found, wanted):
        if found != wanted:
            raise Wrong(f"{what}: {found}, not {wanted}")

    old, new = files(os.path.join(directory, "sample")), files(os.path.join(directory, "0001"))
    added = [re.fullmatch(r"\d{6}-(\w+)-(\w+)-(\w+)\.html?", os.path.basename(name)) for name in new - old]
    same("files of the site that the new one lacks", old - new, set())
    same("words of new names", {word for name in added for word in (name.groups() if name else [""])}, set(keywords))
    report = open(os.path.join(directory, "0001_store", "report.html"), encoding="utf-8").read()
    pages = sum(name.endswith((".htm", ".html")) for name in old)
    for what, number in ("Files processed", pages), ("Pages added", len(added)), ("Broken links", 5):
        same(what + ", as the report tells", told.get(what), str(number))
        same(what + ", as it is on the disk", re.findall(what + r"</th><td[^>]*>(\d+)<", report), [str(number)])
    same("pages of the site and new pages", (pages, len(added)), (27, 372))


Atspi.init()
Atspi.set_timeout(5000, 15000)
# Without a cache, so that each query returns the current state.
Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)
listener = Atspi.EventListener.new(on_focus)
listener.register("object:state-changed:focused")
begun = time.monotonic()
program = subprocess.Popen([os.path.join(directory, "ferncastle")])
try:
    create_project()
    choose_site()
    sample_keywords = choose_keywords()
    expand()
    report_told = read_report()
    leave()
    look_at_disk(sample_keywords, report_told)
    print(f"{time.monotonic() - begun:5.1f} s  all is well")
except (Wrong, GLib.Error, subprocess.TimeoutExpired) as error:
    sys.exit(f"outside.py: {error}")
finally:
    program.poll() is None and program.kill()
