#!/usr/bin/env python3
"""Runs the commands of ferncastle-play, on the sample and on generated sites, and compares what "check" says with what a
run does. Usage: commands_test.py PLAYER DATA_DIR [ROUNDS [FIRST_ROUND]]"""
import json, os, pty, random, re, shutil, subprocess, sys, tempfile
from pathlib import Path

player, data = sys.argv[1], Path(sys.argv[2])
rounds = int(sys.argv[3]) if len(sys.argv) > 3 else 25
first = int(sys.argv[4]) if len(sys.argv) > 4 else 1
share = data / "share"
manual = (share / "man/man1/ferncastle-play.1").read_text().replace("\\-", "-")
counts = ["pages_found", "pages_processed", "pages_added", "keywords_added", "media_files", "links_internal",
          "links_external", "links_broken", "links_media"]


def expect(holds, *said):
    if not holds:
        sys.exit("commands_test: " + "\n".join(map(str, said)))


def files_of(directory):
    return {str(one.relative_to(directory)): one.read_bytes() if one.is_file() else None
            for one in directory.rglob("*")}


def stamps_of(directory):
    return {one: (one.stat().st_ino, one.stat().st_mtime_ns) for one in directory.rglob("*") if one.is_file()}


def play(*arguments, user=None):
    return subprocess.run([player, *map(str, arguments)], capture_output=True, text=True, errors="replace", user=user)


# To root no directory is closed, so another user stands in where that user may start the player.
nobody = 65534 if os.geteuid() == 0 else None
try:
    canClose = play("--version", user=nobody).returncode == 0
except PermissionError:
    canClose = False


class Place:
    """A program directory, a site and a list of keywords."""

    def __init__(self, directory):
        self.program, self.words = directory / "it's a program", directory / "words"
        self.site = directory / "m\u00fd \u20acit\U0001f33f"  # letters of two, three and four bytes
        self.json = directory / "out.json"
        shutil.copytree(data, self.program)
        self.words.write_text("fern\nmoss garden\noak\nivy")
        self.user = None

    def options(self):
        return ["--program-dir", self.program, "--site", self.site, "--domain", "https://www.Own.example/",
                "--keywords", self.words, "--seed", 5]

    def close(self, directory):
        """Lets nobody write in a directory, not even this user."""
        self.user = nobody
        if nobody:
            for one in [self.json.parent, *self.json.parent.rglob("*")]:
                os.chown(one, nobody, nobody, follow_symlinks=False)
        directory.chmod(0o555)

    def command(self, name, *more):
        done = play(name, *self.options(), "--json", self.json, *more, user=self.user)
        said = json.loads(self.json.read_text())
        for field in list(said) + [one for row in said.values() if isinstance(row, list) and row for one in row[0]]:
            expect(re.search(rf"\b{field}\b", manual[manual.index("Fields of"):]), field, "is not in the manual page")
        return done, said


def test_options(place):
    shutil.copytree(data / "sample", place.site)
    wrong = [["--wrong"], ["--per-name", "x"], ["--per-name", "5"], ["--site", place.site / "none"], ["--name"],
             ["--keywords", "/nowhere"], ["--domain", "two words"], ["--project", "1"], ["--name", "a  # b"],
             ["--json", "/nowhere/x.json"], ["--json", place.site], ["--quiet=yes"], ["--program-dir", "/nowhere"],
             ["--program-dir", place.site]]
    for more in wrong:
        done = play("expand", *place.options(), *more)
        expect(done.returncode == 2 and done.stdout == "" and done.stderr.count("\n") == 1, more, done)
    expect("play check --help" in play("check", "--program-dir", place.program).stderr, "another command's usage")
    expect(not (place.program / "0001").exists(), "a wrong option leaves a project behind")
    for name in ["expand"], ["check"], []:
        expect("Exit status" in play(*name, "--help").stdout, name)


def test_script(place):
    done, said = place.command("expand", "--quiet")
    expect(done.returncode == 0 and done.stdout == done.stderr == "", done)
    expect(said["site"] == str(place.site), said["site"])
    made = files_of(place.program / "0001")
    expect(said["bytes_written"] == sum(map(len, filter(None, made.values()))), said["bytes_written"])
    expect(len(said["broken_links"]) == said["links_broken"] > 0 and len(said["external_links"]) > 0, said)
    for directory in "0001", "0001_store":
        shutil.move(place.program / directory, place.site.parent)
    script = place.program / "printed.play"
    script.write_text(play("expand", *place.options(), "--print-script").stdout)
    done = play("--program-dir", place.program, "--seed", 5, script)
    expect(done.returncode == 0 and files_of(place.program / "0001") == made, "the printed script plays another run", done)

    place.words.write_bytes(b"\xef\xbb\xbfbracken\r\nheath\r\nx")
    done, said = place.command("expand", "--project", "1", "--quillmark", "--json", place.json)
    added = set(files_of(place.program / "0001")) - set(made)
    expect(done.returncode == 0 and said["project"] == "0001" and said["keywords_added"] == 0, done)
    done = play("expand", "--program-dir", place.program, "--project", "0001", "--no-quillmark", "--per-name", "1")
    new = set(files_of(place.program / "0001")) - set(made) - added
    expect(done.returncode == 0 and {one.rsplit(".", 1)[0].split("-", 1)[1] for one in new} == {"bracken", "heath", "x"},
           "a saved project takes other keywords", done, new)
    # A store that was left behind gives its keywords to no new project of its number.
    shutil.rmtree(place.program / "0001")
    place.words.write_text("alder\nbirch\nelder")
    done, said = place.command("expand", "--per-name", "1")
    new = {one.rsplit(".", 1)[0].split("-", 1)[1] for one in files_of(place.program / "0001") if re.search(r"\b\d{6}-", one)}
    expect(said["project"] == "0001" and new == {"alder", "birch", "elder"}, done, new)


def test_findings(place):
    """Each page that would end a run is found once, also behind one at which a run would stand still."""
    place.site.mkdir()
    for name, page in ("a.htm", '<a href="c.htm">1</a> <a href=>'), ("b.htm", 'href="c.htm">2</a>'), ("c.htm", "3"):
        (place.site / name).write_text(page)
    done, said = place.command("check")
    errors = [os.path.basename(one["file"]) for one in said["findings"] if one["severity"] == "error"]
    expect(done.returncode == 1 and errors == ["a.htm", "b.htm"], said["findings"])


def test_keywords(place):
    place.site.mkdir()
    place.words.write_text("fern\na:b\n50%\nc%20d\nx#\nFern\nmoss garden")
    _, said = place.command("check")
    found = [(one["line"], re.search("already|file names|servers|digits|only up to", one["text"]).group())
             for one in said["findings"] if one["file"] == str(place.words)]
    expect(found == [(2, "file names"), (3, "servers"), (4, "digits"), (5, "only up to"), (6, "already")], said["findings"])
    place.words.write_text("fern\nFERN")
    check, said = place.command("check")
    expect(check.returncode == 1 and "keyword" in said["findings"][0]["text"], check)


def test_no_report(place):
    """A run that could not make its report says so as a failure, in words about the user's files."""
    shutil.copytree(data / "sample", place.site)
    for name in "0001.dom", "report.html":
        (place.program / "0001_store" / name).mkdir(parents=True)
        check, said = place.command("check")
        errors = [one["text"] for one in said["findings"] if one["severity"] == "error"]
        done, said = place.command("expand")
        expect(done.returncode == 3 and said["outcome"] == "failure" and name in said["reason"], done)
        expect(said["reason"] in done.stderr and "frm" not in done.stderr, done)
        expect(check.returncode == 1 and len(errors) == 1 and name in errors[0], check)
        shutil.rmtree(place.program / "0001_store")
        shutil.rmtree(place.program / "0001")
    place.words.write_text("\n".join(letter * 90 for letter in "abc"))
    check, said = place.command("check")
    done, counts = place.command("expand")
    note = re.search(r"the names of [0-9]+ new pages", done.stderr).group()
    expect(len([one for one in said["findings"] if note in one["text"]]) == 1, note, check)
    expect(counts["pages_added"] == said["pages_added"] == 0, said)


def test_progress(place):
    done = play("expand", *place.options())
    expect("27 of 27 pages" in done.stderr and "\r" not in done.stderr and "Report" in done.stdout, done)
    leader, follower = pty.openpty()
    done = subprocess.run([player, "expand", *map(str, place.options())], stdout=subprocess.DEVNULL, stderr=follower)
    os.close(follower)
    shown = ""
    try:
        while more := os.read(leader, 10000).decode():
            shown += more
    except OSError:  # the end of a terminal that nobody has open any more
        pass
    expect(done.returncode == 0 and shown.startswith("\r1 of 27 pages") and shown.count("\n") == 1, repr(shown))


def test_help(place):
    """The help pages, the manual page and the completions name the same commands and options."""
    shells = [share / "bash-completion/completions/ferncastle-play", share / "zsh/site-functions/_ferncastle-play"]
    pages = {name: play(*name.split(), "--help").stdout for name in ("expand", "check", "")}
    for name, page in pages.items():
        options = set(re.findall(r"--[a-z-]+", page))
        for text in [manual] + [shell.read_text() for shell in shells]:
            expect(all(option in text for option in options), name, [one for one in options if one not in text])
        words = subprocess.run(["bash", "-c", f'. "{shells[0]}"; COMP_WORDS=(ferncastle-play {name} --); '
            f'COMP_CWORD={len(name.split()) + 1}; _ferncastle_play; echo "${{COMPREPLY[@]}}"'],
            capture_output=True, text=True).stdout.split()
        expect(words and set(words) <= options and (name == "" or set(words) == options), name, words, options)
        expect(set(re.findall(r"ferncastle-play ([a-z]+)", page)) <= {"expand", "check"}, name)


def generate(site, seed):
    """A site with links of all kinds; about every third one has a page that ends the run."""
    rnd = random.Random(seed)
    folders = ["", "sub/", "sub/deep/", "Other/"]
    names = [rnd.choice(folders) + name for name in ["index.htm", "a.htm", "Bee.HTML", "c.html", "long-name.htm", "d.htm"]]
    odd = ["PIC.GIF", "SUB/film.avi", ".hidden", "sub/back\\slash.gif", "a#b/c.gif", "c#.gif", names[0].upper()]
    for name in (names + ["pic.gif", "sub/film.avi", "style.css", "Other/notes.txt"] + ["README", "sub/LICENSE"][:seed % 3]
                 + rnd.sample(odd, seed % 4)):
        (site / name).parent.mkdir(parents=True, exist_ok=True)
        (site / name).write_text("x" * rnd.randrange(2000))
    targets = [name.split("/")[-1] for name in names] + ["/" + name for name in names] + [
        "pic.gif", "/pic.gif", "none.htm", "../a.htm", "../../../up.htm", "./c.html", "sub/", "/sub", "#top", "a.htm?x=1#y",
        "http://other.com/x.htm", "mailto:me@other.com", "http://www.own.example/a.htm", "own.example/sub/c.html",
        "https://own.example/a.htm", "https://www.own.example/none.htm", "https://own.example.com/", "..", ".", "", "/"]
    forms = ['<a href="%s">', "<a href='%s'>", "<A HREF = \"%s\" >", "<a href=%s >", '<link rel="x"\n href="%s">', '<a href="%s>']
    for name in names:
        links = [rnd.choice(forms) % rnd.choice(targets) + "text\n" for _ in range(rnd.randrange(12))]
        if rnd.random() < 0.07:
            links.insert(rnd.randrange(len(links) + 1), rnd.choice(
                ['<a href="/%s" onclick="href=\'/%s\'">' % (names[0], names[1]), '<a href="x.htm"', "href=a.htm"]))
        if rnd.random() < 0.04:
            links.append("<a href=endless>")
        (site / name).write_text("<html>\n" + "".join(links))
    return rnd.choice([[], [], ["--no-filters"], ["--quillmark"], ["--per-name", "0"]])


def change(place, rnd):
    """Does to a new site what a user may have done to it since the last run. Returns the options of the next run."""
    new = place.program / "0001"
    pages, folders = sorted(new.rglob("*.htm*")), sorted(one for one in new.rglob("*") if one.is_dir())
    for page in rnd.sample(pages, min(len(pages), 4)):
        what = rnd.randrange(12)
        if what == 0:
            page.unlink()
            page.mkdir()
        elif what < 4:
            page.unlink()
        elif what < 8:
            page.write_text(page.read_text() + '<a href="/x.htm">' * what)
    (new / "mine.html").write_text('<a href="mine.html">')
    (new / "mine.bin").write_text("mine")
    if folders and rnd.random() < 0.3:
        shutil.rmtree(folders[0])
    elif folders and canClose and rnd.random() < 0.5:
        place.close(folders[0])
    if rnd.random() < 0.2:
        shutil.move(new, place.site.parent)
        return rnd.choice([[], ["--project", "1"]])
    return ["--project", rnd.choice(["1", "0001"])] + rnd.choice([[], ["--seed", "6"], ["--per-name", "1"]])


def test_agreement(place, seed):
    """Returns how the first run ended, and how a second one into the same project."""
    more = generate(place.site, seed)
    if seed % 10 == 0:
        place.words.write_text("fern\nferns\nFERN\na:b")
    ends = [compare(place, seed, more)]
    if ends[0] != "refused":
        ends.append("again: " + compare(place, seed, change(place, random.Random(seed)) + more))
    return ends


def compare(place, seed, more):
    place.json.unlink(missing_ok=True)
    before = files_of(place.program), files_of(place.site)
    check, said = place.command("check", *more)
    expect((files_of(place.program), files_of(place.site)) == before, "check leaves traces")
    errors = [one for one in said["findings"] if one["severity"] == "error"]
    expect(check.returncode == (1 if errors else 0), check)
    twice = [one for one in said["findings"] for two in errors
             if one is not two and one["file"] == two["file"] and two["text"].endswith(one["text"])]
    expect(not twice, twice, check)
    place.json.unlink()
    there = stamps_of(place.program / "0001")
    run = play("expand", *place.options(), "--json", place.json, *more, user=place.user)
    if not place.json.exists():
        expect(run.returncode == 2 and errors and errors[0]["file"] == str(place.words), seed, check, run)
        return "refused"
    done = json.loads(place.json.read_text())
    if errors:
        page = os.path.basename(errors[0]["file"])
        expect(run.returncode in (3, 4) and page in done["reason"], seed, check, done)
        return done["outcome"]
    made = stamps_of(place.program / "0001")
    written = [one for one in made if there.get(one) != made[one]]
    expect(run.returncode == 0, seed, check, run)
    expect([said[one] for one in counts] == [done[one] for one in counts], seed, said, done)
    old = len([one for one in written if one in there])
    expect([said[one] for one in ("bytes", "files", "files_replaced", "files_kept")] ==
           [done["bytes_written"], len(written), old, len(made) - len(written)], seed, more, said, done)
    stuck = {one["file"] for one in said["findings"] if "can't be copied" in one["text"]}
    shut = {one["file"] for one in said["findings"] if "may not write" in one["text"]}
    boxes = [[line.replace("\\", "/")[2:] for line in one["text"].split("\r\n")[1:4:2]]
             for one in done["boxes"] if one["text"].startswith("Unable")]
    expect({one.split("/")[-1] for one in stuck} ==
           {source.split("/")[-1] for source, target in boxes if os.path.dirname(target) not in shut}, seed, stuck, boxes)
    # Each file of the site has a copy, but for its case, or is told of; so is each twin of a file that has the copy.
    named = {one["file"] for one in said["findings"]} - {str(place.site)}
    free = {str(one.relative_to(place.program / "0001")).lower() for one in made}
    for one in sorted(one for one in place.site.rglob("*") if one.is_file()):
        copy = str(one.relative_to(place.site))
        known = named & {str(part / end) for part in (place.site, place.program / "0001")
                         for end in [Path(copy), *Path(copy).parents]}
        expect(known or copy.lower() in free, seed, f"{one} is left out unnoticed", said["findings"])
        free.discard(copy.lower())
    own = {one["file"] for one in said["findings"] if "https" in one["text"]}
    # Whether a value without an end can be read depends on what follows its tag.
    sure, possible = ({one["page"] for one in done["broken_links"] if re.search(r"https://(www\.)?own\.example/", one[part])}
                      for part in ("link", "tag"))
    expect(sure <= own <= possible, seed, sure, own, possible)
    return "report"


with tempfile.TemporaryDirectory() as one:
    sample = Place(Path(one))
    for test in test_options, test_script, test_progress, test_help:
        test(sample)
for test in test_findings, test_keywords, test_no_report:
    with tempfile.TemporaryDirectory() as one:
        test(Place(Path(one)))
ends = []
for number in range(first, first + rounds):
    with tempfile.TemporaryDirectory() as one:
        ends += test_agreement(Place(Path(one)), number)
print("commands_test: check and run agree on", rounds, "sites:",
      ", ".join(f"{end} {ends.count(end)}" for end in sorted(set(ends))))
