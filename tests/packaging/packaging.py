#!/usr/bin/env python3
"""Checks of what is installed beside the programs: packaging.py PART SOURCE_FOLDER BUILD_FOLDER"""
import html.parser
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

part, source, build = sys.argv[1], Path(sys.argv[2]), Path(sys.argv[3])
packaging = source / "packaging"


def run(*command, **options):
    """Runs a command that must succeed and returns what it printed."""
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          check=False, **options)
    if done.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))}: status {done.returncode}\n{done.stdout}")
    return done.stdout


def expect(condition, what):
    if not condition:
        sys.exit(what)


def desktop_entry():
    output = run("desktop-file-validate", packaging / "strativo.desktop")
    expect(output.strip() == "", output)


def metainfo():
    run("appstreamcli", "validate", "--no-net", packaging / "strativo.metainfo.xml")


def file_types():
    """The types are known from the name and, for construction files, from the content."""
    with tempfile.TemporaryDirectory() as folder:
        packages = Path(folder) / "mime" / "packages"
        packages.mkdir(parents=True)
        shutil.copy(packaging / "mime" / "strativo.xml", packages)
        run("update-mime-database", packages.parent)
        globs = (packages.parent / "globs2").read_text()
        magic = (packages.parent / "magic").read_bytes()
    expect("40:application/x-strativo-construction:*.con" in globs, globs)
    expect("40:application/x-strativo-material-library:*.lby" in globs, globs)
    expect(b"!CONSTRUCTION '" in magic, "construction files are not known from their content")


def man_pages():
    for page in sorted((packaging / "man").iterdir()):
        output = run("mandoc", "-T", "lint", "-W", "warning", page)
        expect(output == "", output)
        run("mandoc", "-T", "utf8", page)


def completions():
    folder = packaging / "completions"
    script = (f'source "{folder}/strativo-cli.bash"; COMP_WORDS=(strativo-cli ch); COMP_CWORD=1; '
              '_strativo_cli; echo "${COMPREPLY[@]}"')
    expect(run("bash", "-c", script).split() == ["check"], "bash completes ch to check")
    script = (f'source "{folder}/strativo-cli.bash"; cd "{folder.parent}/../data"; '
              'COMP_WORDS=(strativo-cli build str); COMP_CWORD=2; _strativo_cli; '
              'echo "${COMPREPLY[@]}"; COMP_WORDS=(strativo-cli export --first-layer i); '
              'COMP_CWORD=3; _strativo_cli; echo "${COMPREPLY[@]}"')
    expect(run("bash", "-c", script).split() == ["strativo.schema.json", "inside"],
           "bash completes files and sides")
    script = (f'shopt -u extglob; source "{folder}/strativo-cli.bash"; '
              f'cd "{folder.parent}/../data/examples"; COMP_WORDS=(strativo-cli check ""); '
              'COMP_CWORD=2; _strativo_cli; echo "${COMPREPLY[@]}"')
    expect(sorted(run("bash", "-c", script).split()) == ["house.con", "user.lby"],
           "bash completes construction files and libraries, also without extended patterns")
    run("zsh", "-f", "-c", f'fpath=("{folder}" $fpath); autoload -Uz compinit && '
        f'compinit -u -d "{tempfile.gettempdir()}/zcompdump-strativo" && '
        '[[ ${_comps[strativo-cli]} == _strativo-cli ]] && autoload +X _strativo-cli')
    lines = run("fish", "--no-config", "-c",
                f'source "{folder}/strativo-cli.fish"; complete -C "strativo-cli ch"')
    expect(any(line.split("\t")[0] == "check" for line in lines.splitlines()), lines)


def names_of_options(help_text):
    """Of each option all names: ("-n", "--dry-run")."""
    rows = re.findall(r"^  ((?:-\w,)?--[\w-]+)", help_text, re.M)
    return [row.split(",") for row in rows]


def names_of_rules():
    names = re.findall(r'{"([a-z-]+)", Severity::', (source / "src/files/Finding.cpp").read_text())
    expect(len(names) > 30, f"rules of findings: {names}")
    return names


def completed(shell, line):
    """What the shell offers for the last word of the line."""
    folder = packaging / "completions"
    if shell == "fish":
        script = f'source "{folder}/strativo-cli.fish"; complete -C "{line}"'
        return {row.split("\t")[0] for row in
                run("fish", "--no-config", "-c", script).splitlines()}
    script = (f'source "{folder}/strativo-cli.bash"; COMP_WORDS=({line}); '
              '((COMP_CWORD = ${#COMP_WORDS[@]} - 1)); _strativo_cli; '
              'printf "%s\\n" "${COMPREPLY[@]}"')
    return set(run("bash", "-c", script).splitlines())


def complete_descriptions():
    """Completions, man page and manual know every command, option and rule of the program."""
    tool = build / "bin" / "strativo-cli"
    general = run(tool, "--help")
    commands = re.findall(r"^  ([a-z-]+) [A-Z]", general.split("\nOptions")[0], re.M)
    options = names_of_options(general)
    expect(len(commands) > 8 and len(options) > 20, general)
    page = run("mandoc", "-T", "ascii", packaging / "man" / "strativo-cli.1")
    page = re.sub(".\b", "", page)
    expect("$ find . -name" in page, "man page: the folder that find looks into")
    zsh = (packaging / "completions" / "_strativo-cli").read_text()
    manual_text = "".join(file.read_text() for file in (source / "docs/manual").glob("*.html"))
    for command in commands:
        expect(f"strativo-cli [options] {command} " in page, f"man page: {command}")
        expect(f"'{command}:" in zsh, f"zsh: {command}")
        expect(f"strativo-cli {command} " in manual_text, f"manual: {command}")
        for shell in ("bash", "fish"):
            expect(command in completed(shell, f"strativo-cli {command[:3]}"),
                   f"{shell}: {command}")
        own = {names[-1] for names in names_of_options(run(tool, command, "--help"))}
        found = completed("fish", f"strativo-cli {command} --")
        expect(found == own, f"fish: {command}: {found ^ own}")
    found = completed("bash", "strativo-cli show --")
    expect(found == {names[-1] for names in options}, f"bash: {found}")
    for names in options:
        for name in names:
            expect(re.search(rf"[\s,]{name}\b", page), f"man page: {name}")
            expect(re.search(rf"{name}[\[,}}]", zsh), f"zsh: {name}")
        expect(any(re.search(rf"[\s>]{name}\b", manual_text) for name in names),
               f"manual: {names}")
    for rule in names_of_rules():
        expect(rule in (source / "docs/manual/check.html").read_text(), f"manual: {rule}")
        expect(rule in zsh, f"zsh: {rule}")
        for shell in ("bash", "fish"):
            expect(rule in completed(shell, f"strativo-cli check --rule {rule[:4]}"),
                   f"{shell}: {rule}")


class Links(html.parser.HTMLParser):
    def __init__(self):
        super().__init__()
        self.targets, self.open_tags = [], []

    def handle_starttag(self, tag, attributes):
        named = dict(attributes)
        self.targets += [named[key] for key in ("href", "src") if key in named]
        if tag == "img":
            expect(named.get("alt"), f"a picture without a text: {named}")
        if tag not in ("img", "meta", "link", "hr", "br"):
            self.open_tags.append(tag)

    def handle_endtag(self, tag):
        expect(self.open_tags and self.open_tags.pop() == tag, f"</{tag}> closes nothing")


def manual():
    """Every link and picture leads somewhere, and every page and picture is reached."""
    folder = source / "docs" / "manual"
    used = {"index.html"}
    for page in sorted(folder.glob("*.html")):
        links = Links()
        links.feed(page.read_text())
        expect(not links.open_tags, f"{page.name}: left open: {links.open_tags}")
        for target in links.targets:
            expect((folder / target).is_file(), f"{page.name}: {target} is missing")
        used.update(links.targets)
    present = {str(file.relative_to(folder)) for file in folder.rglob("*") if file.is_file()}
    expect(present == used, f"not reached: {sorted(present - used)}")


def expect_no_source_path(root):
    """No installed program or module holds the path of the source tree, in bytes or in UTF-16."""
    binaries = [file for file in Path(root).rglob("*")
                if file.is_file() and file.read_bytes().startswith(b"\x7fELF")]
    expect("strativo-cli" in {file.name for file in binaries}, f"{binaries}")
    for file in binaries:
        for encoding in ("utf-8", "utf-16-le"):
            expect(str(source).encode(encoding) not in file.read_bytes(), f"{file}: {source}")


def installation():
    """The build installs below a given root, with the settings naming what was installed."""
    with tempfile.TemporaryDirectory() as root:
        run("cmake", "--install", build, "--strip", env=dict(os.environ, DESTDIR=root))
        expect_no_source_path(root)
        settings = next(Path(root).rglob("Stratv.ini")).read_text()
        named = dict(line.split("=") for line in settings.splitlines() if "=" in line)
        for key in ("StdMat", "Help"):
            expect((Path(root) / named[key].lstrip("/")).is_file(), f"{key}: {named[key]}")
        tool = next(Path(root).rglob("bin/strativo-cli"))
        examples = next(Path(root).rglob("share/strativo/examples"))
        output = run(tool, "check", "house.con", cwd=examples)
        expect(output == "", output)


def imported(program):
    return re.findall(r" UND (\w+)", run("readelf", "--wide", "--dyn-syms", program))


def unhardened(program):
    """What the program lacks of the usual hardening."""
    dynamic = run("readelf", "--wide", "--dynamic", program)
    segments = run("readelf", "--wide", "--file-header", "--program-headers", program)
    stack = re.search(r"GNU_STACK.*", segments)
    # With FORTIFY these are always called by another name.
    unchecked = {"printf", "fprintf", "vprintf", "vfprintf", "dprintf"}.intersection(imported(program))
    present = {
        "PIE": re.search(r"Type:\s+DYN", segments) and re.search(r"FLAGS_1.*\bPIE\b", dynamic),
        "RELRO": "GNU_RELRO" in segments,
        "BIND_NOW": re.search(r"\(FLAGS_1\).*\bNOW\b", dynamic),
        "no executable stack": stack and "RWE" not in stack.group(),
        "stack protector": "__stack_chk_fail" in imported(program),
        "FORTIFY": not unchecked,
    }
    return [what for what, found in present.items() if not found]


def hardening():
    """Both programs are hardened, as they are built and as they come out of the package."""
    cache = (build / "CMakeCache.txt").read_text()
    settings = dict(re.findall(r"^(\w+):\w+=(.*)$", cache, re.MULTILINE))
    if settings.get("CMAKE_BUILD_TYPE") != "Release" or settings.get("STRATIVO_SANITIZERS"):
        print("skipped: only a release build is hardened")
        sys.exit(77)
    with tempfile.TemporaryDirectory() as folder:
        run("cpack", "-G", "DEB", "--config", build / "CPackConfig.cmake", "-B", folder)
        package = next(Path(folder).glob("*.deb"))
        run("dpkg-deb", "--extract", package, Path(folder) / "root")
        for place in (build / "bin", Path(folder) / "root" / "usr" / "bin"):
            for name in ("strativo", "strativo-cli"):
                lacking = unhardened(place / name)
                expect(not lacking, f"{place / name} lacks {', '.join(lacking)}")
            # The desktop program calls nothing whose sizes could be checked.
            checked = [name for name in imported(place / "strativo-cli") if name.endswith("_chk")]
            expect(checked, f"{place} lacks FORTIFY")


globals()[part]()
